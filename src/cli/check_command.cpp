#include <algorithm>
#include <iostream>
#include <utility>

#include "cli/byte_files.h"
#include "cli/checked_file.h"
#include "cli/commands.h"
#include "cli/failure.h"
#include "cli/melody_source.h"
#include "files/path_text.h"

namespace trillomat {
namespace {

namespace fs = std::filesystem;

// The melody files of a folder and its folders, sorted. What cannot be looked into is passed over.
std::vector<fs::path> MelodiesIn(const fs::path& folder) {
  std::vector<fs::path> files;
  std::error_code error;
  fs::recursive_directory_iterator each(folder, fs::directory_options::skip_permission_denied, error);
  for (; !error && each != fs::end(each); each.increment(error)) {
    std::error_code gone;
    if (each->is_regular_file(gone) && ModeOfPath(each->path(), {})) files.push_back(each->path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

// With the files of the folders in their places.
std::vector<fs::path> FilesOf(const std::vector<fs::path>& inputs) {
  std::vector<fs::path> files;
  for (const fs::path& input : inputs) {
    std::error_code notThere;
    if (!fs::is_directory(input, notThere)) {
      files.push_back(input);
      continue;
    }
    for (fs::path& file : MelodiesIn(input)) files.push_back(std::move(file));
  }
  return files;
}

CheckedFile Check(const fs::path& file, const Invocation& call, const CommandServices& services) {
  const std::string name = Utf8OfPath(file);
  const auto mode = ModeOfPath(file, call.mode);
  if (!mode) return Unreadable(name, "its name tells no format; tell it with --mode");
  try {
    services.Begin("reading", file);
    const std::string text = ReadInput(file, services.store);
    return CheckText(name, text, *mode, services);
  } catch (const Refused& refused) {
    const std::string why = refused.what();
    return Unreadable(name, why.starts_with(name + ": ") ? why.substr(name.size() + 2) : why);
  }
}

// Prints each file as soon as it is checked.
class Report {
 public:
  explicit Report(bool json) : json_(json) {}

  void Print(const CheckedFile& file) {
    ++files_;
    if (file.asItIs.refusal) ++refused_;
    if (json_) {
      std::cout << (files_ == 1 ? "[\n  " : ",\n  ") << CheckedJson(file);
    } else {
      std::cout << CheckedLine(file) << '\n';
    }
    if (json_ || file.complaint.empty()) return;
    // Below the line that it belongs to, where both are seen.
    std::cout.flush();
    std::cerr << file.complaint;
  }

  void End() const {
    if (json_) std::cout << (files_ == 0 ? "[]\n" : "]\n");
    FlushStandardOutput();
    if (refused_ == 0) return;
    throw Refused(std::to_string(refused_) + " of " + std::to_string(files_) +
                  (files_ == 1 ? " file does not read" : " files do not read"));
  }

 private:
  bool json_;
  size_t files_ = 0;
  size_t refused_ = 0;
};

}  // namespace

void CheckCommand(const Invocation& call, const CommandServices& services) {
  const std::vector<fs::path> files = FilesOf(call.inputs);
  Report report(call.json);
  size_t number = 0;
  for (const fs::path& file : files) {
    services.BeginFile(file, ++number, files.size());
    report.Print(Check(file, call, services));
    if (!std::cout) break;
  }
  report.End();
}

}  // namespace trillomat
