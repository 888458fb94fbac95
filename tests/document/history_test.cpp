#include "document/history.h"

#include <gtest/gtest.h>

#include <random>

#include "support/document_snapshot.h"

namespace trillomat {
namespace {

Change Insertion(size_t at, std::string_view note) {
  Change change{.at = at, .cursor = static_cast<int32_t>(at)};
  change.inserted.push_back(Tone(note, 4, 1.0F, 1.0F));
  return change;
}

TEST(HistoryTest, EverythingIsTakenBackAndMadeAgain) {
  std::mt19937 random(20020514);
  const auto pick = [&random](size_t bound) { return random() % bound; };
  const auto place = [&](const Document& document) {
    return static_cast<int32_t>(pick(document.Size() + 1)) - 1;
  };
  Document document;
  History history(document);
  std::vector<Snapshot> before;
  for (int step = 0; step < 2000; ++step) {
    if (pick(4) == 0) {
      const int32_t begin = std::max(place(document), 0);
      history.Do("moving", {.cursor = place(document), .selection = ElementRange{begin, begin + 3}});
    }
    before.emplace_back(document);
    Change change{.at = pick(document.Size() + 1), .removed = pick(4), .cursor = place(document)};
    if (pick(4) == 0 && change.at < document.Size())
      change.octaves.assign(pick(20) + 1, static_cast<int16_t>(pick(9)));
    for (size_t i = change.octaves.empty() ? pick(3) + 1 : 0; i > 0; --i) {
      change.inserted.push_back(Tone("c", static_cast<int16_t>(pick(9)), kDurations.at(pick(6)), 1.0F));
    }
    if (pick(5) == 0) change.info = SongInfo{.name = std::to_string(step)};
    if (pick(5) == 0) change.mode = static_cast<FormatMode>(pick(kFormatModes));
    if (pick(5) == 0) change.file = SongFile{std::to_string(step), SongFile::kThisSong};
    history.Do("editing", std::move(change));
  }
  std::vector<Snapshot> after;
  for (size_t i = before.size(); i-- > 0;) {
    after.emplace_back(document);
    ASSERT_TRUE(history.Undo());
    ASSERT_EQ(Snapshot(document), before[i]) << i;
  }
  EXPECT_FALSE(history.Undo());
  for (size_t i = after.size(); i-- > 0;) {
    ASSERT_TRUE(history.Redo());
    ASSERT_EQ(Snapshot(document), after[i]) << i;
  }
  EXPECT_FALSE(history.Redo());
}

TEST(HistoryTest, ASongThatIsBroughtBackIsAsSavedAsItWas) {
  Document document;
  History history(document);
  history.Do("entering", Insertion(0, "c"));
  document.SetFile("tune.imy");
  history.Do("entering", Insertion(1, "d"));
  EXPECT_TRUE(document.IsChanged());
  history.Undo();
  EXPECT_FALSE(document.IsChanged());
  history.Redo();
  document.SetFile("other.imy");
  history.Undo();
  EXPECT_EQ(document.File(), "other.imy") << "what is saved under another name stays that file's";
  EXPECT_TRUE(document.IsChanged());
  Change opened{.removed = 1, .file = SongFile{"third.imy", SongFile::kThisSong}};
  opened.inserted = Insertion(0, "e").inserted;
  history.Do("opening", std::move(opened));
  EXPECT_FALSE(document.IsChanged());
  history.Undo();
  EXPECT_EQ(document.File(), "other.imy");
  EXPECT_TRUE(document.IsChanged());
  history.Redo();
  EXPECT_EQ(document.File(), "third.imy");
  EXPECT_FALSE(document.IsChanged());
}

TEST(HistoryTest, NamesItsStepsAndMakesOneOfWhatBelongsTogether) {
  Document document;
  History history(document);
  history.Do("entering", Insertion(0, "c"));
  history.Do("", {.cursor = -1});
  EXPECT_EQ(history.UndoName(), "entering") << "a moved cursor is no step";
  for (const char* name : {"T", "Tu", "Tun"}) history.Do("naming", {.info = SongInfo{.name = name}}, "name");
  history.Seal();
  history.Do("naming", {.info = SongInfo{.name = "Tune"}}, "name");
  EXPECT_TRUE(history.Undo());
  EXPECT_EQ(document.Info().name, "Tun");
  EXPECT_TRUE(history.Undo());
  EXPECT_EQ(document.Info().name, "");
  EXPECT_EQ(history.RedoName(), "naming");
  history.Do("entering", Insertion(0, "d"));
  EXPECT_FALSE(history.CanRedo());
  EXPECT_EQ(history.RedoName(), "");
}

TEST(HistoryTest, ForgetsTheOldestBeyondItsMemory) {
  Document document;
  History history(document, 10'000);
  for (size_t i = 0; i < 1000; ++i) {
    history.Do("entering", Insertion(i, "a note that is longer than those of clean files"));
    ASSERT_LE(history.Memory(), 10'000U);
  }
  size_t steps = 0;
  while (history.Undo()) ++steps;
  EXPECT_GE(steps, 20U);
  EXPECT_LE(history.Memory(), 10'000U) << "what can be made again takes more than what can be taken back";
  size_t again = 0;
  while (history.Redo()) ++again;
  EXPECT_GE(again, 20U);
  history.Do("clearing", {.removed = 1000});
  EXPECT_TRUE(history.Undo()) << "the newest is kept, however large";
}

}  // namespace
}  // namespace trillomat
