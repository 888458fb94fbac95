#include "cli/progress.h"

#include <algorithm>

#include "files/path_text.h"

namespace trillomat {
namespace {

std::string OfText(size_t number, size_t of) { return std::to_string(number) + " of " + std::to_string(of); }

}  // namespace

void Progress::BeginFile(const std::filesystem::path& file, size_t number, size_t of) {
  file_ = Utf8OfPath(file);
  if (of > 1) file_.insert(0, OfText(number, of) + ": ");
  line_.Show([this] { return file_; });
}

void Progress::Begin(std::string_view part, const std::filesystem::path& file, size_t steps, size_t skipped) {
  part_ = file_.empty() ? std::string(part) + ' ' + Utf8OfPath(file) : std::string(part);
  steps_ = steps;
  skipped_ = skipped;
  done_ = 0;
  // Of quick work on many files their names are enough.
  if (file_.empty()) Show();
}

void Progress::Tell(std::string_view part, std::string_view object) {
  line_.Show([&] { return file_ + ": " + std::string(part) + std::string(object); });
}

void Progress::SayElement(size_t number, size_t of) {
  line_.Show([&] { return part_ + ": element " + OfText(number, of); });
}

void Progress::Show() {
  line_.Show([this] { return Text(); });
}

std::string Progress::Text() const {
  const std::string text = part_ + Amount();
  return file_.empty() ? text : file_ + ": " + text;
}

std::string Progress::Amount() const {
  if (done_ == 0) return {};
  if (steps_ == 0) return ", " + std::to_string(done_) + " elements";
  const size_t done = done_ - std::min(done_, skipped_);
  return ", " + std::to_string(std::min<size_t>(100, 100 * done / std::max<size_t>(1, steps_))) + " %";
}

}  // namespace trillomat
