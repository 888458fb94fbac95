#include "settings/settings.h"

#include <gmock/gmock.h>

#include "support/fakes.h"
#include "support/memory_store.h"

namespace trillomat {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string kCleaning = "1: #############Cleaning up registry##############";

TEST(SettingsTest, FirstStartCleansUpAndTakesEveryDefault) {
  MemoryStore store;
  FakeLog log;
  EXPECT_EQ(LoadSettings(store, log), Settings());
  EXPECT_THAT(log.lines, ElementsAre(kCleaning));
}

TEST(SettingsTest, WhatWasSavedComesBack) {
  MemoryStore store;
  FakeLog log;
  const Settings settings{6, FormatMode::Rtttl, "z:\\tunes\\", false, false, true, 3, 1, 0};
  SaveSettings(settings, store);
  EXPECT_EQ(store.values["Version/Counter"], "2");
  EXPECT_EQ(store.values["Settings/AutoPlay"], "False");
  EXPECT_EQ(store.values["Settings/Mode"], "2");
  EXPECT_EQ(LoadSettings(store, log), settings);
  EXPECT_THAT(log.lines, IsEmpty());
  store.values["Version/Counter"] = "1";  // an older layout is wiped, but for its counter
  EXPECT_EQ(LoadSettings(store, log), Settings());
  EXPECT_THAT(log.lines, ElementsAre(kCleaning));
  EXPECT_EQ(store.values.size(), 1U);
}

TEST(SettingsTest, ValuesThatMakeNoSenseAreLoggedAndReplaced) {
  struct Case {
    std::string key;
    std::string value;
  };
  const Case cases[] = {{"Mode", "4"},           {"Mode", "-1"},           {"Mode", "two"},
                        {"Duration", "6"},       {"Duration", ""},         {"DurationExtra", "4"},
                        {"OutPut", "3"},         {"Scale", "99999999999"}, {"Scale", "4 or 5"},
                        {"AutoPlay", "perhaps"}, {"PlayMoving", ""}};
  for (const Case& c : cases) {
    MemoryStore store;
    FakeLog log;
    SaveSettings(Settings(), store);
    store.values["Settings/" + c.key] = c.value;
    EXPECT_EQ(LoadSettings(store, log), Settings()) << c.key << "=" << c.value;
    EXPECT_THAT(log.lines, ElementsAre("1: The setting " + c.key + " has an unknown value-->" + c.value));
  }
}

}  // namespace
}  // namespace trillomat
