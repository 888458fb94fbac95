// What the readers and importers share: a read in progress, how it fails, and where in the bytes that was.
//
// Inside they throw, at their edge RunReader turns that into the program's convention: a log line where the
// rules want one, and a refusal in place of the elements.
#pragma once

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "core/codec.h"
#include "formats/formats.h"

namespace trillomat {

/// A read in progress. What is read goes into a ReadResult.
struct Reading {
  Reading(std::string_view bytes, const Services& services, ReadResult& result)
      : bytes(bytes),
        record(result.record),
        elements(result.elements),
        notUnderstood(result.notUnderstood),
        services(services) {}

  std::string_view bytes;
  ReadRecord& record;
  ElementList& elements;
  NotUnderstood& notUnderstood;
  Services services;
  std::string_view firstNotUnderstood = {};  ///< the part of the bytes that was not understood first

  /// Counts an element that was read. `where()` gives the part of the bytes that it was read from; that is
  /// looked for only for the first one that is not understood, because it takes time.
  template <typename Where>
  void Count(bool understood, const Where& where) {
    ++notUnderstood.of;
    if (understood) return;
    if (notUnderstood.count++ == 0) firstNotUnderstood = where();
  }
  /// Takes in one element, then lets events run, as LetEventsRun does.
  void Append(const Element& element) {
    elements.push_back(element);
    LetEventsRun();
  }
  /// Throws when the program is ending.
  void LetEventsRun() const {
    if (!services.pump.PumpEvents()) FailAtEnd();
  }
  [[noreturn]] static void FailAtEnd();
};

/// Ends a read.
class ReadFault : public std::runtime_error {
 public:
  enum class Kind {
    Quiet,   ///< the read just ends
    Logged,  ///< "Error in " and the routine's name go to the log
  };

  /// `where` is the part of the bytes that is to blame, if any; an empty one stands for what is missing
  /// there. `advice` as in Refusal.
  ReadFault(Kind kind, const std::string& why, std::optional<std::string_view> where = {},
            std::string_view advice = {})
      : std::runtime_error(why), kind(kind), where(where), advice(advice) {}

  Kind kind;
  std::optional<std::string_view> where;
  std::string advice;
};

/// Runs `body`, a reader, over `bytes` in one log operation; `routine` is its name in the log, `before` is
/// the record that it starts from. A ReadFault, or any other standard exception (which counts as Logged),
/// becomes the refusal, with its line and column.
ReadResult RunReader(std::string_view routine, std::string_view bytes, const ReadRecord& before,
                     const Services& services, const std::function<void(Reading&)>& body);

/// Throws quietly when the file holds fewer than `fewest` characters, line ends not counted.
void RequireCharacters(const Reading& reading, size_t fewest);

/// Where `part` of `text` came from: a part of `original`, of which `text` is a copy without some or all of
/// its whitespace. An empty part came from right behind the character before it. Takes time in proportion to
/// the text, so that places cost nothing as long as a read does not fail.
std::string_view OriginOf(std::string_view part, std::string_view text, std::string_view original);

/// `text` in double quotes for use in a message, cut when it is long, control characters as "?".
std::string Quoted(std::string_view text);

/// The first line of `rest`, which is not empty, without its end; `rest` is what follows. CR, CR LF or a lone
/// LF ends a line; a last line without an end counts.
std::string_view TakeLine(std::string_view& rest);

/// The lines of `bytes`, as TakeLine takes them.
std::vector<std::string_view> SplitLines(std::string_view bytes);

/// All lines joined without a separator.
std::string JoinLines(std::string_view bytes);

}  // namespace trillomat
