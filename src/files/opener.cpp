#include "files/opener.h"

#include <utility>

#include "core/code_page.h"
#include "files/path_text.h"
#include "files/read_file.h"
#include "files/recovery.h"

namespace trillomat {
namespace {

namespace fs = std::filesystem;

// What is no plain file (a pipe, a device) could be read without end. Empty for what is one.
std::string WhyNoFile(const fs::path& file, const FileStore& store) {
  const std::string name = Utf8OfPath(file.filename());
  switch (store.Kind(file)) {
    case FileKind::Plain: return {};
    case FileKind::None: return "there is no file " + name;
    default: return name + " is no plain file";
  }
}

}  // namespace

bool Opener::Open(const fs::path& file, FormatMode mode) {
  if (const std::string why = WhyNoFile(file, parts_.store); !why.empty()) return Refuse(why);
  const auto bytes = ReadFile(file, parts_.store);
  if (!bytes) {
    LogReaderFault(mode, parts_.services.log);
    return Refuse(ToUtf8(bytes.Why().why));
  }
  ReadResult read = Read(*bytes, mode, parts_.record, parts_.services);
  parts_.record = read.record;
  if (!read) return Refuse(ToUtf8(read.refusal->why));
  Replace(std::move(read), mode);
  parts_.document.SetFile(fs::absolute(file));
  parts_.recovery.SongReplaced();
  return true;
}

bool Opener::Refuse(std::string_view why) {
  parts_.services.log.WriteLog("Error when decoding file", 1);
  parts_.host.Notice("Not opened: " + std::string(why));
  return false;
}

// A song that comes from no file belongs to none from before it is shown, and counts as changed: nothing
// holds it.
void Opener::TakeImported(ReadResult&& read) {
  parts_.document.SetFile({});
  Replace(std::move(read), parts_.document.Mode());
  parts_.recovery.SongReplaced();
}

bool Opener::TakeRecovered() {
  auto last = parts_.recovery.LastSong();
  if (!last) {
    parts_.services.log.WriteLog("There is no melody to recover", 2);
    return false;
  }
  ReadResult read{.elements = std::move(last->song.elements), .record = parts_.record, .refusal = {}};
  read.record.info = std::move(last->song.info);
  parts_.document.SetFile({});
  Replace(std::move(read), last->mode);
  return true;
}

void Opener::Replace(ReadResult&& read, FormatMode mode) {
  parts_.recovery.KeepBeforeReplacing();
  if (parts_.document.Mode() != mode) parts_.host.EnterMode(mode);
  parts_.host.TakeIn(std::move(read));
  parts_.host.Notice("");
}

}  // namespace trillomat
