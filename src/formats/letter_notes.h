// The note text that the EMelody and Melody formats share, in files and in pasted text: tokens without a
// separator, each ended by its tone letter.
//
//   ++#c.(b)dRe   is   "++#c."  "(b)d"  "R"  "e"
//
// In an EMelody text they stand between two markers.
#pragma once

#include <optional>
#include <string_view>

#include "core/element_texts.h"
#include "formats/reading.h"

namespace trillomat {

/// The song information of a format that carries none: "Unknown" at 200 beats per minute, all other texts
/// empty. The loop is left as it is.
void SetUnknownSong(SongInfo& info);

/// The markers around the notes of an EMelody text.
inline constexpr std::string_view kNotesStart = "MELODY:";
inline constexpr std::string_view kNotesEnd = "END:EMELODY";

/// The parts of an EMelody text. What stands before the first marker and behind the second does not count.
struct MarkedNotes {
  std::optional<std::string_view> start;  ///< the first kNotesStart; nothing when there is none
  std::optional<std::string_view> notes;  ///< what follows, up to kNotesEnd; nothing when that is missing
};
MarkedNotes FindMarkedNotes(std::string_view text);

/// For a refusal of a text whose markers are missing.
inline constexpr std::string_view kMarkersAdvice = "Notes stand between \"MELODY:\" and \"END:EMELODY\"";

/// Reads `notes` as elements of `mode`: whitespace does not count, p, P and "-" are pauses, h and H are b.
/// `notes` is a part of `text`, which is the bytes without some of their whitespace. A remainder that no
/// letter ends is logged ("Critical error when converting!!!!", level 1) and ends the read with a quiet
/// fault; a text without any token ends it with a logged one.
void TakeLetterNotes(std::string_view notes, std::string_view text, FormatMode mode, Reading& reading);

/// About how many characters of a file a token takes.
inline constexpr size_t kTypicalLetterToken = 3;

/// What the writer of `mode` writes for each element: its SupportedText.
ElementTexts TokensOf(const ElementList& elements, FormatMode mode, Log& log);

}  // namespace trillomat
