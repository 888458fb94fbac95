#include "platform/file_names.h"

#include <algorithm>
#include <utility>

#include "core/ascii.h"

namespace trillomat {

std::string_view EndingOf(std::string_view pattern) {
  return pattern.substr(pattern.starts_with('*') ? 1 : 0);
}

bool EndsNoCase(std::string_view name, std::string_view ending) {
  return name.size() >= ending.size() && EqualNoCase(name.substr(name.size() - ending.size()), ending);
}

void SortNoCase(std::vector<std::string>& names) {
  std::vector<std::pair<std::string, std::string>> keyed;
  keyed.reserve(names.size());
  for (std::string& name : names) {
    std::string key = Lowered(name);
    keyed.emplace_back(std::move(key), std::move(name));
  }
  std::sort(keyed.begin(), keyed.end());
  for (size_t i = 0; i < names.size(); ++i) names[i] = std::move(keyed[i].second);
}

}  // namespace trillomat
