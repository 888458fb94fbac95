#include "browser/safe_save.h"

#include <exception>
#include <memory>
#include <optional>

#include "browser/path_text.h"
#include "formats/format_table.h"
#include "formats/text_file.h"

namespace trillomat {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kAnyLeftover = "*.trillomat";
constexpr std::string_view kSavingPrefix = ".saving-";
constexpr std::string_view kSavingSuffix = ".trillomat";
constexpr std::string_view kKeptSuffix = ".kept.trillomat";
constexpr size_t kLongestName = 255;

// Names no other file of this or another program: whoever makes it owns it, which keeps two programs that
// save at the same time from appending to one file.
std::optional<fs::path> CreateBeside(const fs::path& file, FileStore& store) {
  constexpr int kTries = 100;
  for (int i = 0; i < kTries; ++i) {
    const fs::path beside =
        file.parent_path() / (std::string(kSavingPrefix) + std::to_string(i) + std::string(kSavingSuffix));
    if (store.Create(beside)) return beside;
    if (!store.Exists(beside)) return std::nullopt;
  }
  return std::nullopt;
}

fs::path AsideOf(const fs::path& file) {
  fs::path name = ".";
  name += file.filename();
  name += kKeptSuffix;
  return file.parent_path() / name;
}

bool WriteAndFlush(const fs::path& beside, FileStore& store, Workspace& ws) {
  ws.ExportMelody = ws.melody.Elements();
  if (!FormatOf(ws.iNoteMode).bSaveFile(beside, ws)) return false;
  if (store.Flush(beside)) return true;
  ws.log.WriteLog("Could not flush the new file", 1);
  return false;
}

// The old file while its successor is written: kept under a second name, and put back unless released.
class OldFile {
 public:
  OldFile(const fs::path& file, FileStore& store) : file_(file), aside_(AsideOf(file)), store_(store) {
    // A name without room for the suffix has to do without: Move replaces in one instant all the same.
    if (aside_.filename().native().size() > kLongestName) return;
    // Left by an interrupted save, and superseded: the file itself exists.
    if (store_.Exists(aside_)) store_.Delete(aside_);
    kept_ = store_.KeepAside(file_, aside_);
    replaceable_ = kept_;
  }
  OldFile(const OldFile&) = delete;
  OldFile& operator=(const OldFile&) = delete;
  ~OldFile() {
    if (!kept_) return;
    // Where both are names of one file the move does nothing, and both stay.
    if (!released_ && !store_.Move(aside_, file_)) return;
    if (store_.Exists(aside_)) store_.Delete(aside_);
  }

  bool Replaceable() const { return replaceable_; }
  void Release() { released_ = true; }

 private:
  fs::path file_;
  fs::path aside_;
  FileStore& store_;
  bool kept_ = false;
  bool replaceable_ = true;
  bool released_ = false;
};

// Deletes what is left of the new file unless it found its place. Locked meanwhile, so that no other program
// takes it for what an interrupted save has left.
class NewFile {
 public:
  NewFile(const fs::path& target, FileStore& store)
      : store_(store), path_(CreateBeside(target, store)), lock_(path_ ? store.TryLock(*path_) : nullptr) {}
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;
  ~NewFile() {
    if (path_ && store_.Exists(*path_)) store_.Delete(*path_);
  }

  explicit operator bool() const { return path_.has_value(); }
  const fs::path& operator*() const { return *path_; }

 private:
  FileStore& store_;
  std::optional<fs::path> path_;
  std::unique_ptr<FileLock> lock_;
};

void LogFailure(std::string_view what, const TargetFile& file, Log& log) {
  log.WriteLog(std::string(what) + file.shown, 1);
}

SaveOutcome MoveIn(const fs::path& beside, const TargetFile& file, FileStore& store, Log& log) {
  if (store.Move(beside, file.path)) return SaveOutcome::Saved;
  LogFailure("Could not move the new file to its place->", file, log);
  return SaveOutcome::NotWritten;
}

// The file's own name when `name` is that of an old content kept aside.
std::optional<std::string> KeptName(std::string_view name) {
  if (!name.starts_with('.') || !name.ends_with(kKeptSuffix)) return std::nullopt;
  name.remove_prefix(1);
  if (name.size() < kKeptSuffix.size()) return std::nullopt;
  name.remove_suffix(kKeptSuffix.size());
  if (name.empty() || name == "." || name == "..") return std::nullopt;
  return std::string(name);
}

void PutBack(const fs::path& aside, const fs::path& file, FileStore& store, Log& log) {
  if (store.Exists(file)) {
    store.Delete(aside);
  } else if (store.Move(aside, file)) {
    log.WriteLog("Put back the old file of an interrupted save->" + PathText(file, store), 1);
  }
}

}  // namespace

SaveOutcome SaveOver(const TargetFile& file, FileStore& store, Workspace& ws,
                     const std::function<void()>& onRemoved) {
  if (!store.Exists(file.path)) {
    LogFailure("Could not find the file in bDeleteFile....->", file, ws.log);
    return SaveOutcome::NotFound;
  }
  const NewFile beside(file.path, store);
  if (!beside) {
    LogFailure("Could not make a new file beside->", file, ws.log);
    return SaveOutcome::NotWritten;
  }
  OldFile old(file.path, store);
  if (!old.Replaceable()) {
    LogFailure("Failed to remove the file in bDeleteFile->", file, ws.log);
    return SaveOutcome::NotRemoved;
  }
  onRemoved();
  if (!WriteAndFlush(*beside, store, ws)) return SaveOutcome::NotWritten;
  store.KeepRights(file.path, *beside);
  const SaveOutcome outcome = MoveIn(*beside, file, store, ws.log);
  if (outcome == SaveOutcome::Saved) old.Release();
  return outcome;
}

SaveOutcome SaveNew(const TargetFile& file, FileStore& store, Workspace& ws) {
  const NewFile beside(file.path, store);
  if (!beside) {
    LogFailure("Could not make a new file beside->", file, ws.log);
    return SaveOutcome::NotWritten;
  }
  if (!WriteAndFlush(*beside, store, ws)) return SaveOutcome::NotWritten;
  return MoveIn(*beside, file, store, ws.log);
}

bool bDeleteFile(const TargetFile& file, FileStore& store, Log& log) {
  if (!store.Exists(file.path)) {
    LogFailure("Could not find the file in bDeleteFile....->", file, log);
    return false;
  }
  store.Delete(file.path);
  if (!store.Exists(file.path)) return true;
  LogFailure("Failed to remove the file in bDeleteFile->", file, log);
  return false;
}

void PutBackLeftovers(const fs::path& folder, FileStore& store, Log& log) {
  for (const std::string& name : store.ListFiles(folder, kAnyLeftover).names) {
    if (const auto kept = KeptName(name)) {
      PutBack(folder / NamePath(name), folder / NamePath(*kept), store, log);
    } else if (name.starts_with(kSavingPrefix)) {
      const auto abandoned = store.TryLock(folder / NamePath(name));
      if (abandoned) store.Delete(folder / NamePath(name));
    }
  }
}

bool ReplaceText(const fs::path& file, std::string_view text, FileStore& store) {
  const NewFile beside(file, store);
  if (!beside) return false;
  try {
    AppendText(*beside, text);
  } catch (const std::exception&) {
    return false;
  }
  return store.Flush(*beside) && store.Move(*beside, file);
}

}  // namespace trillomat
