// Converts pasted melody texts into songs, and the choice that the import window offers. The formats are
// those of the files, but a paste need not be a whole file.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "formats/formats.h"

namespace trillomat {

enum class PastedFormat { Rtttl, EMelody, Melody };

/// What an import came to.
struct Imported {
  ReadResult read;
  std::string notAdapted;  ///< why the melody could not be moved into the T68i's octaves; empty otherwise
};

/// Converts `text` (Windows-1252); blanks, line ends and tabs do not count. With `adapt` the result is moved
/// into the octaves of the T68i; one that cannot be moved is logged and stays as it is. A loop count of RTTTL
/// goes to the song information alone. E-Melody text may be a whole file or its notes alone. A failure is
/// logged as "Error in Convert_RTTTL" (or the like) and "Failed to make the import".
Imported Import(PastedFormat format, std::string_view text, bool adapt, const ReadRecord& before,
                const Services& services);

/// The format of that name on the command line ("rtttl"); nothing for an unknown name.
std::optional<PastedFormat> PastedFormatOf(std::string_view option);

/// The pasted texts of a mode, and the mode of pasted texts; nothing for the I-Melody mode.
std::optional<PastedFormat> PastedFormatOf(FormatMode mode);
FormatMode ModeOf(PastedFormat format);

/// One member of the option group "Source format".
struct ImportOption {
  std::string_view caption;
  std::optional<PastedFormat> format;  ///< nothing where the option does nothing
};

/// The options, in the order of their indices.
extern const std::array<ImportOption, 5> kImportOptions;

/// When "Import" can be pressed. Options without a rule of their own keep what the one before them left.
class ImportChoice {
 public:
  /// The state of the option group, as many values as there are options.
  using Options = std::span<const bool, 5>;

  /// The text or the selection has changed.
  void Update(Options options, std::string_view text);
  bool CanImport() const { return canImport_; }

  /// The option with the highest index that is on, the first when none is.
  static const ImportOption& Selected(Options options);

 private:
  bool canImport_ = false;
};

}  // namespace trillomat
