#include "files/kept_files.h"

#include <cerrno>
#include <utility>

#include "core/limits.h"
#include "files/last_error.h"
#include "files/replace_file.h"

namespace trillomat {
namespace {

namespace fs = std::filesystem;
using How = FileKeeper::How;

}  // namespace

KeptCopy KeptFiles::KeepCopy(const fs::path& file, std::string_view bytes) {
  const auto place = store_.Resolved(file);
  if (!place || store_.Kind(*place) != FileKind::Plain) return {};
  const FileBytes old = store_.Read(*place, kLargestInput);
  if (old.fault == FileBytes::Fault::None && old.bytes == bytes) return {};
  errno = 0;
  const auto copy = keeper_.Keep(*place, How::Copy);
  if (copy) return {fs::absolute(*place), *copy, {}};
  return {*place, {}, WithLastError("the old file could not be kept")};
}

void KeptFiles::Replaced(const KeptCopy& copy) {
  if (!copy.place.empty()) last_ = copy.copy.empty() ? std::nullopt : std::optional(copy);
}

void KeptFiles::NotReplaced(const KeptCopy& copy) {
  if (!copy.copy.empty()) keeper_.Discard(copy.copy);
}

bool KeptFiles::IsWorthKeeping(const fs::path& file) const {
  return store_.Resolved(file) == file && store_.Kind(file) == FileKind::Plain;
}

KeptFiles::Removal KeptFiles::TakeAway(const fs::path& file) {
  const fs::path place = fs::absolute(file);
  auto kept = keeper_.Keep(file, How::Move);
  if (!kept) {
    errno = 0;
    kept = keeper_.Keep(file, How::Copy);
    if (!kept) return {false, WithLastError("it could not be kept")};
    store_.Delete(file);
    if (store_.Exists(file)) {
      keeper_.Discard(*kept);
      return {};
    }
  }
  last_ = KeptCopy{place, *kept, {}};
  return {true, {}};
}

KeptFiles::Restored KeptFiles::Restore() {
  if (!last_) return {{}, "no file was replaced or removed"};
  const fs::path place = last_->place;
  const bool free = !store_.Exists(place);
  if (!free && !IsWorthKeeping(place)) return {place, "something else stands in its place"};
  if (store_.IsReadOnly(place)) return {place, std::string(kMarkedReadOnly)};
  const FileBytes old = store_.Read(last_->copy, kLargestInput);
  if (old.fault != FileBytes::Fault::None) return {place, "the kept file cannot be read any more"};
  KeptCopy present = KeepCopy(place, old.bytes);
  if (!present.fault.empty()) return {place, std::move(present.fault)};
  errno = 0;
  if (!store_.CopyInPlace(last_->copy, place, !free)) {
    NotReplaced(present);
    return {place, WithLastError("it cannot be put back in its place")};
  }
  keeper_.Discard(last_->copy);
  last_ = present.copy.empty() ? std::nullopt : std::optional(std::move(present));
  return {place, {}};
}

}  // namespace trillomat
