#include "files/samples.h"

#include <system_error>
#include <vector>

#include "core/format_mode.h"
#include "files/last_error.h"

namespace trillomat {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> MelodiesIn(const fs::path& folder, FileStore& store) {
  std::vector<std::string> names;
  for (const ModeLimits& limits : kModeLimits) {
    for (std::string& name : store.List(folder, "*." + std::string(limits.extension)).files.names) {
      names.push_back(std::move(name));
    }
  }
  return names;
}

}  // namespace

bool HoldsMelodies(const fs::path& folder, FileStore& store) { return !MelodiesIn(folder, store).empty(); }

CopiedSamples CopySamples(const fs::path& from, const fs::path& to, FileStore& store) {
  CopiedSamples done;
  std::error_code fault;
  fs::create_directories(to, fault);
  if (fault) {
    done.fault = fault.message();
    return done;
  }
  for (const std::string& name : MelodiesIn(from, store)) {
    if (store.Exists(to / name)) {
      ++done.kept;
    } else if (store.Copy(from / name, to / name)) {
      ++done.copied;
    } else {
      done.fault = WithLastError(name + " cannot be copied");
      break;
    }
  }
  return done;
}

}  // namespace trillomat
