#include "composer/melody_text_view.h"

#include <gmock/gmock.h>

#include "support/fakes.h"
#include "support/sample_notes.h"

namespace trillomat {
namespace {

class MelodyTextViewTest : public testing::Test, public FakeWorkspace {
 protected:
  void Fill(int count, int octave = 4, float duration = 1.0F) {
    while (count-- > 0) ws.melody.Insert(ws.melody.UpperBound() + 1, Tone("c", octave, duration));
  }

  static size_t Count(const std::string& text) {
    size_t count = 0;
    for (size_t at = text.find("   "); at != std::string::npos; at = text.find("   ", at + 3)) ++count;
    return count;
  }

  MelodyTextView view_{ws};
};

TEST_F(MelodyTextViewTest, ShowsAWindowAroundTheCursor) {
  Fill(50);
  using Case = std::tuple<FormatMode, int32_t, size_t, size_t>;
  const Case cases[] = {{FormatMode::IMelody, -1, 0, 10}, {FormatMode::IMelody, 15, 11, 10},
                        {FormatMode::IMelody, 5, 6, 10},  {FormatMode::IMelody, 45, 11, 4},
                        {FormatMode::IMelody, 49, 11, 0}, {FormatMode::EMelody, 25, 21, 20},
                        {FormatMode::Rtttl, 25, 18, 17},  {FormatMode::Melody, 25, 21, 20}};
  for (const auto& [mode, cursor, left, right] : cases) {
    ws.iNoteMode = mode;
    ws.melody.lCurrentIndex = cursor;
    const auto text = view_.RefreshMelodyView();
    ASSERT_TRUE(text);
    EXPECT_EQ(Count(text->txtLeft), left) << static_cast<int>(mode) << " at " << cursor;
    EXPECT_EQ(Count(text->txtRight), right) << static_cast<int>(mode) << " at " << cursor;
  }
}

TEST_F(MelodyTextViewTest, ElementsWithoutTextTakeAPlaceInTheCount) {
  ws.iNoteMode = FormatMode::EMelody;
  Fill(1);
  for (int i = 0; i < 20; ++i) ws.melody.Insert(1, CommandNote("V+"));
  Fill(1);
  ws.melody.lCurrentIndex = -1;
  const auto text = view_.RefreshMelodyView();
  ASSERT_TRUE(text);
  EXPECT_EQ(text->txtLeft, "");
  EXPECT_EQ(text->txtRight, "   +c.");
}

TEST_F(MelodyTextViewTest, OrderRunsFromLeftToRightAndMarksWhatTheModeLacks) {
  Fill(1, 3);
  Fill(1, 9);
  Fill(1, 5);
  ws.melody.lCurrentIndex = 1;
  const auto text = view_.RefreshMelodyView();
  ASSERT_TRUE(text);
  EXPECT_EQ(text->txtLeft, "   *3c2   [*4c2]");
  EXPECT_EQ(text->txtRight, "   *5c2");
  EXPECT_FALSE(text->defaults);
  EXPECT_FALSE(ws.melody.At(0).NotSupported);
  EXPECT_TRUE(ws.melody.At(1).NotSupported);
}

TEST_F(MelodyTextViewTest, RtttlDefaultsAreShownAndLeftOutOnDemand) {
  ws.iNoteMode = FormatMode::Rtttl;
  Fill(2, 4, 0.5F);
  Fill(1, 5, 1.0F);
  ws.melody.lCurrentIndex = 1;
  auto text = view_.RefreshMelodyView();
  ASSERT_TRUE(text && text->defaults);
  EXPECT_EQ(text->defaults->octave, "6");
  EXPECT_EQ(text->defaults->duration, "8");
  EXPECT_EQ(text->txtLeft, "   8C6   8C6");
  EXPECT_EQ(ws.codec.defaults, (MelodyDefaults{-1, -1.0F}));
  view_.bRTTTLUseDefault = true;
  text = view_.RefreshMelodyView();
  ASSERT_TRUE(text);
  EXPECT_EQ(text->txtLeft, "   C   C");
  EXPECT_EQ(text->txtRight, "   4C7");
  EXPECT_EQ(ws.codec.defaults, (MelodyDefaults{4, 0.5F}));
}

TEST_F(MelodyTextViewTest, ARefreshThatWasOvertakenShowsNothing) {
  Fill(5);
  ws.melody.lCurrentIndex = 2;
  bool nested = false;
  std::optional<MelodyViewText> inner;
  pump.onPump = [&](int /*pumps*/) {
    if (nested) return;
    nested = true;
    ws.melody.Clear();
    ws.melody.lCurrentIndex = -1;
    inner = view_.RefreshMelodyView();
  };
  EXPECT_FALSE(view_.RefreshMelodyView());
  ASSERT_TRUE(inner);
  EXPECT_EQ(inner->txtLeft + inner->txtRight, "");
}

TEST_F(MelodyTextViewTest, DefaultsThatAnEventLeftBehindAreNotShown) {
  ws.iNoteMode = FormatMode::Rtttl;
  Fill(3);
  ws.melody.lCurrentIndex = 2;
  pump.onPump = [&](int /*pumps*/) { ws.codec.defaults = {.octave = 4, .duration = 1.0F}; };
  const auto text = view_.RefreshMelodyView();
  ASSERT_TRUE(text);
  EXPECT_EQ(text->txtLeft, "   4C6   4C6   4C6");
}

TEST_F(MelodyTextViewTest, AMelodyThatShrinksAndTheEndOfTheProgramEndTheRefresh) {
  Fill(5);
  ws.melody.lCurrentIndex = 4;
  pump.onPump = [&](int /*pumps*/) { ws.melody.Clear(); };
  EXPECT_FALSE(view_.RefreshMelodyView());
  Fill(5);
  pump.onPump = nullptr;
  pump.pumps = 0;
  pump.ending = true;
  EXPECT_FALSE(view_.RefreshMelodyView());
  EXPECT_EQ(pump.pumps, 1);
}

}  // namespace
}  // namespace trillomat
