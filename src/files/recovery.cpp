#include "browser/recovery.h"

#include <exception>

#include "browser/safe_save.h"
#include "formats/text_file.h"

namespace trillomat {
namespace {

constexpr int kSlots = 9;

}  // namespace

std::filesystem::path Recovery::File(std::string_view kind, std::string_view extension) const {
  return folder_ / (std::string(kind) + std::to_string(slot_) + std::string(extension));
}

// Locks the first slot that no living program holds, of those alone whose program ended abnormally if
// `abandoned`.
bool Recovery::FindSlot(bool abandoned) {
  for (slot_ = 1; slot_ <= kSlots; ++slot_) {
    if (abandoned && !store_.Exists(File("running-", ""))) continue;
    lock_ = store_.TryLock(File("running-", ""));
    if (lock_) return true;
  }
  slot_ = 0;
  return false;
}

bool Recovery::Start() {
  std::error_code exists;
  std::filesystem::create_directories(folder_, exists);
  const bool abnormal = FindSlot(true);
  if (!abnormal && !FindSlot(false)) {
    ws_.log.WriteLog("No recovery file can be kept", 1);
    return false;
  }
  PutBackLeftovers(folder_, store_, ws_.log);
  const bool left = ReadFile("recovery-").has_value();
  if (left) store_.Move(File("recovery-"), File("last-"));
  return abnormal && left;
}

void Recovery::End() {
  if (slot_ == 0) return;
  Tick();
  store_.Delete(File("running-", ""));
  lock_.reset();
  slot_ = 0;
}

void Recovery::Tick() {
  if (!changed_ || slot_ == 0) return;
  changed_ = false;
  if (ws_.melody.IsEmpty()) return;
  std::string text = WriteRecovery(ws_);
  if (text == written_ || text == replaced_) return;
  // What could not be written is tried again at the next call.
  changed_ = !Write("recovery-", text);
  if (!changed_) written_ = std::move(text);
}

void Recovery::KeepBeforeReplacing() {
  changed_ = true;
  Tick();
  if (slot_ == 0 || ws_.melody.IsEmpty()) return;
  const std::string text = WriteRecovery(ws_);
  if (text != replaced_) Write("last-", text);
}

std::optional<RecoveredMelody> Recovery::ReadFile(std::string_view kind) const {
  if (slot_ == 0 || !store_.Exists(File(kind))) return std::nullopt;
  try {
    return ReadRecovery(ReadBytes(File(kind)));
  } catch (const std::exception&) {
    return std::nullopt;
  }
}

bool Recovery::Write(std::string_view kind, std::string_view text) {
  if (ReplaceText(File(kind), text, store_)) return true;
  if (!failureLogged_) ws_.log.WriteLog("Could not write the recovery file", 1);
  failureLogged_ = true;
  return false;
}

}  // namespace trillomat
