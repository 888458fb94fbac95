#include "document/document.h"

#include <gtest/gtest.h>

#include <random>

namespace trillomat {
namespace {

ElementList Tones(std::initializer_list<const char*> notes) {
  ElementList elements;
  for (const char* note : notes) elements.push_back(Tone(note, 4, 1.0F, 1.0F));
  return elements;
}

/// Remembers what it was told last.
class Listener : public DocumentObserver {
 public:
  void DocumentChanged(const ChangedRange& range) override {
    last = range;
    ++count;
  }
  ChangedRange last;
  int count = 0;
};

TEST(DocumentTest, ASpliceGoesWhereItIsAskedToAndComesBack) {
  struct Case {
    const char* name;
    Change change;
    ElementList expected;
    int32_t cursor;
  };
  const ElementList start = Tones({"c", "d", "e", "f"});
  const Case cases[] = {
      {"insert", {.at = 1, .inserted = Tones({"g"}), .cursor = 1}, Tones({"c", "g", "d", "e", "f"}), 1},
      {"remove", {.at = 1, .removed = 2}, Tones({"c", "f"}), 1},
      {"replace by more",
       {.at = 3, .removed = 1, .inserted = Tones({"a", "b"})},
       Tones({"c", "d", "e", "a", "b"}),
       2},
      {"replace by fewer", {.at = 0, .removed = 3, .inserted = Tones({"b"})}, Tones({"b", "f"}), 1},
      {"everything", {.removed = 4, .inserted = Tones({"a"}), .cursor = -1}, Tones({"a"}), -1},
      {"clear", {.removed = 4}, {}, -1},
      {"beyond the end",
       {.at = 9, .removed = 9, .inserted = Tones({"a"}), .cursor = 99},
       Tones({"c", "d", "e", "f", "a"}),
       4},
      {"cursor alone", {.cursor = -5}, start, -1}};
  for (const Case& c : cases) {
    Document document({start, {}}, FormatMode::IMelody);
    document.Apply({.cursor = 2});
    Change back = document.Apply(c.change);
    EXPECT_EQ(document.Elements(), c.expected) << c.name;
    EXPECT_EQ(document.Cursor(), c.cursor) << c.name;
    document.Apply(std::move(back));
    EXPECT_EQ(document.Elements(), start) << c.name;
    EXPECT_EQ(document.Cursor(), 2) << c.name;
  }
}

TEST(DocumentTest, TellsWhatChangedAndWhetherTheSongDid) {
  Document document({Tones({"c", "d"}), {}}, FormatMode::IMelody);
  Listener listener;
  document.AddObserver(listener);

  document.Apply({.cursor = 1});
  EXPECT_TRUE(listener.last.cursor);
  EXPECT_FALSE(listener.last.SongChanged() || document.IsChanged());

  document.Apply({.info = SongInfo{}});  // the same again
  EXPECT_FALSE(listener.last.info || document.IsChanged());

  document.Apply({.at = 1, .removed = 1, .inserted = Tones({"e", "f"})});
  EXPECT_TRUE(listener.last.ElementsChanged() && !listener.last.info && document.IsChanged());
  EXPECT_EQ(listener.last.at, 1U);
  EXPECT_EQ(listener.last.removed, 1U);
  EXPECT_EQ(listener.last.inserted, 2U);

  document.SetFile("tune.imy");
  EXPECT_FALSE(document.IsChanged());
  const Change back = document.Apply({.info = SongInfo{.name = "Tune"}});
  EXPECT_TRUE(listener.last.info && document.IsChanged());
  EXPECT_EQ(back.info, SongInfo{});

  document.SetMode(FormatMode::Rtttl);
  EXPECT_TRUE(listener.last.mode && !listener.last.SongChanged());
  document.RemoveObserver(listener);
  document.Apply({.cursor = -1});
  EXPECT_EQ(listener.count, 5);
}

// Everything that any editing can do, against a list that is changed in the plainest way.
TEST(DocumentTest, StaysRightThroughAnyEditingAndAllOfItTakenBack) {
  std::mt19937 random(20020514);
  const auto pick = [&random](size_t bound) { return random() % bound; };
  Document document;
  ElementList model;
  std::vector<Change> history;
  for (int step = 0; step < 3000; ++step) {
    Change change{.at = pick(model.size() + 1), .removed = pick(4)};
    change.removed = std::min(change.removed, model.size() - change.at);
    if (pick(50) == 0) change = {.removed = model.size()};
    for (size_t i = pick(4); i > 0; --i) {
      change.inserted.push_back(Tone("c", static_cast<int16_t>(pick(9)), kDurations.at(pick(6)), 1.0F));
    }
    model.erase(model.begin() + static_cast<std::ptrdiff_t>(change.at),
                model.begin() + static_cast<std::ptrdiff_t>(change.at + change.removed));
    model.insert(model.begin() + static_cast<std::ptrdiff_t>(change.at), change.inserted.begin(),
                 change.inserted.end());
    history.push_back(document.Apply(std::move(change)));
    ASSERT_EQ(document.Elements(), model) << "step " << step;
    ASSERT_EQ(document.CommonestDefaults(), DefaultsCount(model).Commonest()) << "step " << step;
  }
  for (; !history.empty(); history.pop_back()) document.Apply(std::move(history.back()));
  EXPECT_TRUE(document.IsEmpty());
  EXPECT_EQ(document.CommonestDefaults(), DefaultsCount().Commonest());
}

}  // namespace
}  // namespace trillomat
