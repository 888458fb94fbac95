#include "formats/text_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fstream>
#include <system_error>

#include "formats/fault_trap.h"

namespace trillomat {
namespace {

// Throws with what the system says of the last error, as far as it says anything.
[[noreturn]] void Fail(const std::string& what) {
  const int code = errno;
  throw RunTimeFault(code == 0 ? what : what + " (" + std::generic_category().message(code) + ")");
}

}  // namespace

std::string ReadBytes(const std::filesystem::path& file) {
  errno = 0;
  std::ifstream in(file, std::ios::binary);
  if (!in) Fail("the file cannot be opened");
  std::string bytes;
  std::array<char, 65536> block{};
  while (in.read(block.data(), block.size()) || in.gcount() > 0) {
    bytes.append(block.data(), static_cast<size_t>(in.gcount()));
  }
  if (in.bad()) Fail("the file cannot be read");
  return bytes;
}

std::vector<std::string_view> SplitLines(std::string_view bytes) {
  std::vector<std::string_view> lines;
  while (!bytes.empty()) {
    const size_t length = std::min(bytes.find_first_of("\r\n"), bytes.size());
    lines.push_back(bytes.substr(0, length));
    bytes.remove_prefix(length);
    bytes.remove_prefix(bytes.starts_with("\r\n") ? 2 : std::min<size_t>(1, bytes.size()));
  }
  return lines;
}

std::string JoinLines(std::string_view bytes) {
  std::string joined;
  joined.reserve(bytes.size());
  for (const std::string_view line : SplitLines(bytes)) joined += line;
  return joined;
}

void AppendText(const std::filesystem::path& file, std::string_view text) {
  if (text.empty()) throw QuietFailure("the program is ending");
  errno = 0;
  std::ofstream out(file, std::ios::binary | std::ios::app);
  if (!out) Fail("the file cannot be opened for writing");
  out.write(text.data(), static_cast<std::streamsize>(text.size()));
  out.flush();
  out.close();
  if (!out) Fail("the file cannot be written");
}

}  // namespace trillomat
