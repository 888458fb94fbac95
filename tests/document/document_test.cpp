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

TEST(DocumentTest, ASharedSongStaysAsItWas) {
  Document document({Tones({"c", "d", "e"}), {.name = "Tune"}}, FormatMode::IMelody);
  const auto whole = document.SharedSong();
  EXPECT_EQ(whole.get(), &document.CurrentSong()) << "not copied while nothing changes";
  const Song asItWas{Tones({"c", "d", "e"}), {.name = "Tune"}};
  document.Apply({.at = 1, .inserted = Tones({"f"})});
  const auto longer = document.SharedSong();
  document.Apply({.info = SongInfo{}});
  document.Apply({.removed = 4, .inserted = Tones({"g"})});
  EXPECT_EQ(*whole, asItWas);
  EXPECT_EQ(longer->elements, Tones({"c", "f", "d", "e"}));
  EXPECT_EQ(longer->info.name, "Tune");
  EXPECT_EQ(document.Elements(), Tones({"g"}));
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

  document.Apply({.mode = FormatMode::Rtttl});
  EXPECT_TRUE(listener.last.mode && !listener.last.SongChanged());
  document.RemoveObserver(listener);
  document.Apply({.at = 99, .removed = 99, .inserted = Tones({"g"}), .cursor = 99});
  EXPECT_EQ(document.Elements(), Tones({"c", "e", "f", "g"})) << "cut off at the end";
  EXPECT_EQ(document.Cursor(), 3);
  document.Apply({.removed = 9});
  EXPECT_EQ(document.Cursor(), -1);
  EXPECT_EQ(listener.count, 6);
}

// Random edits of every kind, compared with a plain list that is changed in the same way.
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
    if (pick(4) == 0) {
      change.octaves.assign(pick(9), static_cast<int16_t>(pick(9)));
      for (size_t i = change.at; i < std::min(change.at + change.octaves.size(), model.size()); ++i) {
        model[i].octave = change.octaves.front();
      }
      if (!change.octaves.empty()) change.removed = 0;
    }
    for (size_t i = change.octaves.empty() ? pick(4) : 0; i > 0; --i) {
      change.inserted.push_back(Tone("c", static_cast<int16_t>(pick(9)), kDurations.at(pick(6)), 1.0F));
    }
    model.erase(model.begin() + static_cast<std::ptrdiff_t>(change.at),
                model.begin() + static_cast<std::ptrdiff_t>(change.at + change.removed));
    model.insert(model.begin() + static_cast<std::ptrdiff_t>(change.at), change.inserted.begin(),
                 change.inserted.end());
    history.push_back(document.Apply(std::move(change)));
    ASSERT_EQ(document.Elements({0, document.LastIndex() + 1}), model) << "step " << step;
    if (pick(3) == 0) {
      ASSERT_EQ(document.Elements(), model) << "in one piece, step " << step;
    }
    ASSERT_EQ(document.CommonestDefaults(), DefaultsCount(model).Commonest()) << "step " << step;
  }
  for (; !history.empty(); history.pop_back()) document.Apply(std::move(history.back()));
  EXPECT_TRUE(document.IsEmpty());
  EXPECT_EQ(document.CommonestDefaults(), DefaultsCount().Commonest());
}

}  // namespace
}  // namespace trillomat
