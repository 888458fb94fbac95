#include "cli/byte_files.h"

#include <cerrno>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <system_error>

#include "cli/failure.h"
#include "formats/fault_trap.h"
#include "formats/text_file.h"
#include "platform/system_parts.h"

namespace trillomat {
namespace {

namespace fs = std::filesystem;
using Write = std::function<void(std::ostream&)>;

// `what` and the file, with the system's words where it has any.
[[noreturn]] void Fail(const std::string& what, const fs::path& file, int code) {
  const std::string reason = code == 0 ? "" : ": " + std::generic_category().message(code);
  throw Refused(what + " " + Utf8OfPath(file) + reason);
}

void WriteTo(const fs::path& file, const Write& write) {
  errno = 0;
  std::ofstream stream(file, std::ios::binary | std::ios::trunc);
  if (stream.is_open()) write(stream);
  stream.close();
  if (!stream) Fail("cannot write", file, errno);
}

void WriteToStandardOutput(const Write& write) {
  write(std::cout);
  std::cout.flush();
  if (!std::cout) throw Refused("cannot write to standard output");
}

// A new name in the folder of `file`, so that renaming it does not have to copy.
fs::path NameBeside(const fs::path& file) {
  fs::path name = file;
  name += ".part" + std::to_string(std::random_device{}());
  return name;
}

void Replace(const fs::path& file, const Write& write) {
  const std::unique_ptr<FileStore> store = SystemFileStore();
  const fs::path part = NameBeside(file);
  try {
    WriteTo(part, write);
    store->KeepRights(file, part);
    errno = 0;
    if (!store->Flush(part) || !store->Move(part, file)) Fail("cannot write", file, errno);
  } catch (...) {
    store->Delete(part);
    throw;
  }
}

}  // namespace

bool IsStandardStream(const fs::path& file) { return file == "-"; }

fs::path PathOfUtf8(std::string_view text) { return {std::u8string(text.begin(), text.end())}; }

std::string Utf8OfPath(const fs::path& file) {
  const std::u8string text = file.u8string();
  return {text.begin(), text.end()};
}

std::string ReadInput(const fs::path& file) {
  if (!IsStandardStream(file)) {
    try {
      return ReadBytes(file);
    } catch (const RunTimeFault& fault) {
      throw Refused(Utf8OfPath(file) + ": " + fault.what());
    }
  }
  std::string bytes{std::istreambuf_iterator<char>(std::cin), {}};
  if (std::cin.bad()) throw Refused("cannot read standard input");
  return bytes;
}

void WriteOutput(const fs::path& file, const Write& write) {
  if (IsStandardStream(file)) return WriteToStandardOutput(write);
  std::error_code error;
  // What a link stands for is replaced, not the link.
  const fs::path target = fs::is_symlink(file, error) ? fs::weakly_canonical(file, error) : file;
  const fs::file_status status = fs::status(target, error);
  // A device or a pipe takes the bytes itself.
  const bool replaceable = !fs::exists(status) || fs::is_regular_file(status);
  return replaceable ? Replace(target, write) : WriteTo(target, write);
}

void WriteOutput(const fs::path& file, std::string_view bytes) {
  WriteOutput(file, [bytes](std::ostream& stream) {
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  });
}

}  // namespace trillomat
