// What each export would make of a song, compared with the export itself.
#include <gmock/gmock.h>

#include <map>

#include "core/tone.h"
#include "exchange/format_fit.h"
#include "exchange/phone_fit.h"
#include "support/fakes.h"
#include "support/sample_notes.h"

namespace trillomat {
namespace {

using ::testing::IsEmpty;

constexpr float kTriplet = kDurationExtras[3];

std::string Fit(Phone phone, const ElementList& elements, int16_t loop = 0,
                RtttlSpelling spelling = RtttlSpelling::Classic) {
  SongInfo info;
  info.loop = loop;
  return FitText(FitOf(phone, {elements, info}, spelling), "it");
}

TEST(PhoneFit, TellsMovesAndTheFirstElementThatDoesNotFit) {
  struct Case {
    Phone phone;
    ElementList elements;
    std::string text;
  };
  const std::string fits = "fits; 1 element";
  const Case cases[] = {
      {Phone::Rtttl, Tones({4, 5}), "RTTTL: fits; 2 elements"},
      {Phone::Rtttl, {Rest(), Note("c", 1), Note("c", 2)}, "RTTTL: fits when moved 2 octaves up; 3 elements"},
      {Phone::Rtttl,
       {Note("c"), Note("c", 4, 1.0F, kTriplet)},
       "RTTTL: does not fit: element 2 (it) has a dot or a triplet that it lacks"},
      {Phone::Rtttl, ElementsOf("ledon c2 V+"),
       "RTTTL: does not fit: element 1 (it) is a command that it lacks; 2 of 3 in all"},
      {Phone::Nokia, Tones({7}),
       "Nokia Composer: fits when moved 1 octave down; 1 element, it takes 50 notes"},
      {Phone::Nokia,
       {Rest(1.0F, 1.75F)},
       "Nokia Composer: does not fit: element 1 (it) has a dot or a triplet that it lacks"},
      {Phone::Nokia, ElementList(52, Note("c")),
       "Nokia Composer: does not fit: element 51 (it) is one more than it takes; 2 of 52 in all"},
      {Phone::T68i, ElementsOf("ledon ( c2; @3) V7 V+"), "T68i: fits; 6 elements"},
      {Phone::T68i, ElementsOf("c2 on"), "T68i: does not fit: element 2 (it) is not understood"},
      {Phone::T68i, {Command("@9999999)")}, "T68i: does not fit: element 1 (it) is a command that it lacks"},
      {Phone::T39, {Note("c", 3, 0.25F)}, "T39: does not fit: element 1 (it) has a length that it lacks"},
      {Phone::T39, {Note("c", 3), Note("x", 3)}, "T39: does not fit: element 2 (it) is not understood"},
      {Phone::T39, Tones({5, 3, -1, 2, 9}),
       "T39: does not fit: element 4 (it) is too far from the octaves before it"},
      {Phone::R320, {Rest(0.5F)}, "R320 and T28: " + fits},
      {Phone::R320, {Rest(1.0F)}, "R320 and T28: does not fit: element 1 (it) has a length that it lacks"},
      {Phone::R320,
       {Note("c", 3, 2.0F)},
       "R320 and T28: does not fit: element 1 (it) has a length that it lacks"},
      {Phone::R320,
       {Command("V10")},
       "R320 and T28: does not fit: element 1 (it) is a command that it lacks"}};
  for (const Case& each : cases) EXPECT_EQ(Fit(each.phone, each.elements), each.text);
}

TEST(PhoneFit, ARepeatCountHoldsTheRepeatInTheClassicSpellingAlone) {
  const ElementList repeat = ElementsOf("( c2 @3)");
  const std::string lost = "RTTTL: does not fit: element 1 (it) is a command that it lacks; 2 of 3 in all";
  EXPECT_EQ(Fit(Phone::Rtttl, repeat, 3), "RTTTL: fits; 3 elements");
  EXPECT_EQ(Fit(Phone::Rtttl, repeat, 0), lost);
  EXPECT_EQ(Fit(Phone::Rtttl, repeat, 3, RtttlSpelling::Modern), lost);
}

TEST(PhoneFit, CountsWhatIsLostByItsReason) {
  const ElementList elements = ElementsOf("c2 ledon vibeon c2: r4 q2");
  const auto loss = [&](Phone phone) { return LossText(FitOf(phone, {elements, {}})); };
  EXPECT_EQ(loss(Phone::Rtttl), "4 of 6 elements left out: 1 not understood, 2 commands, 1 dot or triplet");
  EXPECT_EQ(
      loss(Phone::T39),
      "5 of 6 elements not typed as composed: 1 not understood, 2 commands, 1 length, 1 dot or triplet");
  EXPECT_EQ(loss(Phone::T68i), "1 of 6 elements not typed as composed: 1 not understood");
  EXPECT_EQ(LossText(FitOf(Phone::Nokia, {Tones({4}), {}})), "");
}

ElementList EveryTonePauseAndCommand(const OctaveRange& range) {
  ElementList elements = ElementsOf("ledon ledoff vibeon vibeoff backon backoff V+ V- V0 V7 ( @0) @1) @2)");
  for (const float duration : kDurations) {
    for (const float extra : kDurationExtras) {
      elements.push_back(Rest(duration, extra));
      for (const std::string_view tone : kPianoTones) {
        for (int octave = range.low; octave <= range.high; ++octave) {
          elements.push_back(Note(tone, octave, duration, extra));
        }
      }
    }
  }
  return elements;
}

// An element that counts as typed has keys of its own: no two elements share theirs, and none is "Not
// supported".
TEST(PhoneFit, WhatFitsHasKeysOfItsOwnInEveryExport) {
  for (const ExportTarget& target : kExportTargets) {
    std::map<std::string, std::string> elementOf;
    for (const Element& element : EveryTonePauseAndCommand(target.range)) {
      SCOPED_TRACE(std::string(target.name) + ", " + Described(element));
      // Two octaves keep the element where it is.
      const ElementList anchored{Note("c", target.range.low, 0.5F), Note("c", target.range.high, 0.5F),
                                 element};
      const PhoneFit fit = FitOf(target.phone, {anchored, {}});
      EXPECT_EQ(LossText(fit).empty(), fit.Fits());
      FakeServices fake;
      const std::string text = *Export(target.phone, {anchored, {}}, fake.services);
      if (!fit.Fits()) continue;
      EXPECT_THAT(text, testing::Not(testing::HasSubstr("Not supported")));
      EXPECT_TRUE(elementOf.try_emplace(text, Described(element)).second) << elementOf[text] << ": " << text;
      EXPECT_THAT(fake.log.lines, IsEmpty());
    }
    EXPECT_GT(elementOf.size(), 40U);
  }
}

TEST(FormatFit, HoldsWhatComesBackFromAFile) {
  struct Case {
    std::string tokens;
    std::string held;  ///< a digit a mode
    int16_t loop = 0;
  };
  for (const Case& each :
       {Case{"*3#c3 *4d3", "0123"}, Case{"*3c1 *5&d3", "012"}, Case{"r2", "02"}, Case{"*4c2. *4&b4", "02"},
        Case{"( *4c2 @3)", "02", 3}, Case{"( *4c2 @3) *4c2", "0"}, Case{"*7c2: ledon", "0"}, Case{"*4x2", ""},
        Case{"", ""}}) {
    Song song;
    song.elements = ElementsOf(each.tokens);
    song.info.loop = each.loop;
    std::string held;
    for (const ModeLimits& limits : kModeLimits) {
      if (FormatHolds(limits.mode, song)) held += std::to_string(static_cast<int>(limits.mode));
    }
    EXPECT_EQ(held, each.held) << each.tokens;
  }
}

}  // namespace
}  // namespace trillomat
