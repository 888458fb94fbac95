// Keeps files in a folder of the program's own, for systems whose trash it does not use: the last 50 of them,
// and no more than 20 MiB together; the oldest are deleted. Each is named "NUMBER-NAME" with a number that
// grows. No file takes more than half of the room: to put one back, the file that it replaces has to be kept
// beside it.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "files/file_keeper.h"
#include "files/file_store.h"

namespace trillomat {

class FolderKeeper : public FileKeeper {
 public:
  static constexpr size_t kMostFiles = 50;
  static constexpr uint64_t kMostBytes = uint64_t{20} << 20;
  static constexpr uint64_t kLargestFile = kMostBytes / 2;

  /// `folder` is made when it is needed, for the user alone; an empty one keeps nothing.
  FolderKeeper(FileStore& store, std::filesystem::path folder) : store_(store), folder_(std::move(folder)) {}

  /// Only copies: a move could overwrite what another program puts there at the same time.
  std::optional<std::filesystem::path> Keep(const std::filesystem::path& file, How how) override;
  void Discard(const std::filesystem::path& kept) override { store_.Delete(kept); }

 private:
  struct Entry {
    uint64_t number = 0;
    std::filesystem::path file;
    uint64_t size = 0;
  };

  std::vector<Entry> Entries() const;
  void DropOldest();

  FileStore& store_;
  std::filesystem::path folder_;
};

}  // namespace trillomat
