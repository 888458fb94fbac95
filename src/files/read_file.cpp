#include "files/read_file.h"

#include <cerrno>
#include <utility>

#include "core/limits.h"
#include "files/last_error.h"

namespace trillomat {
namespace {

Refusal Refused(std::string what) { return {.why = WithLastError(std::move(what))}; }

}  // namespace

Result<std::string> ReadFile(const std::filesystem::path& file, const FileStore& store) {
  errno = 0;
  FileBytes read = store.Read(file, kLargestInput);
  switch (read.fault) {
    case FileBytes::Fault::None: return std::move(read.bytes);
    case FileBytes::Fault::NotOpened: return Refused("the file cannot be opened");
    case FileBytes::Fault::NotRead: return Refused("the file cannot be read");
    case FileBytes::Fault::NotPlain: return Refusal{.why = "it is no plain file"};
    case FileBytes::Fault::TooLarge: return Refusal{.why = "the file is " + TooLargeText()};
  }
  return Refusal{};
}

std::string TooLargeText() { return "larger than " + std::to_string(kLargestInput >> 20) + " MiB"; }

}  // namespace trillomat
