// What `check` finds in one file, as a line of text and as JSON.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "core/format_mode.h"
#include "core/refusal.h"
#include "exchange/export.h"
#include "formats/formats.h"

namespace trillomat {

/// What came of reading a text.
struct Finding {
  std::optional<Refusal> refusal = {};  ///< why it did not read
  size_t elements = 0;
  NotUnderstood notUnderstood = {};
  std::vector<FormatMode> formats = {};  ///< that hold the melody without loss
  std::vector<Phone> phones = {};        ///< exports that say all of it
};

struct CheckedFile {
  std::string name = {};                ///< UTF-8
  std::optional<FormatMode> mode = {};  ///< that it was read in; nothing where it could not be
  Finding asItIs = {};
  size_t changes = 0;          ///< of tidying
  Finding tidied = {};         ///< the same as `asItIs` without changes
  std::string complaint = {};  ///< of the text as it is, marked in it: lines with their ends, or none
};

/// Reads the text, as it is and tidied. Nothing goes to the log; events run.
CheckedFile CheckText(std::string name, std::string_view text, FormatMode mode,
                      const CommandServices& services);
/// A file without a text. Both are UTF-8.
CheckedFile Unreadable(std::string name, const std::string& why);

/// One line without its end.
std::string CheckedLine(const CheckedFile& file);
std::string CheckedJson(const CheckedFile& file);

}  // namespace trillomat
