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
  /// `mounts` is a file in the format of fstab(5); one that cannot be read names no volume.
  explicit DriveMap(const std::filesystem::path& home = HomeFolder(),
                    std::filesystem::path mounts = "/proc/self/mounts");

  /// Looks for volumes that came or went; one that stays keeps its letter. The drives as a bit mask.
  uint32_t Refresh();
  /// "C: /home/ada"; the letter with its colon alone for a drive that is not there.
  std::string Text(char letter) const;
  /// Empty for a text that is not of the given form, that names "." or "..", or whose drive is not there.
  std::filesystem::path Native(std::string_view given) const;
  /// By the drive that lies deepest; nothing when a name holds "\" or ":".
  std::optional<std::string> Given(const std::filesystem::path& native) const;

 private:
  std::filesystem::path mounts_;
  std::map<char, std::filesystem::path> folders_;
};

}  // namespace trillomat
