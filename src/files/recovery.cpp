#include "files/recovery.h"

#include <utility>

#include "files/read_file.h"
#include "files/replace_file.h"

namespace trillomat {
namespace {

constexpr int kSlots = 9;

}  // namespace

Recovery::Recovery(Document& document, FileStore& store, std::filesystem::path folder, Log& log)
    : document_(document), store_(store), folder_(std::move(folder)), log_(log) {
  document_.AddObserver(*this);
}

Recovery::~Recovery() { document_.RemoveObserver(*this); }

void Recovery::DocumentChanged(const ChangedRange& range) {
  changed_ = changed_ || range.SongChanged() || range.mode;
}

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
  if (folder_.empty()) return false;
  MakePrivateFolder(folder_);
  const bool abnormal = FindSlot(true);
  if (!abnormal && !FindSlot(false)) {
    log_.WriteLog("No recovery file can be kept", 1);
    return false;
  }
  store_.Sweep(folder_);
  const bool left = Recorded("recovery-").has_value();
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
  if (document_.IsEmpty()) return;
  std::string text = Text();
  if (text == written_ || text == replaced_) return;
  // What could not be written is tried again at the next call.
  changed_ = !Write("recovery-", text);
  if (!changed_) written_ = std::move(text);
}

void Recovery::KeepBeforeReplacing() {
  changed_ = true;
  Tick();
  if (slot_ == 0 || document_.IsEmpty()) return;
  const std::string text = Text();
  if (text != replaced_) Write("last-", text);
}

void Recovery::SongReplaced() {
  if (slot_ != 0) replaced_ = Text();
}

std::optional<RecoveredSong> Recovery::Recorded(std::string_view kind) const {
  if (slot_ == 0 || !store_.Exists(File(kind))) return std::nullopt;
  const auto text = ReadFile(File(kind), store_);
  if (!text) return std::nullopt;
  return ReadRecovery(*text);
}

bool Recovery::Write(std::string_view kind, std::string_view text) {
  if (ReplacePrivateFile(File(kind), store_, text)) return true;
  if (!failureLogged_) log_.WriteLog("Could not write the recovery file", 1);
  failureLogged_ = true;
  return false;
}

}  // namespace trillomat
