#include "cli/byte_files.h"

#include <array>
#include <iostream>

#include "cli/console.h"
#include "cli/failure.h"
#include "core/limits.h"
#include "files/path_text.h"
#include "files/read_file.h"

namespace trillomat {
namespace {

namespace fs = std::filesystem;

std::string ReadStandardInput() {
  std::string bytes;
  std::array<char, 65536> block{};
  while (std::cin.read(block.data(), block.size()) || std::cin.gcount() > 0) {
    bytes.append(block.data(), static_cast<size_t>(std::cin.gcount()));
    if (bytes.size() > kLargestInput) throw Refused("standard input is " + TooLargeText());
  }
  if (std::cin.bad()) throw Refused("cannot read standard input");
  return bytes;
}

}  // namespace

bool IsStandardStream(const fs::path& file) { return file == "-"; }

std::string ReadInput(const fs::path& file, const FileStore& store) {
  if (IsStandardStream(file)) return ReadStandardInput();
  auto bytes = ReadFile(file, store);
  if (!bytes) throw Refused(Utf8OfPath(file) + ": " + bytes.Why().why);
  return *std::move(bytes);
}

void FlushStandardOutput() {
  if (std::cout.flush()) return;
  if (IsOutputAbandoned()) throw ClosedPipe("standard output is closed");
  throw Refused("cannot write to standard output");
}

void WriteOutput(const fs::path& file, FileStore& store, const WriteContent& write) {
  // By its name too it may be a terminal, which gets text without its orders.
  if (IsStandardStream(file) || file == "/dev/stdout") {
    write(std::cout);
    return FlushStandardOutput();
  }
  const Replacement replacement = ReplaceFile(file, store, write);
  const std::string reason = replacement.reason.empty() ? "" : ": " + replacement.reason;
  if (!replacement) throw Refused("cannot write " + Utf8OfPath(file) + reason);
  if (replacement.outcome == Replacement::Outcome::ReplacedUnflushed) {
    std::cerr << "trillomat-cli: warning: its folder cannot be flushed, " << Utf8OfPath(file) << reason
              << '\n';
  }
}

void WriteOutput(const fs::path& file, FileStore& store, std::string_view bytes) {
  WriteOutput(file, store, WriteBytes(bytes));
}

}  // namespace trillomat
