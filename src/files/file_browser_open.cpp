// The file browser: opening what was not clicked, and whatever else takes the place of the composed song.
#include "core/number_text.h"
#include "files/file_browser.h"
#include "files/path_text.h"
#include "files/recent_files.h"

namespace trillomat {
namespace {

using Offer = FileMessage::Offer;

FileMessage MessageOf(const KeptSong& left) {
  const std::string elements = Counted(left.elements, "element", "elements");
  return {left.name + " (" + elements + ") was not saved when Trillomat ended the last time", Offer::Recover};
}

// "Melodies (*.imy *.emy *.rtx *.mel)"
std::string OpenFilter() {
  std::string patterns;
  for (const ModeLimits& limits : kModeLimits) {
    patterns += (patterns.empty() ? "*." : " *.") + std::string(limits.extension);
  }
  return "Melodies (" + patterns + ")";
}

}  // namespace

bool FileBrowser::OpenFile(const std::filesystem::path& file) {
  const std::string extension = Utf8OfPath(file.extension());
  const auto mode = ModeOfExtension(std::string_view(extension).substr(extension.empty() ? 0 : 1));
  std::optional<FileMessage> opened;
  {
    const auto operation = parts_.operations.Begin();
    if (!operation) return false;
    if (!mode) {
      const std::string shown = LogText(file, parts_.store);
      parts_.services.log.WriteLog("Not a melody file (imy, emy, rtx, mel)->" + shown, 2);
      return false;
    }
    const auto given = parts_.store.GivenPath(file);
    const bool shown = given && parts_.store.Exists(file);
    if (shown) folder_ = given->substr(0, given->rfind('\\') + 1);
    opened = opener_.Open(file, *mode);
    Refresh();
    if (shown) Select(RowOf({RowKind::File, given->substr(given->rfind('\\') + 1)}), true);
    parts_.host.ShowSelectedFile();
    if (opened) SayDone(*opened);
  }
  if (opened) parts_.host.PlayOrShow();
  return opened.has_value();
}

void FileBrowser::TakeImported(ReadResult&& read, const FileMessage& done) {
  opener_.TakeImported(std::move(read));
  SayDone(done);
  Select(kNoRow, false);
  parts_.host.ShowSelectedFile();
}

void FileBrowser::New() {
  const auto operation = parts_.operations.Begin();
  if (!operation || !parts_.host.MayEdit()) return;
  opener_.TakeNew();
  SayDone();
  Select(kNoRow, false);
  parts_.host.ShowSelectedFile();
}

void FileBrowser::Open() {
  std::optional<std::filesystem::path> file;
  {
    const auto operation = parts_.operations.Begin();
    if (!operation || !parts_.host.MayEdit()) return;
    file = parts_.host.AskOpenPath({parts_.store.NativePath(folder_), OpenFilter()});
  }
  if (file) OpenFile(*file);
}

void FileBrowser::OpenRecent(const std::filesystem::path& file) {
  if (parts_.operations.Runs() || !parts_.host.MayEdit()) return;
  if (!parts_.store.Exists(file)) parts_.recent.Drop(file);
  OpenFile(file);
}

void FileBrowser::Recover(const std::filesystem::path& kept) {
  const auto operation = parts_.operations.Begin();
  if (!operation || !parts_.host.MayEdit() || !opener_.TakeRecovered(kept)) return;
  left_.reset();
  SayDone();
  Select(kNoRow, false);
  parts_.host.ShowSelectedFile();
}

void FileBrowser::RecoverLast() {
  const auto songs = parts_.recovery.Songs();
  Recover(songs.empty() ? std::filesystem::path() : songs.front().file);
}

void FileBrowser::OfferLeft(const KeptSong& left) {
  left_ = left;
  parts_.recovery.Told();
  SayDone();
}

void FileBrowser::Accept(Offer offer) {
  if (offer == Offer::Restore) Restore();
  if (offer == Offer::ReadBetter && TakeBetter()) parts_.host.PlayOrShow();
  if (offer == Offer::ShowChanges) parts_.host.ShowChanges();
  if (offer == Offer::CopySamples) CopySamples();
  if (offer == Offer::Recover && left_) Recover(std::filesystem::path(left_->file));
}

// Reads in the way that was offered. True when the song is to be played, as a file that was opened is.
bool FileBrowser::TakeBetter() {
  const auto operation = parts_.operations.Begin();
  if (!operation || !parts_.host.MayEdit()) return false;
  auto better = parts_.host.ReadBetter();
  if (!better) return false;
  const FileMessage done = better->done;
  const bool plays = better->plays;
  if (better->pasted) {
    parts_.host.PasteIn(std::move(better->read.elements));
  } else {
    opener_.TakeBetter(*std::move(better));
    Select(kNoRow, false);
  }
  SayDone(done);
  parts_.host.ShowSelectedFile();
  return plays;
}

void FileBrowser::CloseMessage() {
  left_.reset();
  parts_.host.Say({});
}

// With nothing else to say, what the last run left is still offered; messages of earlier commands go.
void FileBrowser::SayDone(const FileMessage& done) {
  parts_.host.Say(done.text.empty() && left_ ? MessageOf(*left_) : done);
}

}  // namespace trillomat
