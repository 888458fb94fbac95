#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

#include "platform/clock_win32.h"
#include "platform/file_store_win32.h"
#include "platform/sound_win32.h"
#include "platform/win32.h"
#include "support/temp_folder.h"

namespace trillomat {
namespace {

TEST(Win32FileStore, CopiesAndReplacesWithTheirAttributes) {
  const TempFolder folder;
  Win32FileStore store;
  folder.Write("a", "tune");
  SetFileAttributesW((folder / "a").c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_TRUE(store.Copy(folder / "a", folder / "copy"));
  EXPECT_EQ(folder.Read("copy"), "tune");
  for (const char* name : {"a", "copy"}) {
    EXPECT_EQ(GetFileAttributesW((folder / name).c_str()) & FILE_ATTRIBUTE_READONLY,
              DWORD{FILE_ATTRIBUTE_READONLY});
    SetFileAttributesW((folder / name).c_str(), FILE_ATTRIBUTE_NORMAL);
  }
  SetFileAttributesW((folder / "a").c_str(), FILE_ATTRIBUTE_HIDDEN);
  auto made = store.Make(folder / "a", false);
  ASSERT_TRUE(made);
  EXPECT_TRUE(made->Write("new") && made->Flush() && made->TakePlace());
  EXPECT_EQ(folder.Read("a"), "new");
  EXPECT_EQ(GetFileAttributesW((folder / "a").c_str()) & FILE_ATTRIBUTE_HIDDEN, DWORD{FILE_ATTRIBUTE_HIDDEN});
  made = store.Make(folder / "a", false);
  ASSERT_TRUE(made && made->Write("half"));
  EXPECT_EQ(folder.Names().size(), 3U);
  made.reset();
  EXPECT_THAT(folder.Names(), testing::ElementsAre("a", "copy"));
  EXPECT_EQ(store.Kind("NUL"), FileKind::Stream);
  EXPECT_EQ(store.Read("NUL", 1).fault, FileBytes::Fault::NotPlain);
}

TEST(Win32FileStore, GivesPathsOfDrivesAlone) {
  const Win32FileStore store;
  EXPECT_EQ(store.GivenPath(L"c:/tunes/./x/../a.imy"), "C:\\tunes\\a.imy");
  EXPECT_EQ(store.GivenPath(L"\\\\server\\share\\a.imy"), std::nullopt);
  EXPECT_EQ(store.GivenPath(std::wstring(L"c:\\") + wchar_t{0xD800}), std::nullopt);
  EXPECT_EQ(store.NativePath("c:\\\xff"), "");
}

TEST(Win32Text, IsRefusedWhereItIsNotValid) {
  const std::string utf8 = "a\xc3\xa9\xe5\xa4\x9c\xf0\x9d\x84\x9e";
  const std::wstring wide = L"a\u00e9\u591c\U0001d11e";
  EXPECT_EQ(WideOfUtf8(utf8), wide);
  EXPECT_EQ(Utf8OfWide(wide), utf8);
  EXPECT_EQ(WideOfUtf8(""), L"");
  EXPECT_EQ(Utf8OfWide(L""), "");
  EXPECT_EQ(WideOfUtf8("\xff"), std::nullopt);
  EXPECT_EQ(Utf8OfWide(wide.substr(3, 1)), std::nullopt);
}

TEST(Win32Clock, WritesDateAndTimeAsTheUserHasSetThem) {
  const Win32Clock clock;
  EXPECT_THAT(clock.DateText(), testing::ContainsRegex("\\d+.\\d+.\\d+"));
  EXPECT_THAT(clock.TimeText(), testing::ContainsRegex("\\d+.\\d+.\\d+"));
}

// Without a sound card there is nothing to hear, but the melody keeps its time.
TEST(Win32Sound, ABeepTakesItsTime) {
  Win32Sound sound;
  for (const int32_t hertz : {20, 440, 40000}) {
    const auto begin = std::chrono::steady_clock::now();
    sound.Beep(hertz, 60);
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(60)) << hertz;
  }
  const auto begin = std::chrono::steady_clock::now();
  sound.Beep(440, 0);
  sound.Beep(440, -1000);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(500));
  EXPECT_FALSE(sound.StartWave({}));
}

}  // namespace
}  // namespace trillomat
