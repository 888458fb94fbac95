#include "app/ini_settings.h"

#include <chrono>
#include <thread>
#include <utility>

#include "files/read_file.h"
#include "files/replace_file.h"

namespace trillomat {

IniSettingsStore::IniSettingsStore(std::filesystem::path file, FileStore& files)
    : file_(std::move(file)), files_(files) {
  Read();
}

void IniSettingsStore::Read() {
  text_ = IniText();
  fault_.reset();
  if (files_.Kind(file_) == FileKind::None) return;
  auto bytes = ReadFile(file_, files_);
  if (bytes) {
    text_ = IniText(std::move(*bytes));
  } else {
    fault_ = bytes.Why();
  }
}

std::optional<std::string> IniSettingsStore::Get(std::string_view section, std::string_view key) const {
  return text_.Get(section, key);
}

// Waits up to a second; another program holds its turn for milliseconds. Null when it is not this one's turn
// then: it saves all the same, so that a program that hangs does not stop it. The file stays whole, and at
// worst the changes of one of them are lost.
std::unique_ptr<FileLock> IniSettingsStore::WaitForTurn() {
  using namespace std::chrono_literals;
  for (auto waited = 0ms; waited < 1000ms; waited += 20ms) {
    if (auto turn = files_.TryLock(LockFile())) return turn;
    if (!files_.Exists(LockFile())) break;  // nobody has it, and none can be made
    std::this_thread::sleep_for(20ms);
  }
  return nullptr;
}

std::optional<Refusal> IniSettingsStore::Write(const SettingsChanges& changes) {
  MakePrivateFolder(file_.parent_path());
  const auto turn = WaitForTurn();
  auto fault = MakeInTurn(changes);
  if (turn) files_.Delete(LockFile());
  return fault;
}

std::optional<Refusal> IniSettingsStore::MakeInTurn(const SettingsChanges& changes) {
  Read();
  if (fault_) return fault_;
  IniText changed = text_;
  changed.Apply(changes);
  if (changed.Text() == text_.Text()) return std::nullopt;
  const Replacement replaced = ReplaceFile(file_, files_, WriteBytes(changed.Text()), Streams::Refuse);
  if (!replaced) return Refusal{replaced.reason.empty() ? "the file cannot be written" : replaced.reason};
  text_ = std::move(changed);
  return std::nullopt;
}

}  // namespace trillomat
