// The command "Export sound...": the melody as it is heard, in a file of another kind. The document does not
// come to belong to that file.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "files/file_browser.h"
#include "files/files_host.h"

namespace trillomat {

/// A sound file.
struct SoundBytes {
  std::string bytes;
  std::vector<std::string> changes = {};  ///< what differs from the song: Windows-1252, without full stop
};

/// Makes the bytes of a file with that extension, "wav" or "mid"; lets events run meanwhile.
using MakeSound =
    std::function<Result<SoundBytes>(const Document& song, std::string_view extension, const Services&)>;

class SoundExport {
 public:
  SoundExport(const FileParts& parts, const FileBrowser& browser, MakeSound make)
      : parts_(parts), browser_(browser), make_(std::move(make)) {}

  /// Asks for a name, and writes a WAV file, or a MIDI file where the name ends in ".mid" or ".midi". Does
  /// nothing while another file operation runs or the melody plays. A file that it replaces is kept. The host
  /// says what came of it.
  void Run();

 private:
  std::optional<std::filesystem::path> AskFile(std::string_view& extension) const;
  Result<SoundBytes> Make(const std::filesystem::path& file, std::string_view extension);
  void Write(const std::filesystem::path& file, const SoundBytes& sound);

  FileParts parts_;
  const FileBrowser& browser_;
  MakeSound make_;
};

}  // namespace trillomat
