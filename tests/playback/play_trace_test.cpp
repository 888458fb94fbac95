#include "playback/play_trace.h"

#include "playback/element_sound.h"
#include "playback/played_elements.h"
#include "playing.h"

namespace trillomat {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Counts the steps, and ends the walk after `most` of them.
struct Steps {
  bool operator()(const TraceStep& /*step*/) { return ++*count < most; }
  int* count;
  int most = 1 << 30;
};

// Only the indices, as one text.
std::string Order(const std::string& tokens, int32_t endlessRounds = 1,
                  FormatMode mode = FormatMode::IMelody) {
  Playing p(tokens, mode);
  std::string order;
  TraceMelody(p.document, endlessRounds, p.services, [&order](const TraceStep& step) {
    order += std::to_string(step.index);
    return true;
  });
  return order;
}

TEST(PlayTrace, TellsKindLengthAndFrequency) {
  Playing p("*3a2. r3 ledon ( V10 @1) *3h2");
  std::string text;
  EXPECT_TRUE(TraceMelody(p.document, 1, p.services, [&text](const TraceStep& step) {
    text += std::to_string(step.index) + " " + std::string(KindText(step.played.kind)) + " " +
            std::to_string(step.played.length) + " " + std::to_string(step.played.frequency) + "\n";
    return true;
  }));
  EXPECT_EQ(text,
            "0 tone 900 440\n1 pause 300 0\n2 command 0 0\n3 repeat 0 0\n4 command 0 0\n5 repeat 0 0\n"
            "6 tone 0 0\n")
      << "what is not sounded has no length";
  EXPECT_THAT(p.log.lines, ElementsAre("1: Unknown tone-->h"));
  EXPECT_THAT(p.sound.lines, IsEmpty());
  EXPECT_EQ(p.clock.seconds, 0);
}

TEST(PlayTrace, FollowsRepeats) {
  EXPECT_EQ(Order("( *3a2 @2) *3c2"), "012123");
  EXPECT_EQ(Order("( *3a2 @1) *3c2"), "0123");
  EXPECT_EQ(Order("( *3a2 @-1) *3c2"), "0123");
  EXPECT_EQ(Order("*3a2 @2) *3c2"), "012");
  EXPECT_EQ(Order("( *3a2 @0) *3c2"), "0123");
  EXPECT_EQ(Order("( *3a2 @0) *3c2", 3), "01212123");
  EXPECT_EQ(Order("( *3a2 @5) *3c2", 3, FormatMode::Rtttl), "0123");
  // The two ends share a counter and would send each other back for ever.
  EXPECT_EQ(Order("( *3a2 @3) *3c2 @2)"), "0121212341234");
  EXPECT_EQ(Order("( ( *3a2 @2) @2) *3c2"), "01232342345");
}

TEST(PlayTrace, RepeatEndsCostNoMoreThanOthers) {
  for (const std::string start : {"", "( *3a2"}) {  // without a start, and each with the same
    Playing p(start);
    const size_t ends = start.empty() ? 20000 : 300;
    p.document.Apply({.at = 2, .inserted = ElementList(ends, Command("@2)"))});
    int steps = 0;
    EXPECT_TRUE(TraceMelody(p.document, 1, p.services, [&steps](const TraceStep&) { return ++steps > 0; }));
    EXPECT_LE(p.pump.pumps, 3 * steps) << start;
    // The first element is none that could have a start.
    EXPECT_THAT(p.log.lines, testing::SizeIs(start.empty() ? ends - 1 : 0));
    EXPECT_THAT(p.log.lines, testing::Each("2: Can not find the start of the Repeat"));
  }
}

TEST(PlayTrace, MatchesThePlayLoop) {
  Playing p("@2) *3a2 ( *4c3 ledon *4d3. @3) r2 ( *3b2 @2) ( *3b2 @-1) *3h2 *5e5;");
  std::vector<std::string> traced;
  int32_t time = 0;
  TraceMelody(p.document, 1, p.services, [&](const TraceStep& step) {
    const PlayedElement& played = step.played;
    time += played.length;
    if (played.frequency > 0)
      traced.push_back(std::to_string(played.frequency) + " " + std::to_string(played.length));
    return true;
  });
  p.controls.Press(Control::Play);
  EXPECT_EQ(traced, p.sound.lines);
  EXPECT_NEAR(p.clock.seconds, time / 1000.0, 0.001);
}

TEST(PlayedElements, AreWhatIsHeardInTheOrderOfPlaying) {
  Playing p("ledon *3a2. ( r3 *4#c4 @2) *3h2 ( *5e5; @0) V10");
  const auto heard = [&p](int32_t rounds) {
    return TokensOf(*PlayedElements(p.document, rounds, p.services), " ");
  };
  EXPECT_EQ(heard(1), "*3a2. r3 *4#c4 r3 *4#c4 *5e5;");
  EXPECT_EQ(heard(3), "*3a2. r3 *4#c4 r3 *4#c4 *5e5; *5e5; *5e5;");
}

TEST(PlayedElements, AreRefusedWhenTheyTakeTooLong) {
  const auto why = [](const std::string& tokens, bool ending = false) {
    Playing p(tokens);
    p.pump.ending = ending;
    return PlayedElements(p.document, 1, p.services).Why().why;
  };
  EXPECT_EQ(why("( *3a0 r0 @2000)"), "the melody has more than an hour of sound");
  EXPECT_EQ(why("( V10 @32000)"), "the melody plays more than 30,000 elements over again");
  EXPECT_EQ(why("*3a2", true), "the program is ending");
}

// Entered commands hold a length, but it is never played.
TEST(ElementSound, LengthAndFrequencyAreThoseThatArePlayed) {
  ElementList elements = ElementsOf("*4c2. *0&d0: r3; *8b5 ledon V10 *4x2 r0:");
  elements[4].duration = elements[4].extra = 1.0F;
  elements.push_back(Note("c", 30));
  Playing p;
  p.Load(elements);
  p.SetTempo(133);
  int32_t expected = 0;
  TraceMelody(p.document, 1, p.services, [&](const TraceStep& step) {
    EXPECT_EQ(step.index, expected++);
    EXPECT_EQ(ElementLength(p.document.At(step.index), 133), step.played.length) << step.index;
    EXPECT_EQ(ElementFrequency(p.document.At(step.index)), step.played.frequency) << step.index;
    return true;
  });
  EXPECT_EQ(expected, p.document.LastIndex() + 1);
}

}  // namespace
}  // namespace trillomat
