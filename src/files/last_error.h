// The system's words for why a call failed, which the file store leaves in errno.
#pragma once

#include <string>

namespace trillomat {

/// "No space left on device"; empty where errno is 0.
std::string LastErrorText();

/// `what` with these words in parentheses behind it, if there are any.
std::string WithLastError(std::string what);

}  // namespace trillomat
