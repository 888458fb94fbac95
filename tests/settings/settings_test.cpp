#include "settings/settings.h"

#include <gmock/gmock.h>

#include "support/fakes.h"
#include "support/memory_store.h"

namespace trillomat {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string kCleaning = "1: #############Cleaning up registry##############";

Settings Loaded(SettingsStore& store, Log& log) {
  SettingsDraft draft(store);
  return LoadSettings(draft, log);
}

void SaveIn(SettingsStore& store, const Settings& settings) {
  SilentLog log;
  SettingsDraft draft(store);
  PutSettings(settings, draft);
  Save(draft, log);
}

TEST(SettingsTest, FirstStartCleansUpAndTakesEveryDefault) {
  MemoryStore store;
  FakeLog log;
  EXPECT_EQ(Loaded(store, log), Settings());
  EXPECT_THAT(log.lines, ElementsAre(kCleaning));
}

TEST(SettingsTest, WhatWasSavedComesBack) {
  MemoryStore store;
  FakeLog log;
  const Settings settings{
      6,    FormatMode::Rtttl,       "z:\\tunes\\", false, false, true, 3, 1, 0, 55, false, 250, true,
      true, {"/b\xff.imy", "/a.imy"}};
  SaveIn(store, settings);
  EXPECT_EQ(store.values["Version/Counter"], "2");
  EXPECT_EQ(store.values["Settings/AutoPlay"], "False");
  EXPECT_EQ(store.values["Settings/Mode"], "2");
  EXPECT_EQ(Loaded(store, log), settings);
  EXPECT_THAT(log.lines, IsEmpty());
  store.values["Version/Counter"] = "1";  // an older layout is wiped, but for its counter
  EXPECT_EQ(Loaded(store, log), Settings());
  EXPECT_THAT(log.lines, ElementsAre(kCleaning));
  EXPECT_EQ(store.values.size(), 1U);
}

TEST(SettingsTest, ValuesThatMakeNoSenseAreLoggedAndReplaced) {
  struct Case {
    std::string key;
    std::string value;
  };
  const Case cases[] = {
      {"Mode", "4"},       {"Mode", "-1"},           {"Mode", "two"},    {"Duration", "6"},
      {"Duration", ""},    {"DurationExtra", "4"},   {"OutPut", "3"},    {"Scale", "99999999999"},
      {"Scale", "4 or 5"}, {"AutoPlay", "perhaps"},  {"PlayMoving", ""}, {"Volume", "101"},
      {"NoteStrip", "1"},  {"ModernSpelling", "on"}, {"StripZoom", "0"}, {"TidyImport", "yes"}};
  for (const Case& c : cases) {
    MemoryStore store;
    FakeLog log;
    SaveIn(store, Settings());
    store.values["Settings/" + c.key] = c.value;
    EXPECT_EQ(Loaded(store, log), Settings()) << c.key << "=" << c.value;
    EXPECT_THAT(log.lines, ElementsAre("1: The setting " + c.key + " has an unknown value-->" + c.value));
  }
}

// Two windows at once: values that one has not changed stay as the other has left them.
TEST(SettingsTest, OnlyWhatWasChangedIsWritten) {
  MemoryStore store;
  FakeLog log;
  SaveIn(store, Settings());
  SettingsDraft first(store);
  SettingsDraft second(store);
  Settings ofFirst = LoadSettings(first, log);
  Settings ofSecond = LoadSettings(second, log);
  ofFirst.autoPlay = false;
  ofSecond.octave = 6;
  PutSettings(ofFirst, first);
  Save(first, log);
  store.values.erase("Settings/Mode");
  store.values["Version/Counter"] = "1";
  PutSettings(ofSecond, second);
  Save(second, log);
  ofSecond.autoPlay = false;
  EXPECT_EQ(Loaded(store, log), ofSecond);
  EXPECT_TRUE(store.values.contains("Settings/Mode"));
}

TEST(SettingsTest, RecentFilesOfSeveralWindowsAreMerged) {
  using Paths = std::vector<std::string>;
  struct Case {
    Paths loaded;
    Paths own;     ///< of the window that closes
    Paths stored;  ///< by another one meanwhile
    Paths merged;
  };
  const Paths ten{"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"};
  const Case cases[] = {{{"a", "b"}, {"a", "b"}, {"c", "a", "b"}, {"c", "a", "b"}},  // it used none
                        {{"a", "b"}, {"d", "a", "b"}, {"c", "a", "b"}, {"d", "c", "a", "b"}},
                        {{"a", "b"}, {"b", "a"}, {"c", "a", "b"}, {"b", "c", "a"}},  // it used an old one
                        {{"a", "b"}, {"d", "b"}, {"c", "a", "b"}, {"d", "c", "b"}},  // it found one gone
                        {{"a", "b"}, {"d", "a", "b"}, {"b"}, {"d", "b"}},            // the other did
                        {{}, {"a"}, {}, {"a"}},
                        {ten,
                         {"x", "0", "1", "2", "3", "4", "5", "6", "7", "8"},
                         ten,
                         {"x", "0", "1", "2", "3", "4", "5", "6", "7", "8"}}};
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::PrintToString(c.own));
    MemoryStore store;
    FakeLog log;
    SaveIn(store, {.recentFiles = c.loaded});
    SettingsDraft draft(store);
    Settings settings = LoadSettings(draft, log);
    EXPECT_EQ(settings.recentFiles, c.loaded);
    for (size_t i = 0; i < 10; ++i) {
      store.values["Recent/" + std::to_string(i)] = i < c.stored.size() ? c.stored[i] : "";
    }
    settings.recentFiles = c.own;
    PutSettings(settings, draft);
    Save(draft, log);
    EXPECT_EQ(Loaded(store, log).recentFiles, c.merged);
  }
}

class FaultyStore : public MemoryStore {
 public:
  std::optional<Refusal> Fault() const override { return unreadable ? Write({}) : std::nullopt; }
  std::optional<Refusal> Write(const SettingsChanges& /*changes*/) const { return Refusal{"it is broken"}; }
  std::optional<Refusal> Write(const SettingsChanges& changes) override {
    return std::as_const(*this).Write(changes);
  }
  bool unreadable = true;
};

TEST(SettingsTest, FaultsOfTheStoreAreLoggedAndDefaultsUsed) {
  FaultyStore store;
  FakeLog log;
  store.values = {{"Version/Counter", "1"}, {"Settings/Scale", "6"}};
  store.unreadable = false;
  EXPECT_EQ(Loaded(store, log), Settings());
  EXPECT_THAT(log.lines, ElementsAre(kCleaning, "1: Could not save the settings: it is broken"));
  store.unreadable = true;
  store.values.clear();
  log.lines.clear();
  EXPECT_EQ(Loaded(store, log), Settings());
  EXPECT_THAT(log.lines, ElementsAre("1: Could not read the settings: it is broken"));
}

}  // namespace
}  // namespace trillomat
