#include "files/opener.h"

#include <utility>

#include "core/progress_pump.h"
#include "files/path_text.h"
#include "files/read_file.h"
#include "files/recent_files.h"
#include "files/recovery.h"
#include "files/refusal_text.h"

namespace trillomat {
namespace {

namespace fs = std::filesystem;

// Why it is no plain file; empty when it is one. A pipe or a device could be read without end.
std::string WhyNoPlainFile(const fs::path& file, const FileStore& store) {
  const std::string name = Utf8OfPath(file.filename());
  switch (store.Kind(file)) {
    case FileKind::Plain: return {};
    case FileKind::None: return "there is no file " + name;
    default: return name + " is no plain file";
  }
}

}  // namespace

std::optional<FileMessage> Opener::Open(const fs::path& file, FormatMode mode) {
  if (const std::string why = WhyNoPlainFile(file, parts_.store); !why.empty()) {
    return Refuse({"Not opened: " + why});
  }
  const auto bytes = ReadFile(file, parts_.store);
  const std::string name = Utf8OfPath(file.filename());
  if (!bytes) {
    LogReaderFault(mode, parts_.services.log);
    return Refuse({"Not opened: " + RefusalText(name, bytes.Why())});
  }
  ProgressPump pump(parts_.services.pump, [&](size_t elements) {
    parts_.host.ShowProgress("Reading " + name + ": " + std::to_string(elements) + " elements");
  });
  ReadResult read = Read(*bytes, mode, parts_.record, parts_.services.With(pump));
  parts_.host.ShowProgress({});
  const std::string said =
      read ? NotUnderstoodText(read.notUnderstood) : "Not opened: " + RefusalText(name, *read.refusal);
  FileMessage done = parts_.host.WithBetterReading(said, *bytes, mode, read);
  parts_.record = read.record;
  if (!read) return Refuse(done);
  Replace(std::move(read), mode, fs::absolute(file), "opening");
  parts_.recent.Add(file);
  return done;
}

std::nullopt_t Opener::Refuse(const FileMessage& said) {
  parts_.services.log.WriteLog("Error when decoding file", 1);
  parts_.host.Say(said);
  return std::nullopt;
}

void Opener::TakeImported(ReadResult&& read) {
  Replace(std::move(read), parts_.document.Mode(), {}, "importing");
}

void Opener::TakeBetter(BetterReading&& better) {
  Replace(std::move(better.read), better.mode, {}, better.step);
}

bool Opener::TakeRecovered(const fs::path& kept) {
  auto recovered = parts_.recovery.Recovered(kept);
  if (!recovered) {
    parts_.services.log.WriteLog("There is no melody to recover", 2);
    return false;
  }
  ReadResult read{.elements = std::move(recovered->song.elements), .record = parts_.record, .refusal = {}};
  read.record.info = std::move(recovered->song.info);
  Replace(std::move(read), recovered->mode, {}, "recovering");
  return true;
}

void Opener::TakeNew() {
  ReadResult nothing{.elements = {}, .record = parts_.record, .refusal = {}};
  nothing.record.info = SongInfo();
  Replace(std::move(nothing), parts_.document.Mode(), {}, "starting a new melody");
}

void Opener::Replace(ReadResult&& read, FormatMode mode, const fs::path& file, std::string_view step) {
  parts_.recovery.KeepBeforeReplacing();
  parts_.host.TakeIn(std::move(read), mode, file, step);
}

}  // namespace trillomat
