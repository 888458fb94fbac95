#include "files/read_file.h"

#include <array>
#include <cerrno>
#include <fstream>
#include <system_error>

namespace trillomat {
namespace {

// With what the system says of the last error, as far as it says anything.
Refusal Refused(const std::string& what) {
  const int code = errno;
  return {.why = code == 0 ? what : what + " (" + std::generic_category().message(code) + ")"};
}

}  // namespace

Result<std::string> ReadFile(const std::filesystem::path& file) {
  errno = 0;
  std::ifstream in(file, std::ios::binary);
  if (!in) return Refused("the file cannot be opened");
  std::string bytes;
  std::array<char, 65536> block{};
  while (in.read(block.data(), block.size()) || in.gcount() > 0) {
    bytes.append(block.data(), static_cast<size_t>(in.gcount()));
  }
  if (in.bad()) return Refused("the file cannot be read");
  return bytes;
}

}  // namespace trillomat
