#include "files/recovery.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "core/code_page.h"
#include "files/path_text.h"
#include "files/read_file.h"
#include "files/replace_file.h"

namespace trillomat {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;
using std::chrono::system_clock;

constexpr int kSlots = 9;  // N from 1 on
constexpr std::string_view kKept = "kept-";
constexpr std::string_view kLeft = "left-";

int64_t Now() {
  return std::chrono::duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
}

// S of "kept-S-N.txt" and "left-S-N.txt"; nothing for other names.
std::optional<uint64_t> NumberIn(std::string_view name) {
  if (!name.starts_with(kKept) && !name.starts_with(kLeft)) return std::nullopt;
  const char* const begin = name.data() + kKept.size();
  const char* const end = name.data() + name.size();
  uint64_t number = 0;
  const auto [rest, fault] = std::from_chars(begin, end, number);
  const bool whole =
      fault == std::errc() && end - rest == 6 && *rest == '-' && rest[1] > '0' && rest[1] <= '9';
  return whole ? std::optional(number) : std::nullopt;
}

// The "kept-S-N.txt" of a "left-S-N.txt"; any other name as it is.
fs::path NameOnceTold(const fs::path& left) {
  const std::string name = Utf8OfPath(left.filename());
  if (!name.starts_with(kLeft)) return left;
  return left.parent_path() / (std::string(kKept) + name.substr(kLeft.size()));
}

double MillisecondsOf(const Song& song) {
  double beats = 0;
  for (const Element& element : song.elements) beats += double{element.duration} * element.extra;
  const int32_t tempo = song.info.bpm > 0 ? song.info.bpm : kDefaultTempo;
  return beats * 60000 / tempo;
}

std::string NameOf(const RecoveredSong& recovered) {
  if (!recovered.file.empty()) return recovered.file;
  return recovered.song.info.name.empty() ? "Untitled" : ToUtf8(recovered.song.info.name);
}

// Texts of earlier versions do not tell when they were written, so the file does.
system_clock::time_point TimeOf(const RecoveredSong& recovered, const fs::path& file) {
  if (recovered.time != 0) return system_clock::time_point(milliseconds(recovered.time));
  std::error_code gone;
  const auto written = fs::last_write_time(file, gone);
  if (gone) return {};
  const auto ago = fs::file_time_type::clock::now() - written;
  return system_clock::now() - std::chrono::duration_cast<system_clock::duration>(ago);
}

}  // namespace

Recovery::Recovery(Document& document, FileStore& store, fs::path folder, Log& log)
    : document_(document), store_(store), folder_(std::move(folder)), log_(log) {
  document_.AddObserver(*this);
}

Recovery::~Recovery() { document_.RemoveObserver(*this); }

void Recovery::DocumentChanged(const ChangedRange& range) {
  changed_ = changed_ || range.SongChanged() || range.mode;
  cleared_ = cleared_ || (document_.IsEmpty() && range.removed > 1);
}

fs::path Recovery::File(std::string_view kind, int slot, std::string_view extension) const {
  return folder_ / (std::string(kind) + std::to_string(slot) + std::string(extension));
}

// The files kept-S-N.txt and left-S-N.txt, the newest first.
std::vector<Recovery::Entry> Recovery::Entries() const {
  std::vector<Entry> entries;
  for (const std::string& name : store_.List(folder_, "*.txt").files.names) {
    const auto number = NumberIn(name);
    if (number) entries.push_back({folder_ / name, *number, name.starts_with(kLeft)});
  }
  std::stable_sort(entries.begin(), entries.end(),
                   [](const Entry& a, const Entry& b) { return a.number > b.number; });
  return entries;
}

std::vector<KeptSong> Recovery::Songs() const {
  std::vector<KeptSong> songs;
  if (folder_.empty()) return songs;
  for (const Entry& entry : Entries()) {
    auto song = Described(entry.file);
    if (song) songs.push_back(std::move(*song));
    if (songs.size() == kMostSongs) break;
  }
  return songs;
}

std::optional<KeptSong> Recovery::Described(const fs::path& file) const {
  const auto recovered = Recovered(file);
  if (!recovered) return std::nullopt;
  return KeptSong{NameOf(*recovered), TimeOf(*recovered, file), recovered->song.elements.size(),
                  MillisecondsOf(recovered->song), file};
}

std::optional<RecoveredSong> Recovery::Recovered(const fs::path& file) const {
  const fs::path there = store_.Exists(file) ? file : NameOnceTold(file);
  if (!store_.Exists(there)) return std::nullopt;
  const auto text = ReadFile(there, store_);
  if (!text) return std::nullopt;
  return ReadRecovery(*text);
}

bool Recovery::FindSlot() {
  for (slot_ = 1; slot_ <= kSlots; ++slot_) {
    lock_ = store_.TryLock(File("running-", slot_, ""));
    if (lock_) return true;
  }
  slot_ = 0;
  return false;
}

std::optional<KeptSong> Recovery::Start() {
  if (folder_.empty()) return std::nullopt;
  MakePrivateFolder(folder_);
  if (!FindSlot()) {
    log_.WriteLog("No recovery file can be kept", 1);
    return std::nullopt;
  }
  store_.Sweep(folder_);
  for (int slot = 1; slot <= kSlots; ++slot) {
    if (store_.Exists(File("last-", slot))) Enlist(File("last-", slot), kKept);
    TakeOverAbandoned(slot);
  }
  DropDoublesAndOldest();
  std::optional<KeptSong> newest;
  for (const Entry& entry : Entries()) {
    if (!entry.left) continue;
    left_.push_back(entry.file);
    auto song = Described(entry.file);
    if (song && (!newest || song->time > newest->time)) newest = std::move(song);
  }
  return newest;
}

void Recovery::Told() {
  for (const fs::path& left : left_) store_.Move(left, NameOnceTold(left));
  left_.clear();
}

// Takes over the song of a run that was killed: nobody holds the lock of its number any more.
void Recovery::TakeOverAbandoned(int slot) {
  if (!store_.Exists(File("recovery-", slot))) return;
  const auto lock = slot == slot_ ? nullptr : store_.TryLock(File("running-", slot, ""));
  if (slot == slot_ || lock) Enlist(File("recovery-", slot), kLeft);
}

// Renames a file to "KIND-S-N.txt", with an S that makes it the newest.
bool Recovery::Enlist(const fs::path& from, std::string_view kind) {
  const std::vector<Entry> entries = Entries();
  const uint64_t number = entries.empty() ? 1 : entries.front().number + 1;
  return store_.Move(from, File(std::string(kind) + std::to_string(number) + "-", slot_));
}

void Recovery::End() {
  if (slot_ == 0) return;
  Tick();
  if (written_) Leave(kLeft);
  store_.Delete(File("running-", slot_, ""));
  lock_.reset();
  slot_ = 0;
}

void Recovery::Tick() {
  if (slot_ == 0) return;
  if (std::exchange(cleared_, false) && written_) Leave(kKept);
  if (!IsUnsaved()) {
    if (written_) written_ = !store_.Delete(RunsFile());
  } else if (changed_) {
    changed_ = !Write();  // what could not be written is tried again at the next call
  }
}

void Recovery::KeepBeforeReplacing() {
  Tick();
  if (written_ && IsUnsaved()) Leave(kKept);
  changed_ = true;
}

void Recovery::Leave(std::string_view kind) {
  written_ = !Enlist(RunsFile(), kind);
  DropDoublesAndOldest();
}

// Deletes all but the newest kMostSongs, and those that keep the same song as the newest one. Damaged files
// stay: they may still be of use to somebody.
void Recovery::DropDoublesAndOldest() {
  std::string newest;
  size_t songs = 0;
  for (const Entry& entry : Entries()) {
    const auto text = ReadFile(entry.file, store_);
    const std::string_view song = text ? SongPartOf(*text) : std::string_view();
    if (song.empty()) continue;
    if (songs > 0 && (songs == kMostSongs || song == newest)) {
      store_.Delete(entry.file);
      continue;
    }
    if (songs++ == 0) newest = song;
  }
}

bool Recovery::Write() {
  const std::string name = Utf8OfPath(document_.File().filename());
  const std::string text = WriteRecovery(document_.CurrentSong(), document_.Mode(), name, Now());
  if (ReplacePrivateFile(RunsFile(), store_, text)) return written_ = true;
  if (!failureLogged_) log_.WriteLog("Could not write the recovery file", 1);
  failureLogged_ = true;
  return false;
}

}  // namespace trillomat
