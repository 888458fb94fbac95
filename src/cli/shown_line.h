// Lines that have to fit into those of a terminal: cut to its width, and marked with a caret. All text is
// UTF-8; a tab is shown as a blank, and what a terminal would obey as "?", so that every character's width is
// known.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace trillomat {

/// `text` up to the last character that fits into `columns`, with "..." at its end where it was cut.
std::string FittedTo(std::string_view text, size_t columns);

/// The columns that FittedTo text takes.
size_t ColumnsOf(std::string_view text);

/// A part of a line, in characters.
struct Mark {
  size_t begin = 0;  ///< the end of the line at most
  size_t size = 0;   ///< of what is missing 0
};

/// Two lines, each with its end: `line`, cut around the mark to `columns`, and a caret with a tail under the
/// mark, with `note` behind.
std::string MarkedLine(std::string_view line, Mark mark, size_t columns, std::string_view note = {});

}  // namespace trillomat
