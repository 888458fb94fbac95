#include "files/last_error.h"

#include <cerrno>
#include <system_error>

namespace trillomat {

std::string LastErrorText() { return errno == 0 ? "" : std::generic_category().message(errno); }

std::string WithLastError(std::string what) {
  const std::string words = LastErrorText();
  if (!words.empty()) what += " (" + words + ")";
  return what;
}

}  // namespace trillomat
