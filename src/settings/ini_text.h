// The text of an ini file: sections in brackets, "key=value" lines, and whatever else stands there, which
// stays as it is. A value is written as desktop programs do: with a backslash before a backslash or a quote,
// control characters as "\x1b", and quotes around a value that would be misread without them. Bytes need not
// be UTF-8.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "settings/settings_store.h"

namespace trillomat {

class IniText {
 public:
  explicit IniText(std::string text = {}) : text_(std::move(text)) {}

  /// The value of a key; nothing when there is no such line, the last one's when there are several.
  std::optional<std::string> Get(std::string_view section, std::string_view key) const;
  /// Writes the value in the place of the old one, or in a new line. Section and key are letters and digits.
  void Set(std::string_view section, std::string_view key, std::string_view value);
  void DeleteSection(std::string_view section);
  /// Makes the changes, in the order that SettingsChanges tells.
  void Apply(const SettingsChanges& changes);
  const std::string& Text() const { return text_; }

 private:
  struct Line {
    size_t begin = 0;
    size_t length = 0;  ///< with its line end
  };

  /// The line behind `line`, the first one for {}; of length 0 behind the last one.
  Line Next(Line line) const;
  std::string_view In(Line line) const { return std::string_view(text_).substr(line.begin, line.length); }
  std::optional<Line> LineOf(std::string_view section, std::string_view key) const;
  std::optional<size_t> EndOf(std::string_view section) const;

  std::string text_;
};

}  // namespace trillomat
