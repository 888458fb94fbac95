// The sample melodies in the list, and their copies in the user's music.
#include "core/number_text.h"
#include "files/file_browser.h"
#include "files/path_text.h"
#include "files/samples.h"

namespace trillomat {

const std::string& FileBrowser::OwnFolder() const {
  return folder_ == samplesFolder_ ? folderBeforeSamples_ : folder_;
}

// False, with the list as it was, for a folder that the list cannot name.
bool FileBrowser::EnterPlace(const std::filesystem::path& folder) {
  const auto given = parts_.store.GivenPath(folder);
  if (!given) return false;
  folder_ = *given + '\\';
  Select(kNoRow, false);
  Refresh();
  return true;
}

void FileBrowser::ShowSamples(const std::filesystem::path& samples) {
  const auto operation = parts_.operations.Begin();
  if (!operation) return;
  const std::string before = OwnFolder();
  if (!EnterPlace(samples)) return;
  samplesFolder_ = folder_;
  folderBeforeSamples_ = before;
  parts_.host.Say({"Click a sample melody in the list to open it; each format has samples of its own",
                   FileMessage::Offer::CopySamples});
}

void FileBrowser::ShowSamplesToNewcomer(const std::filesystem::path& samples) {
  if (samples.empty() || left_ || HoldsMelodies(parts_.store.NativePath(folder_), parts_.store)) return;
  ShowSamples(samples);
}

void FileBrowser::CopySamples() {
  const auto operation = parts_.operations.Begin();
  if (!operation) return;
  const auto folder = parts_.host.MusicFolder() / "Trillomat samples";
  const CopiedSamples done =
      trillomat::CopySamples(parts_.store.NativePath(samplesFolder_), folder, parts_.store);
  if (!done.fault.empty()) {
    return parts_.host.Say({"Not copied: " + done.fault, FileMessage::Offer::CopySamples});
  }
  EnterPlace(folder);
  std::string said =
      "Copied " + Counted(done.copied, "sample melody", "sample melodies") + " to " + Utf8OfPath(folder);
  if (done.kept > 0) said += "; " + Counted(done.kept, "file", "files") + " of these names stayed";
  parts_.host.Say({said});
}

}  // namespace trillomat
