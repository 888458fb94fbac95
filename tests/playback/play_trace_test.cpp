#include "playback/play_trace.h"

#include "playing.h"

namespace trillomat {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The indices alone, as one text.
std::string Order(const std::string& tokens, int32_t endlessRounds = 1,
                  FormatMode mode = FormatMode::IMelody) {
  Playing p(tokens);
  p.ws.iNoteMode = mode;
  std::string order;
  TraceMelody(p.ws, 600, endlessRounds, [&order](const TraceStep& step) {
    order += std::to_string(step.index);
    return true;
  });
  return order;
}

TEST(PlayTrace, TellsKindLengthAndFrequency) {
  Playing p("*3a2. r3 ledon ( V10 @1)");
  MelodyNote unknown = p.ws.melody.At(0);
  unknown.Note = "h";
  p.ws.melody.Insert(6, unknown);
  p.ws.melody.Insert(7, MelodyNote{});
  std::string text;
  EXPECT_TRUE(TraceMelody(p.ws, 600, 1, [&text](const TraceStep& step) {
    text += std::to_string(step.index) + " " + std::string(KindText(step.played.kind)) + " " +
            std::to_string(step.played.length) + " " + std::to_string(step.played.frequency) + "\n";
    return true;
  }));
  EXPECT_EQ(text,
            "0 tone 900 440\n1 pause 300 0\n2 command 0 0\n3 repeat 0 0\n4 command 0 0\n5 repeat 0 0\n"
            "6 tone 900 0\n7 tone 0 0\n");
  EXPECT_THAT(p.log.lines, ElementsAre("1: Unknown tone-->h", "1: Error - can not find any note"));
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

TEST(PlayTrace, RepeatEndsWithoutAStartCostNoMoreThanOthers) {
  constexpr int kCount = 20000;
  Playing p("c2");
  p.ws.melody.Assign(MelodyList(kCount, CommandNote("@2)")));
  EXPECT_TRUE(TraceMelody(p.ws, 600, 1, [](const TraceStep&) { return true; }));
  EXPECT_LE(p.pump.pumps, 4 * kCount);
  EXPECT_EQ(p.log.lines.size(), kCount - 1U);
}

TEST(PlayTrace, EndsAtACountBeyondTheCounterWithItsSinkAndWithTheProgram) {
  Playing p("( *3a2 @40000)");
  int steps = 0;
  EXPECT_TRUE(TraceMelody(p.ws, 600, 1, [&steps](const TraceStep&) { return ++steps > 0; }));
  EXPECT_EQ(steps, 1 + 2 * (32768 + 1));
  p.Load("( *3a2 @0)");
  steps = 0;
  EXPECT_FALSE(TraceMelody(p.ws, 600, 100, [&steps](const TraceStep&) { return ++steps < 5; }));
  EXPECT_EQ(steps, 5);
  p.pump.ending = true;
  EXPECT_FALSE(TraceMelody(p.ws, 600, 100, [&steps](const TraceStep&) { return ++steps > 0; }));
  EXPECT_EQ(steps, 5);
}

TEST(PlayTrace, MatchesThePlayLoop) {
  Playing p("@2) *3a2 ( *4c3 ledon *4d3. @3) r2 ( *3b2 @2) ( *3b2 @-1) *5e5;");
  std::vector<std::string> traced;
  TraceMelody(p.ws, 600, 1, [&traced](const TraceStep& step) {
    const PlayedElement& played = step.played;
    if (played.frequency > 0)
      traced.push_back(std::to_string(played.frequency) + " " + std::to_string(played.length));
    return true;
  });
  p.Click(Control::Play);
  EXPECT_EQ(traced, p.sound.lines);
}

}  // namespace
}  // namespace trillomat
