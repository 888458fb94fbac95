#include "files/replace_file.h"

#include <cerrno>
#include <memory>
#include <system_error>

#include "files/last_error.h"
#include "files/output_buffer.h"

namespace trillomat {
namespace {

namespace fs = std::filesystem;
using Outcome = Replacement::Outcome;

Replacement Failed(Outcome outcome) { return {outcome, LastErrorText()}; }

bool WriteTo(OutputFile& file, const WriteContent& write) {
  OutputBuffer buffer(file);
  std::ostream stream(&buffer);
  errno = 0;
  write(stream);
  return static_cast<bool>(stream.flush());
}

Replacement WriteInto(const fs::path& file, FileStore& store, const WriteContent& write, bool wait) {
  errno = 0;
  const auto stream = store.OpenStream(file, wait);
  if (!stream || !WriteTo(*stream, write)) return Failed(Outcome::NotWritten);
  return {};
}

Replacement Replace(const fs::path& target, FileStore& store, const WriteContent& write, bool userAlone) {
  errno = 0;
  const auto made = store.Make(target, userAlone);
  if (!made) return Failed(Outcome::NotMade);
  if (!WriteTo(*made, write)) return Failed(Outcome::NotWritten);
  errno = 0;
  if (!made->Flush()) return Failed(Outcome::NotFlushed);
  if (!made->TakePlace()) return Failed(Outcome::NotMoved);
  errno = 0;
  if (!store.FlushFolder(target.parent_path())) return Failed(Outcome::ReplacedUnflushed);
  return {};
}

Replacement ReplaceAs(const fs::path& file, FileStore& store, const WriteContent& write, Streams streams,
                      bool userAlone) {
  errno = 0;
  const auto target = store.Resolved(file);
  if (!target) return Failed(Outcome::NotMade);
  const FileKind kind = store.Kind(*target);
  if (kind == FileKind::Stream && streams == Streams::Refuse) return {Outcome::NotMade, "not a plain file"};
  if (kind == FileKind::Stream) return WriteInto(*target, store, write, streams == Streams::Wait);
  if (store.IsReadOnly(*target)) return {Outcome::NotMade, std::string(kMarkedReadOnly)};
  return Replace(*target, store, write, userAlone);
}

}  // namespace

WriteContent WriteBytes(std::string_view bytes) {
  return [bytes](std::ostream& stream) {
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  };
}

Replacement ReplaceFile(const fs::path& file, FileStore& store, const WriteContent& write, Streams streams) {
  return ReplaceAs(file, store, write, streams, false);
}

Replacement ReplacePrivateFile(const fs::path& file, FileStore& store, std::string_view bytes) {
  return ReplaceAs(file, store, WriteBytes(bytes), Streams::Refuse, true);
}

void MakePrivateFolder(const fs::path& folder) {
  std::error_code failed;
  if (fs::create_directories(folder, failed)) fs::permissions(folder, fs::perms::owner_all, failed);
}

}  // namespace trillomat
