#include "cli/many_files.h"

#include <map>

#include "cli/byte_files.h"
#include "cli/failure.h"
#include "core/ascii.h"
#include "files/path_text.h"

namespace trillomat {
namespace {

namespace fs = std::filesystem;

// What this call has written so far. Two names can be one file where case does not count.
class Written {
 public:
  void Claim(const fs::path& in, const fs::path& out) {
    const auto [first, last] = inputs_.equal_range(Lowered(Utf8OfPath(out)));
    for (auto each = first; each != last; ++each) {
      std::error_code notThere;
      if (!fs::equivalent(each->second.out, out, notThere)) continue;
      throw Refused(Utf8OfPath(out) + " has been written from " + Utf8OfPath(each->second.in));
    }
    inputs_.insert({Lowered(Utf8OfPath(out)), {in, out}});
  }

 private:
  struct Pair {
    fs::path in;
    fs::path out;
  };
  std::multimap<std::string, Pair> inputs_;  ///< by output, in lower case
};

void MakeFolder(const fs::path& folder) {
  std::error_code error;
  fs::create_directory(folder, error);
  if (!fs::is_directory(folder)) throw Refused("cannot make the folder " + Utf8OfPath(folder));
}

fs::path OutputOf(const fs::path& in, const fs::path& folder, std::string_view extension) {
  if (IsStandardStream(in)) throw WrongUsage("\"-\" has no name for a file in a folder");
  fs::path name = in.filename();
  name.replace_extension("." + std::string(extension));
  return folder / name;
}

}  // namespace

void ForEachInput(const Invocation& call, std::string_view extension, const CommandServices& services,
                  const std::function<void(const Invocation&)>& command) {
  MakeFolder(call.toFolder);
  Written written;
  size_t failed = 0;
  size_t number = 0;
  for (const fs::path& in : call.inputs) {
    services.BeginFile(in, ++number, call.inputs.size());
    try {
      Invocation one = call;
      one.in = in;
      one.out = OutputOf(in, call.toFolder, extension);
      written.Claim(in, one.out);
      command(one);
    } catch (const std::exception& error) {
      ++failed;
      Complain(error);
    }
  }
  if (failed == 0) return;
  throw Refused(std::to_string(failed) + " of " + std::to_string(call.inputs.size()) + " files failed");
}

}  // namespace trillomat
