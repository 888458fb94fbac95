// Puts another song in the place of the composed one, which is kept if it was not saved: a file's, an
// imported, a recovered or an empty one. The caller holds the token of the file operation.
#pragma once

#include <filesystem>
#include <optional>

#include "files/files_host.h"

namespace trillomat {

class Opener {
 public:
  explicit Opener(const FileParts& parts) : parts_(parts) {}

  /// Reads the file as one of `mode`, which the composer enters with the song. Returns what is to be said
  /// then. When the file cannot be opened, returns nothing: song and mode stay, "Error when decoding file"
  /// stands in the log, and the host has said why.
  std::optional<FileMessage> Open(const std::filesystem::path& file, FormatMode mode);

  /// Takes in what was imported, which was not refused. It belongs to no file.
  void TakeImported(ReadResult&& read);

  /// Takes in what was read in another way. It belongs to no file, so that nothing overwrites the original.
  void TakeBetter(BetterReading&& better);

  /// Takes in a song that Recovery kept, with its mode; it belongs to no file. False, and a message, when
  /// there is none any more.
  bool TakeRecovered(const std::filesystem::path& kept);

  /// Takes in an empty song, with the song information that a song starts with. It belongs to no file.
  void TakeNew();

 private:
  void Replace(ReadResult&& read, FormatMode mode, const std::filesystem::path& file, std::string_view step);
  std::nullopt_t Refuse(const FileMessage& said);

  FileParts parts_;
};

}  // namespace trillomat
