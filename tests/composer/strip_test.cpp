#include <gtest/gtest.h>

#include <random>

#include "composer/problems.h"
#include "composer/strip_layout.h"
#include "composer/strip_words.h"
#include "core/ascii.h"
#include "support/sample_notes.h"

namespace trillomat {
namespace {

/// Keeps a table up to date with its document.
class Followed : public DocumentObserver {
 public:
  explicit Followed(Document& document) : layout(document), times(document), document_(document) {
    document_.AddObserver(*this);
  }
  ~Followed() override { document_.RemoveObserver(*this); }
  void DocumentChanged(const ChangedRange& range) override {
    layout.Follow(range);
    times.Follow(range);
  }

  StripLayout layout;
  StripTimes times;

 private:
  Document& document_;
};

TEST(StripTimesTest, EveryWrittenLengthIsAWholeNumberOfTicks) {
  for (const float duration : kDurations) {
    for (const float extra : kDurationExtras) {
      const double ticks = double{duration} * double{extra} * kTicksPerBeat;
      EXPECT_NEAR(TicksOf(Note("c", 4, duration, extra)), ticks, 1e-4);
    }
  }
  EXPECT_EQ(TicksOf(Note("c", 4, 0.3F)), 29);
  EXPECT_EQ(TicksOf(Note("c", 4, -1.0F)), 0);
  EXPECT_EQ(TicksOf(Note("c", 4, 1e30F)), 64 * kTicksPerBeat);
  Element entered = Command("ledon");
  entered.duration = entered.extra = 1.0F;
  EXPECT_EQ(TicksOf(entered), 0) << "commands take no time, whatever their record says";
}

// The same as the table tells, found by going over all elements.
void ExpectTrue(const StripTimes& times, const ElementList& elements, std::mt19937& random) {
  const StripScale scale{.tick = 0.5, .mark = 7};
  StripSpan before;
  RowSpan pitches;
  const size_t asked = random() % (elements.size() + 1);
  for (size_t i = 0; i < elements.size(); ++i) {
    const StripSpan start = before;
    before.Add(SpanOf(elements[i]));
    if (const int row = RowOf(elements[i]); row >= 0) pitches.Add({row, row});
    if (i != asked) continue;
    const auto index = static_cast<int32_t>(i);
    ASSERT_EQ(times.Before(index), start);
    for (const double x : {scale.WidthOf(start), (scale.WidthOf(start) + scale.WidthOf(before)) / 2}) {
      ASSERT_EQ(times.At(x, scale).index, index);
      ASSERT_EQ(times.At(x, scale).before, start);
    }
  }
  ASSERT_EQ(times.Total(), before);
  ASSERT_EQ(times.Before(static_cast<int32_t>(elements.size())), before);
  ASSERT_EQ(times.At(scale.WidthOf(before), scale).index, static_cast<int32_t>(elements.size()));
  ASSERT_EQ(times.At(-5, scale).index, 0);
  ASSERT_EQ(times.Pitches(), pitches);
}

TEST(StripTimesTest, FollowsAnyChange) {
  const ElementList kinds = ElementsOf("*3c1 *4#d2. r3; ledon *7b5 V+ *4x2 ( @2)");
  std::mt19937 random(1);
  Document document;
  const Followed followed(document);
  for (int round = 0; round < 1000; ++round) {
    const size_t size = document.Size();
    const size_t most = random() % 10 == 0 ? 1500 : 4;
    Change change{.at = random() % (size + 1), .removed = random() % most};
    if (random() % 4 == 0) change.octaves.assign(random() % most, static_cast<int16_t>(random() % 9));
    if (random() % 8 == 0) {
      // Up or down, with or without the pauses.
      const int up = static_cast<int>(random() % 7) - 3;
      const bool pauses = random() % 2 == 0;
      for (const Element& element :
           document.Elements({static_cast<int32_t>(change.at), document.LastIndex() + 1})) {
        change.octaves.push_back(
            static_cast<int16_t>(element.octave + (pauses || !IsPause(element) ? up : 0)));
      }
    }
    for (size_t i = random() % most; i > 0; --i) change.inserted.push_back(kinds[random() % kinds.size()]);
    document.Apply(std::move(change));
    if (random() % 200 == 0) document.Apply({.removed = document.Size()});
    ASSERT_NO_FATAL_FAILURE(ExpectTrue(followed.times, document.Elements(), random)) << round;
  }
}

/// One letter an item (lower case when the mode does not hold it) with its row, "|" for a bar line.
std::string Drawn(const StripLayout& layout, double from, double to) {
  const StripLayout::Shown shown = layout.Between(from, to);
  std::string text;
  size_t bar = 0;
  for (const StripItem& item : shown.items) {
    while (bar < shown.bars.size() && shown.bars[bar] <= item.left) ++bar, text += "| ";
    const std::string letter(1, "TUPM"[static_cast<size_t>(item.kind)]);
    text += (item.held ? letter : Lowered(letter)) + (item.row < 0 ? "" : std::to_string(item.row)) + " ";
    while (bar < shown.bars.size() && shown.bars[bar] < item.right) ++bar, text += "/ ";
  }
  return text;
}

// A beat is 96 wide.
TEST(StripLayoutTest, ShowsElementsAndBarLines) {
  const std::tuple<FormatMode, std::string, std::string> cases[] = {
      {FormatMode::IMelody, "*4c2 *4&d3 r1 *4#c4. *4b3", "T48 T49 P T49 T59 / "},
      {FormatMode::IMelody, "*4c0 *4d0", "T48 | T50 "},
      {FormatMode::IMelody, "*4c2 *4d0. *4e2", "T48 T50 / T52 "},
      {FormatMode::IMelody, "*4c2 *4d0: *4e2", "T48 T50 / | T52 "},
      {FormatMode::IMelody, "ledon *0c0 ( *8b0 @2) V+ *4x1", "M T0 | M T107 M | M U "},
      {FormatMode::IMelody, "*9c2", "t108 "},
      {FormatMode::Rtttl, "*4c2 ledon *2c2 r2; *4x2", "T48 m t24 p u "},
      {FormatMode::EMelody, "*4c1 r2 *4c4", "T48 p t48 "},
  };
  for (const auto& [mode, tokens, drawn] : cases) {
    const Document document({ElementsOf(tokens), {}}, mode);
    StripLayout layout(document);
    layout.scale = {.tick = 1, .mark = 10};
    EXPECT_EQ(Drawn(layout, 0, 1e6), drawn) << tokens;
  }
}

TEST(StripLayoutTest, ShowsNoMoreThanCanBeSeen) {
  const Document document({ElementsOf("*4c2 *4d2 *4e2 *4f2 *4g2"), {}}, FormatMode::IMelody);
  StripLayout layout(document);
  EXPECT_EQ(Drawn(layout, 96, 192), "T50 ");
  EXPECT_EQ(Drawn(layout, 100, 193), "T50 T52 ");
  EXPECT_EQ(Drawn(layout, 480, 500), "");
  EXPECT_EQ(layout.Width(), 480);
  EXPECT_EQ(layout.IndexAt(479), 4);
  EXPECT_EQ(layout.IndexAt(480), -1);
}

TEST(StripLayoutTest, KnowsWhatIsAtAPlace) {
  const Document document({ElementsOf("*4c2 ( r2 *4x2 *4c5"), {}}, FormatMode::IMelody);
  StripLayout layout(document);
  layout.scale = {.tick = 1, .mark = 10};
  using P = StripPart;
  const std::tuple<double, double, P, int32_t> cases[] = {
      {-3, 48.5, P::Body, 0},  {40, 48.5, P::Body, 0},  {40, 47.6, P::Body, 0}, {40, 49.4, P::Body, 0},
      {40, 47.4, P::Empty, 0}, {40, 49.6, P::Empty, 0}, {92, 48.5, P::End, 0},  {92, 60, P::Empty, 0},
      {97, 30, P::Body, 1},    {105, 30, P::Body, 1},   {110, 30, P::Body, 2},  {200, 30, P::End, 2},
      {210, 99, P::Body, 3},   {302, 48.5, P::Body, 4}, {309, 48.5, P::End, 4}, {311, 48.5, P::Behind, -1}};
  for (const auto& [x, row, part, index] : cases) {
    const StripHit hit = layout.At(x, row, 6);
    EXPECT_EQ(hit.part, part) << x << ", " << row;
    EXPECT_EQ(hit.index, index) << x << ", " << row;
  }
}

TEST(StripLayoutTest, RowsAreWholeOctavesOfModeAndMelody) {
  const auto rows = [](const std::string& tokens, FormatMode mode) {
    const Document document({ElementsOf(tokens), {}}, mode);
    return StripLayout(document).Rows();
  };
  EXPECT_EQ(rows("", FormatMode::Melody), (RowSpan{36, 59}));
  EXPECT_EQ(rows("*4c2 *6e2", FormatMode::Melody), (RowSpan{36, 83}));
  EXPECT_EQ(rows("*1b2 r2", FormatMode::Rtttl), (RowSpan{12, 83}));
}

TEST(StripLayoutTest, LengthsAreThoseOfTheMode) {
  const std::tuple<FormatMode, double, float, float> cases[] = {
      {FormatMode::IMelody, -50, 0.125F, kDurationExtras[3]},
      {FormatMode::IMelody, 150, 1.0F, 1.5F},
      {FormatMode::IMelody, 165, 1.0F, 1.75F},
      {FormatMode::IMelody, 9999, 4.0F, 1.75F},
      {FormatMode::Rtttl, 165, 1.0F, 1.5F},
      {FormatMode::EMelody, 165, 2.0F, 1.0F},
      {FormatMode::Melody, 10, 0.5F, 1.0F}};
  for (const auto& [mode, ticks, duration, extra] : cases) {
    const WrittenLength length = NearestLength(LimitsOf(mode), ticks);
    EXPECT_EQ(kDurations.at(static_cast<size_t>(length.duration)), duration) << ticks;
    EXPECT_EQ(kDurationExtras.at(static_cast<size_t>(length.extra)), extra) << ticks;
  }
}

TEST(StripLayoutTest, SignsTellTheCommandsApart) {
  const std::tuple<std::string, StripSign, bool, std::string> cases[] = {
      {"ledoff", StripSign::Light, false, ""},
      {"backon", StripSign::Backlight, true, ""},
      {"vibeoff", StripSign::Vibration, false, ""},
      {"V12", StripSign::Volume, true, "12"},
      {"V-", StripSign::Volume, true, "-"},
      {"(", StripSign::RepeatStart, true, ""},
      {"@3)", StripSign::RepeatEnd, true, "3"},
      {"@0)", StripSign::RepeatEnd, true, ""},
      {")", StripSign::Other, true, ""},
      {"Error", StripSign::Other, true, ""}};
  for (const auto& [command, sign, on, text] : cases) {
    const StripSymbol symbol = SymbolOf(Command(command));
    EXPECT_EQ(std::tie(symbol.sign, symbol.on, symbol.text), std::tie(sign, on, text)) << command;
  }
}

TEST(StripWordsTest, SayWhatIsAtTheCursor) {
  Document document;
  EXPECT_EQ(StripWords(document), "The melody is empty.");
  document.Apply({.inserted = ElementsOf("*4#c2 ledon *9d3"), .cursor = -1});
  EXPECT_EQ(StripWords(document),
            "Before the first of 3 elements. Next: c sharp, octave 4, quarter, 600 ms.");
  document.Apply({.cursor = 1, .selection = ElementRange{0, 2}});
  EXPECT_EQ(
      StripWords(document),
      "Element 2 of 3: light on. Next: d, octave 9, eighth, 300 ms, not in this format. Selected: 1 to 2.");
  document.Apply({.cursor = 2, .selection = ElementRange{2, 3}});
  EXPECT_EQ(StripWords(document),
            "Element 3 of 3: d, octave 9, eighth, 300 ms, not in this format. Selected: 3.");
}

TEST(ProblemsTest, ComeInTurnBehindTheCursorAndRoundAgain) {
  Document document({ElementsOf("*4c2 ledon *4d2"), {}}, FormatMode::Rtttl);
  document.Apply({.at = 3, .inserted = {Note("85_", 5), Note("e", 2)}});
  const auto next = [&document](int32_t cursor) {
    document.Apply({.cursor = cursor});
    return ProblemWords(document, NextProblem(document));
  };
  EXPECT_EQ(next(-1), "Element 2 of 5: RTTTL cannot hold it (light on)");
  EXPECT_EQ(next(1), "Element 4 of 5: not understood (unknown tone \"85_\", quarter)");
  EXPECT_EQ(next(3), "Element 5 of 5: RTTTL cannot hold it (e, octave 2, quarter)");
  EXPECT_EQ(next(4), next(0));
  document.Apply({.mode = FormatMode::IMelody});
  for (const int32_t cursor : {0, 3, 4})
    EXPECT_EQ(next(cursor).substr(0, 32), "Element 4 of 5: not understood (");
  document.Apply({.at = 3, .removed = 1});
  EXPECT_EQ(next(2), "No problem: all elements are understood, and I-Melody can hold them");
}

}  // namespace
}  // namespace trillomat
