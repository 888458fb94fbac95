// --tidy: a text is tidied before its reader gets it, and what was changed is listed on standard error.
#pragma once

#include <string>
#include <string_view>

#include "core/format_mode.h"

namespace trillomat {

/// `mode`, or the format that the text of the file `name` (UTF-8) looks like where nothing of it is
/// understood as `mode`, tidied or not; that is said.
FormatMode LookOf(std::string_view text, FormatMode mode, const std::string& name);

/// The text tidied as `mode`.
std::string TidyAloud(std::string_view text, FormatMode mode, const std::string& name);

}  // namespace trillomat
