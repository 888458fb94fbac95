// Reading a text in another way than as the format it was taken for: tidied, or as the format that it looks
// like. Only the user chooses that; here is what can be offered.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/tidy.h"
#include "formats/formats.h"

namespace trillomat {

/// Where a text came from. All but files are read by the import converters, where their format has one.
enum class TextSource { File, Import, Clipboard };

/// A way to read a text.
struct ReadingWay {
  FormatMode mode;
  bool tidied = false;
  TextSource source = TextSource::File;
};

/// What a text came to that was read in some way.
struct WayResult {
  ReadResult read;
  std::vector<TidyChange> changes;  ///< made by tidying before it was read
};

/// Reads `part`, one of the parts of `text` that TextsFor gives. `before` as for Read.
WayResult ReadInWay(const ReadingWay& way, std::string_view part, std::string_view text,
                    const ReadRecord& before, const Services& services);

/// The parts of `text` that can be read in that way, one after the other: the tunes of an RTTTL text that is
/// to be tidied, else the whole text.
std::vector<std::string_view> TextsFor(const ReadingWay& way, std::string_view text);

/// A better way to read a text, and what it would come to.
struct BetterWay {
  ReadingWay way;
  size_t notUnderstood = 0;  ///< elements
  size_t tunes = 1;
};

/// Whether a text that came to `first` when it was read in `way` is better read otherwise: where it was
/// refused, held nothing, or left more elements not understood. Where the text looks like another format,
/// that comes first. `before` is what the readings start from; nothing is logged. Texts above a MiB are
/// left alone, because tidying lets no events run.
std::optional<BetterWay> FindBetterWay(std::string_view text, const ReadingWay& way, const ReadResult& first,
                                       const ReadRecord& before, EventPump& pump);

/// What an RTTTL tune is called in a list of several.
struct TuneTitle {
  std::string name;
  size_t notes = 0;
};
TuneTitle TitleOf(std::string_view tune);

}  // namespace trillomat
