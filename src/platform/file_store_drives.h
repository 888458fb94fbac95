// Which folder each drive letter stands for on a system without drive letters, and the translation of
// paths between the two forms.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace trillomat {

/// The user's home folder: $HOME, else what the user database says, else "/".
std::filesystem::path HomeFolder();

/// The mount points of removable volumes in the text of /proc/self/mounts: those below /media and
/// /run/media, and /mnt with what is below it.
std::vector<std::filesystem::path> RemovableVolumes(std::string_view mounts);

class DriveMap {
 public:
  /// `mounts` is a file in the format of fstab(5); when it cannot be read there are no volumes.
  explicit DriveMap(const std::filesystem::path& home = HomeFolder(),
                    std::filesystem::path mounts = "/proc/self/mounts");

  /// Looks for volumes that came or went; one that stays keeps its letter. Returns the drives as
  /// FileStore::Drives does.
  uint32_t Refresh();
  /// "C: /home/ada"; the letter with its colon alone for a drive that is not there.
  std::string Text(char letter) const;
  /// The path of one in the given form; empty for any other text, one with a name "." or "..", and one whose
  /// drive is not there.
  std::filesystem::path Native(std::string_view given) const;
  /// The given form of a path, by the drive whose folder lies deepest; nothing when a name holds "\" or ":".
  std::optional<std::string> Given(const std::filesystem::path& native) const;

 private:
  std::filesystem::path mounts_;
  std::map<char, std::filesystem::path> folders_;
};

}  // namespace trillomat
