#include "ui/second_readings.h"

#include <QWidget>
#include <array>
#include <utility>

#include "core/code_page.h"
#include "core/number_text.h"
#include "files/refusal_text.h"
#include "ui/qt_text.h"
#include "ui/tune_window.h"

namespace trillomat {
namespace {

// How taking in a text from a source is called.
struct SourceWords {
  std::string_view command;     ///< on the button that does it
  std::string_view done;        ///< in the message afterwards
  std::string_view step;        ///< behind "Undo"
  std::string_view stepTidied;  ///< the same where it was tidied
};

const SourceWords& WordsOf(TextSource source) {
  static constexpr std::array<SourceWords, 3> kWords{{{"Open", "Opened", "opening", "opening tidied"},
                                                      {"Import", "Imported", "importing", "importing tidied"},
                                                      {"Paste", "Pasted", "pasting", "pasting tidied"}}};
  return kWords.at(static_cast<size_t>(source));
}

std::string AsFormat(FormatMode mode) { return " as " + std::string(LimitsOf(mode).caption); }

std::string HintText(const BetterWay& better, bool otherFormat, const ReadResult& read) {
  if (otherFormat) return "The text looks like " + std::string(LimitsOf(better.way.mode).caption);
  if (better.tunes > 1) return "The text holds " + Counted(better.tunes, "tune", "tunes");
  if (!read || read.elements.empty()) return "Tidied, it can be read";
  if (better.notUnderstood == 0) return "Tidied, all can be understood";
  return "Tidied, " + std::to_string(better.notUnderstood) +
         (better.notUnderstood == 1 ? " is left" : " are left");
}

}  // namespace

FileMessage SecondReadings::WithOffer(std::string said, std::string_view text, const ReadingWay& way,
                                      const ReadResult& read) {
  if (read && !read.elements.empty() && read.notUnderstood.count == 0) return {std::move(said)};
  const auto better = FindBetterWay(text, way, read, record_, services_.pump);
  if (!better) return {std::move(said)};
  const bool otherFormat = better->way.mode != way.mode;
  offered_ = {std::string(text), better->way, otherFormat};
  const std::string command(WordsOf(way.source).command);
  return {JoinedSentences(std::move(said), HintText(*better, otherFormat, read)),
          FileMessage::Offer::ReadBetter, command + (otherFormat ? AsFormat(better->way.mode) : " tidied")};
}

// The line and column in `said` are those of the tidied text: the changes tell the user where that is in the
// text as it was.
FileMessage SecondReadings::OfferAfterRefusal(std::string said, const ImportOrigin& origin,
                                              const ReadResult& read) {
  FileMessage message = WithOffer(std::move(said), origin.text, origin.way, read);
  const FileMessage::Offer changes = KeepChanges(origin.changes);
  if (message.offer == FileMessage::Offer::None) message.offer = changes;
  return message;
}

FileMessage SecondReadings::OfferAfterImport(const ImportOrigin& origin, const ReadResult& read) {
  if (origin.way.tidied) return DoneMessage(origin.way, false, read.notUnderstood, origin.changes);
  return WithOffer(NotUnderstoodText(read.notUnderstood), origin.text, origin.way, read);
}

std::optional<BetterReading> SecondReadings::Read() {
  if (!offered_) return std::nullopt;
  const OfferedReading offered = *offered_;
  const auto text = ChosenText(TextsFor(offered.way, offered.text), &parent_);
  if (!text) return std::nullopt;
  WayResult result = ReadInWay(offered.way, *text, offered.text, record_, services_);
  if (!result.read) return std::nullopt;
  FileMessage done = DoneMessage(offered.way, offered.otherFormat, result.read.notUnderstood, result.changes);
  const TextSource source = offered.way.source;
  const SourceWords& words = WordsOf(source);
  return BetterReading{.read = std::move(result.read),
                       .mode = offered.way.mode,
                       .step = offered.way.tidied ? words.stepTidied : words.step,
                       .done = std::move(done),
                       .plays = source == TextSource::File,
                       .pasted = source == TextSource::Clipboard};
}

FileMessage SecondReadings::DoneMessage(const ReadingWay& way, bool otherFormat, NotUnderstood lost,
                                        const std::vector<TidyChange>& changes) {
  std::string said;
  if (otherFormat || way.tidied) said = WordsOf(way.source).done;
  if (otherFormat) said += AsFormat(way.mode);
  if (way.tidied && changes.empty()) said += "; there was nothing to tidy";
  if (!changes.empty()) said += " tidied, with " + Counted(changes.size(), "change", "changes");
  // The line and column would be those of the tidied text, which the user does not have.
  if (!changes.empty()) lost.first.line = 0;
  return {JoinedSentences(said, NotUnderstoodText(lost)), KeepChanges(changes)};
}

FileMessage::Offer SecondReadings::KeepChanges(const std::vector<TidyChange>& changes) {
  changes_.clear();
  for (const TidyChange& change : changes) changes_ << ToQString(ChangeText(change));
  return changes.empty() ? FileMessage::Offer::None : FileMessage::Offer::ShowChanges;
}

void SecondReadings::ShowChanges() {
  delete window_;
  window_ = new ChangesWindow(changes_, parent_.window());
  window_->show();
}

}  // namespace trillomat
