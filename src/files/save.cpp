#include "files/save.h"

#include <memory>
#include <optional>
#include <utility>

#include "core/code_page.h"
#include "files/replace_file.h"
#include "formats/formats.h"

namespace trillomat {
namespace {

using Outcome = SaveResult::Outcome;

void LogOf(const TargetFile& file, std::string_view what, Log& log) {
  log.WriteLog(std::string(what) + file.shown, 1);
}

// What the log says of a replacement that failed or fell short, before the writer's own line.
void LogReplacement(const Replacement& replacement, const TargetFile& file, Log& log) {
  switch (replacement.outcome) {
    case Replacement::Outcome::NotMade: return LogOf(file, "Could not make a new file beside->", log);
    case Replacement::Outcome::NotFlushed: return log.WriteLog("Could not flush the new file", 1);
    case Replacement::Outcome::NotMoved:
      return LogOf(file, "Could not move the new file to its place->", log);
    case Replacement::Outcome::ReplacedUnflushed: return LogOf(file, "Could not flush the folder of->", log);
    default: break;
  }
}

std::string WhyNotWritten(const Replacement& replacement) {
  const std::string reason = replacement.reason.empty() ? "" : " (" + replacement.reason + ")";
  switch (replacement.outcome) {
    case Replacement::Outcome::NotMade: return "no new file can be made in its folder" + reason;
    case Replacement::Outcome::NotMoved: return "the new file cannot take its place" + reason;
    default: return "the file cannot be written" + reason;
  }
}

// Writes the bytes of the song, once they are made and what they replace is kept.
class SongWriter {
 public:
  SongWriter(const TargetFile& file, const SaveParts& parts) : file_(file), parts_(parts) {}

  // Events run while the bytes are made, so they come from the song as it is now.
  void Write(std::ostream& stream) {
    song_ = parts_.document.SharedSong();
    const auto bytes = trillomat::Write(*song_, parts_.document.Mode(), parts_.services);
    if (!bytes) {
      refusal_ = bytes.Why();
      stream.setstate(std::ios::badbit);
      return;
    }
    replaced_ = parts_.kept.KeepCopy(file_.path, *bytes);
    if (!replaced_.fault.empty()) LogOf(file_, "Could not keep the old file->", parts_.services.log);
    stream << *bytes;
  }

  SaveResult Written() {
    parts_.kept.Replaced(replaced_);
    parts_.document.SetFile(std::filesystem::absolute(file_.path), parts_.document.CurrentSong() != *song_);
    return {.replaced = std::move(replaced_)};
  }

  SaveResult NotWritten(FormatMode mode, const Replacement& replacement) {
    parts_.kept.NotReplaced(replaced_);
    if (refusal_) return {Outcome::NotWritten, refusal_->why};
    LogWriterFault(mode, parts_.services.log);
    return {Outcome::NotWritten, WhyNotWritten(replacement)};
  }

 private:
  const TargetFile& file_;
  const SaveParts& parts_;
  std::shared_ptr<const Song> song_;
  std::optional<Refusal> refusal_;
  KeptCopy replaced_;
};

// The bytes are made once the new file is there.
SaveResult WriteSong(const TargetFile& file, const SaveParts& parts, const std::function<void()>& onMade) {
  const FormatMode mode = parts.document.Mode();
  SongWriter writer(file, parts);
  const auto write = [&](std::ostream& stream) {
    onMade();
    writer.Write(stream);
  };
  const Replacement replacement = ReplaceFile(file.path, parts.store, write, Streams::AtOnce);
  LogReplacement(replacement, file, parts.services.log);
  return replacement ? writer.Written() : writer.NotWritten(mode, replacement);
}

}  // namespace

SaveResult SaveOver(const TargetFile& file, const SaveParts& parts, const std::function<void()>& onRemoved) {
  if (!parts.store.Exists(file.path)) {
    LogOf(file, "Could not find the file in bDeleteFile....->", parts.services.log);
    return {Outcome::NotFound, "the file is not there any more"};
  }
  if (!parts.store.CanRemove(file.path)) {
    LogOf(file, "Failed to remove the file in bDeleteFile->", parts.services.log);
    const bool marked = parts.store.IsReadOnly(file.path);
    return {Outcome::NotRemoved, std::string(marked ? kMarkedReadOnly : "the old file cannot be replaced")};
  }
  return WriteSong(file, parts, onRemoved);
}

SaveResult SaveNew(const TargetFile& file, const SaveParts& parts) {
  return WriteSong(file, parts, [] {});
}

bool DeleteFile(const TargetFile& file, FileStore& store, Log& log) {
  if (!store.Exists(file.path)) {
    LogOf(file, "Could not find the file in bDeleteFile....->", log);
    return false;
  }
  store.Delete(file.path);
  if (!store.Exists(file.path)) return true;
  LogOf(file, "Failed to remove the file in bDeleteFile->", log);
  return false;
}

}  // namespace trillomat
