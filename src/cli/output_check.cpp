#include "cli/output_check.h"

#include "cli/byte_files.h"
#include "cli/failure.h"
#include "files/path_text.h"

namespace trillomat {
namespace {

namespace fs = std::filesystem;

bool IsInput(const Invocation& call) {
  // Standard input can be redirected from the very file.
  const fs::path in = IsStandardStream(call.in) ? "/dev/stdin" : call.in;
  std::error_code notThere;
  return fs::equivalent(in, call.out, notThere);
}

}  // namespace

void CheckOutput(const Invocation& call, bool sameFormat, const FileStore& store) {
  if (IsStandardStream(call.out)) return;
  const FileKind kind = store.Kind(call.out);
  if (kind == FileKind::Stream) return;
  if (kind == FileKind::Folder) throw Refused("cannot write " + Utf8OfPath(call.out) + ": it is a folder");
  if (!sameFormat && IsInput(call)) {
    throw Refused(Utf8OfPath(call.out) +
                  " is the file that is read; to write another format, give another name");
  }
  if (!call.force && store.Exists(call.out)) {
    throw Refused(Utf8OfPath(call.out) + " exists already; --force replaces it");
  }
}

}  // namespace trillomat
