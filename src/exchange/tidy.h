// Tidying: the common slips of melody texts put right before the reader gets them. Text in, text out, with a
// list of what was changed; what the reader of the format understands stays as it is.
//
//   "Tune:d=4,o=5:8c_,e#,,6p"    becomes    "Tune:d=4,o=5,b=63:8c#,f,8p"
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "core/format_mode.h"

namespace trillomat {

struct TidyChange {
  size_t line = 0;     ///< in the text as it was, from 1
  size_t column = 0;   ///< in bytes, from 1
  std::string before;  ///< what stood there, empty where something was missing
  std::string after;   ///< what stands there now, empty where something was left out
  std::string why;     ///< a short sentence without its full stop

  bool operator==(const TidyChange&) const = default;
};

struct Tidied {
  std::string text;  ///< Windows-1252, for the reader or importer of the format
  std::vector<TidyChange> changes;
};

/// Tidies a text of `mode`, which may be Windows-1252 or UTF-8. It never fails: what is beyond it stays for
/// the reader to refuse. Of several RTTTL tunes (TunesIn) it takes the first.
Tidied Tidy(std::string_view text, FormatMode mode);

/// The same of a part of `whole` that begins with a line; the changes name lines of the whole.
Tidied TidyPart(std::string_view part, std::string_view whole, FormatMode mode);

/// One line for a list of changes: line 3, column 5: "c_" is now "c#": "_" stands for a sharp.
std::string ChangeText(const TidyChange& change);

}  // namespace trillomat
