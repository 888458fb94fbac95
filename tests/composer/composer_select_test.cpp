#include <random>

#include "support/composer_fixture.h"
#include "support/document_snapshot.h"

namespace trillomat {
namespace {

/// Does whatever a user can, one command at a time.
class AnyEditing {
 public:
  AnyEditing(Composing& on, unsigned seed) : on_(on), random_(seed) {}

  /// Runs a command that makes no step: on the cursor, the selection, or what is entered next.
  void Move() {
    switch (Number(8)) {
      case 0: return on_.composer.MoveLeft();
      case 1: return on_.composer.MoveRight();
      case 2: return on_.composer.MoveTo(Place());
      case 3: return on_.composer.SelectTo(Place());
      case 4: return on_.composer.SelectElements({Place(), Place()});
      case 5: return on_.composer.SetOctave(Number(9));
      case 6: return on_.composer.TakeLengthAndOctave(Place());
      default: return on_.composer.SelectAll();
    }
  }
  void Edit() {
    Composer& composer = on_.composer;
    composer.EndTyping();
    switch (Number(17)) {
      case 0:
      case 1: return composer.TypeTone(Number(12), Number(2));
      case 2: return composer.EnterPause();
      case 3: return composer.EnterCommand(Number(11), "2", "7");
      case 4: return composer.StepDuration();
      case 5: return composer.StepAccidental();
      case 6: return composer.EraseLeft();
      case 7: return composer.EraseRight();
      case 8: return composer.MoveScale(static_cast<int16_t>(Number(3) - 1));
      case 9: return composer.MoveSemitones(Number(7) - 3);
      case 10: return composer.Duplicate();
      case 11: return composer.Paste(ElementsOf("c2 *5#d3. ledon r4"));
      case 12: return Drag();
      case 13: return composer.EditSongText(Number(7), kTexts.at(static_cast<size_t>(Number(6))));
      case 14: return composer.SetMode(static_cast<FormatMode>(Number(kFormatModes)));
      case 15: return Number(8) == 0 ? composer.Clear() : composer.EraseSelected("cutting");
      default: return Number(8) == 0 ? Open() : composer.TypeTone(Number(12));
    }
  }

 private:
  int Number(int below) { return std::uniform_int_distribution<int>(0, below - 1)(random_); }
  int32_t Place() { return Number(on_.document.LastIndex() + 3) - 1; }

  void Drag() {
    const int32_t index = Place();
    for (int i = 0; i < 4; ++i) on_.composer.MoveTone(index, Number(5) - 2);
    for (int i = 0; i < 4; ++i) on_.composer.SetLength(index, Number(6), Number(4));
    on_.composer.EndDrag();
  }
  void Open() {
    const bool imported = Number(2) == 0;
    ReadRecord record;
    record.info.name = "Opened";
    on_.composer.TakeIn({.elements = ElementsOf("d2 e2 &a3"),
                         .record = record,
                         .mode = static_cast<FormatMode>(Number(kFormatModes)),
                         .file = imported ? "" : "/tunes/opened",
                         .step = "opening"});
  }

  static constexpr std::array<const char*, 6> kTexts{"", "120", "V3", "Tune", "7", "S1"};
  Composing& on_;
  std::mt19937 random_;
};

TEST_F(ComposerTest, AnythingIsTakenBackAndMadeAgainStepByStep) {
  for (unsigned seed = 1; seed <= 20; ++seed) {
    Composing on(FakeServices::services, clock);
    AnyEditing editing(on, seed);
    std::vector<Snapshot> before;
    while (before.size() < 150) {
      for (int i = 0; i < 2; ++i) editing.Move();
      const Snapshot now(on.document);
      const uint64_t song = on.document.SongNumber();
      editing.Edit();
      if (on.document.SongNumber() != song) before.push_back(now);
    }
    std::vector<Snapshot> after;
    for (size_t i = before.size(); i-- > 0; on.composer.Undo()) {
      after.emplace_back(on.document);
      const Snapshot& wanted = i + 1 < before.size() ? before[i + 1] : after.front();
      ASSERT_EQ(after.back().song, wanted.song) << "seed " << seed << ", step " << i;
      ASSERT_TRUE(after.back() == wanted) << "seed " << seed << ", step " << i;
    }
    ASSERT_TRUE(Snapshot(on.document) == before.front());
    ASSERT_FALSE(on.composer.Steps().CanUndo());
    for (size_t i = after.size(); i-- > 0;) {
      on.composer.Redo();
      ASSERT_TRUE(Snapshot(on.document) == after[i]) << "seed " << seed << ", step " << i;
    }
    ASSERT_FALSE(on.composer.Steps().CanRedo());
  }
}

TEST_F(ComposerTest, SelectedElementsAreWhatCommandsWorkOn) {
  using Verb = std::function<void()>;
  const auto selected = [this] { return std::pair(document.Selection().begin, document.Selection().end); };
  struct Case {
    Verb verb;
    std::string tokens;
    std::pair<int, int> selection;
  };
  const std::string all = "*4c2 *4d2 r2 *4e2";
  const std::vector<Case> cases{
      {[this] { composer.MoveSemitones(1); }, "*4c2 *4#d2 r2| *4e2", {1, 3}},
      {[this] { composer.MoveSemitones(-3); }, "*4c2 *3b2 r2| *4e2", {1, 3}},
      {[this] { composer.EraseLeft(); }, "*4c2| *4e2", {0, 0}},
      {[this] { composer.EraseRight(); }, "*4c2| *4e2", {0, 0}},
      {[this] { composer.Duplicate(); }, "*4c2 *4d2 r2 *4d2 r2| *4e2", {3, 5}},
      {[this] { composer.Paste(ElementsOf("*4b3")); }, "*4c2 *4b3| *4e2", {0, 0}},
      {[this] { composer.Paste({}); }, "*4c2 *4d2 r2| *4e2", {1, 3}},
      {[this] { composer.SelectTo(3); }, "*4c2 *4d2 r2 *4e2| ", {1, 4}},
      {[this] { composer.SelectTo(-1); }, "|" + all, {0, 1}},
      {[this] { composer.SelectTo(0); }, "*4c2| *4d2 r2 *4e2", {0, 0}},
      {[this] { composer.MoveTo(0); }, "*4c2| *4d2 r2 *4e2", {0, 0}},
      {[this] { composer.TypeTone(0); }, "*4c2 *4d2 r2 *4c2| *4e2", {0, 0}},
  };
  composer.SelectDuration(2);
  for (const Case& c : cases) {
    Compose(all, 0);
    composer.SelectTo(2);
    ASSERT_EQ(selected(), std::pair(1, 3));
    c.verb();
    EXPECT_EQ(Tokens(), c.tokens);
    EXPECT_EQ(selected(), c.selection) << c.tokens;
  }
}

TEST_F(ComposerTest, ToneThatWouldLeaveTheOctavesIsRefusedWithItsNumber) {
  composer.SetMode(FormatMode::Rtttl);
  Compose("*4c2 *6b2 r2", 2);
  log.lines.clear();
  composer.MoveSemitones(1);
  EXPECT_EQ(Tokens(), "*4c2 *6b2 r2| ");
  EXPECT_THAT(log.lines,
              testing::ElementsAre("2: All notes must be within scale 3-6, currently note 2 is incorrect"));
  composer.SelectElements({0, 1});
  composer.MoveSemitones(-12);
  EXPECT_EQ(Tokens(), "*3c2| *6b2 r2");
  composer.MoveTone(0, -1);
  composer.SetLength(0, 4, 2);
  EXPECT_EQ(Tokens(), "*3c2| *6b2 r2") << "neither the octave nor the length is one of the mode's";
}

}  // namespace
}  // namespace trillomat
