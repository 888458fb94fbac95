#include "files/samples.h"

#include <system_error>
#include <vector>

#include "core/format_mode.h"
#include "files/last_error.h"

namespace trillomat {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> MelodiesIn(const fs::path& folder, FileStore& store) {
  std::vector<std::string> names = store.List(folder, "*").files.names;
  std::erase_if(names, [](const std::string& name) {
    const size_t dot = name.rfind('.');
    return dot == std::string::npos || !ModeOfExtension(std::string_view(name).substr(dot + 1));
  });
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
