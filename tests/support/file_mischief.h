// What other programs do to files behind a program's back, in a test's folder alone.
#pragma once

#ifndef _WIN32
#include <sys/stat.h>
#endif

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "support/dice.h"
#include "support/temp_folder.h"

namespace trillomat {

class FileMischief {
 public:
  /// Touches only the files with one of `names` in `folder`, and writes one of `contents` into them.
  FileMischief(Dice& dice, const TempFolder& folder, std::vector<std::string> names,
               std::vector<std::string> contents)
      : dice_(dice), folder_(folder), names_(std::move(names)), contents_(std::move(contents)) {}

  const std::string& AnyName() { return dice_.AnyOf(names_); }
  int Deeds() const { return deeds_; }

  /// Writes, cuts, marks, replaces, removes or renames one of the files.
  void Act() {
    ++deeds_;
    const std::string name = AnyName();
    const std::filesystem::path file = folder_ / name;
    std::error_code refused;
    switch (dice_.Number(kKinds)) {
      case 0: return Mark(file, true);
      case 1: return Mark(file, false);
      case 2: return Remove(name);
      case 3: return Replace(name, [&] { std::filesystem::create_directory(file, refused); });
      case 4: return Cut(file);
      case 5: return Rename(file);
      case 6:
        return Replace(name, [&] { std::filesystem::create_symlink(folder_ / AnyName(), file, refused); });
      case 7: return Replace(name, [&] { MakePipe(file); });
      case 8: return Overwrite(file);
      default: return Replace(name, [&] { folder_.Write(name, dice_.AnyOf(contents_)); });
    }
  }

  void Remove(const std::string& name) {
    std::error_code refused;
    const std::filesystem::path file = folder_ / name;
    Mark(file, false);
    std::filesystem::remove_all(file, refused);
  }

  /// Kind, rights and content of what has that name, told without waiting for a pipe.
  std::string StateOf(const std::string& name) const {
    std::error_code unknown;
    const auto status = std::filesystem::symlink_status(folder_ / name, unknown);
    std::string state = std::to_string(static_cast<int>(status.type())) + " " +
                        std::to_string(static_cast<int>(status.permissions())) + " ";
    return IsPlain(folder_ / name) ? state + folder_.Read(name) : state;
  }

 private:
  static constexpr int kKinds = 14;  // to write anew is the most frequent

  static bool IsPlain(const std::filesystem::path& file) {
    std::error_code unknown;
    return std::filesystem::is_regular_file(file, unknown);
  }
  static void Mark(const std::filesystem::path& file, bool readOnly) {
    using std::filesystem::perm_options;
    using std::filesystem::perms;
    std::error_code refused;
    if (!IsPlain(file)) return;
    const perms write = perms::owner_write | perms::group_write | perms::others_write;
    const auto how = readOnly ? perm_options::remove : perm_options::add;
    std::filesystem::permissions(file, readOnly ? write : perms::owner_write, how, refused);
  }
  static void MakePipe([[maybe_unused]] const std::filesystem::path& file) {
#ifndef _WIN32
    mkfifo(file.c_str(), 0600);
#endif
  }
  template <class Make>
  void Replace(const std::string& name, const Make& make) {
    Remove(name);
    make();
  }
  void Cut(const std::filesystem::path& file) {
    std::error_code refused;
    if (!IsPlain(file)) return;
    const auto size = static_cast<int>(std::filesystem::file_size(file, refused));
    if (!refused && size > 0) {
      std::filesystem::resize_file(file, static_cast<uintmax_t>(dice_.Number(size)), refused);
    }
  }
  void Rename(const std::filesystem::path& file) {
    std::error_code refused;
    std::filesystem::rename(file, folder_ / AnyName(), refused);
  }
  void Overwrite(const std::filesystem::path& file) {
    if (IsPlain(file)) std::ofstream(file, std::ios::binary | std::ios::in) << dice_.AnyOf(contents_);
  }

  Dice& dice_;
  const TempFolder& folder_;
  std::vector<std::string> names_;
  std::vector<std::string> contents_;
  int deeds_ = 0;
};

}  // namespace trillomat
