// What the file stores of all systems do with the names in a folder.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace trillomat {

/// What a name has to end in to match `pattern`, "*" and what follows.
std::string_view EndingOf(std::string_view pattern);

/// Whether `name` ends in `ending`, whatever their case.
bool EndsNoCase(std::string_view name, std::string_view ending);

/// Sorts without regard to case, and by bytes where that makes no difference.
void SortNoCase(std::vector<std::string>& names);

}  // namespace trillomat
