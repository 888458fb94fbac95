#include "files/save.h"

#include <optional>

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

// Events run while the bytes are made, so they come from a copy of the song. They are made once the new file
// is there.
SaveResult WriteSong(const TargetFile& file, FileStore& store, Document& document, const Services& services,
                     const std::function<void()>& onMade) {
  const FormatMode mode = document.Mode();
  Song written;
  std::optional<Refusal> refusal;
  const Replacement replacement = ReplaceFile(
      file.path, store,
      [&](std::ostream& stream) {
        onMade();
        written = document.CurrentSong();
        const auto bytes = Write(written, mode, services);
        if (bytes) stream << *bytes;
        if (bytes) return;
        refusal = bytes.Why();
        stream.setstate(std::ios::badbit);
      },
      Streams::AtOnce);
  LogReplacement(replacement, file, services.log);
  if (replacement) {
    document.SetFile(std::filesystem::absolute(file.path), document.CurrentSong() != written);
    return {};
  }
  if (refusal) return {Outcome::NotWritten, refusal->why};
  LogWriterFault(mode, services.log);
  return {Outcome::NotWritten, WhyNotWritten(replacement)};
}

}  // namespace

SaveResult SaveOver(const TargetFile& file, FileStore& store, Document& document, const Services& services,
                    const std::function<void()>& onRemoved) {
  if (!store.Exists(file.path)) {
    LogOf(file, "Could not find the file in bDeleteFile....->", services.log);
    return {Outcome::NotFound, "the file is not there any more"};
  }
  if (!store.CanRemove(file.path)) {
    LogOf(file, "Failed to remove the file in bDeleteFile->", services.log);
    const bool marked = store.IsReadOnly(file.path);
    return {Outcome::NotRemoved, std::string(marked ? kMarkedReadOnly : "the old file cannot be replaced")};
  }
  return WriteSong(file, store, document, services, onRemoved);
}

SaveResult SaveNew(const TargetFile& file, FileStore& store, Document& document, const Services& services) {
  return WriteSong(file, store, document, services, [] {});
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
