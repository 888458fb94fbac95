#include "cli/byte_files.h"

#include <iostream>
#include <iterator>

#include "cli/failure.h"
#include "files/path_text.h"
#include "files/read_file.h"
#include "platform/system_parts.h"

namespace trillomat {
namespace {

namespace fs = std::filesystem;

void WriteToStandardOutput(const WriteContent& write) {
  write(std::cout);
  std::cout.flush();
  if (!std::cout) throw Refused("cannot write to standard output");
}

}  // namespace

bool IsStandardStream(const fs::path& file) { return file == "-"; }

std::string ReadInput(const fs::path& file) {
  if (!IsStandardStream(file)) {
    auto bytes = ReadFile(file);
    if (!bytes) throw Refused(Utf8OfPath(file) + ": " + bytes.Why().why);
    return *std::move(bytes);
  }
  std::string bytes{std::istreambuf_iterator<char>(std::cin), {}};
  if (std::cin.bad()) throw Refused("cannot read standard input");
  return bytes;
}

void WriteOutput(const fs::path& file, const WriteContent& write) {
  if (IsStandardStream(file)) return WriteToStandardOutput(write);
  const Replacement replacement = ReplaceFile(file, *SystemFileStore(), write);
  const std::string reason = replacement.reason.empty() ? "" : ": " + replacement.reason;
  if (!replacement) throw Refused("cannot write " + Utf8OfPath(file) + reason);
  if (replacement.outcome == Replacement::Outcome::ReplacedUnflushed) {
    std::cerr << "trillomat-cli: warning: its folder cannot be flushed, " << Utf8OfPath(file) << reason
              << '\n';
  }
}

void WriteOutput(const fs::path& file, std::string_view bytes) {
  WriteOutput(file, [bytes](std::ostream& stream) {
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  });
}

}  // namespace trillomat
