// The four formats on real files: bytes and line ends, and every way in which a file can refuse.
#include <array>

#include "formats/text_file.h"
#include "read_case.h"
#include "support/temp_folder.h"

namespace trillomat {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

constexpr std::array<const char*, 4> kNames{"IMelody", "EMelody", "RTTTL", "Melody"};

class FilesTest : public testing::Test {
 protected:
  TempFolder folder_;
  FakeWorkspace fake_;
};

TEST_F(FilesTest, LinesEndAtAnyOfThreeEnds) {
  EXPECT_THAT(SplitLines("a\rb\nc\r\nd"), ElementsAre("a", "b", "c", "d"));
  EXPECT_THAT(SplitLines("x\r\n"), ElementsAre("x"));
  EXPECT_THAT(SplitLines("\n\r\n\r\r"), ElementsAre("", "", "", ""));
  EXPECT_THAT(SplitLines(""), ElementsAre());
  EXPECT_EQ(JoinLines(std::string_view("a\r\n\0b\n\xFF", 7)), std::string("a\0b\xFF", 4));
}

TEST_F(FilesTest, EveryFormatReadsBackWhatItAppended) {
  for (const ModeLimits& limits : kModeLimits) {
    const FormatEntry& format = FormatOf(limits.mode);
    SCOPED_TRACE(limits.caption);
    EXPECT_EQ(format.mode, limits.mode);
    const fs::path file = folder_ / ("song." + std::string(format.extension));
    fake_.ws.ExportMelody = {Tone("c", 4, 0.5F), Tone("b", 3, 0.5F)};
    const std::string text = format.WriteText(fake_.ws);
    ASSERT_TRUE(format.bSaveFile(file, fake_.ws));
    EXPECT_EQ(ReadBytes(file), text);
    ASSERT_TRUE(format.bReadFile(file, fake_.ws)) << fake_.ws.refusal;
    EXPECT_EQ(fake_.ws.ImportMelody, fake_.ws.ExportMelody);
    ASSERT_TRUE(format.bSaveFile(file, fake_.ws));
    EXPECT_EQ(ReadBytes(file), text + text) << "writers never truncate";
  }
}

TEST_F(FilesTest, FaultsAreLoggedUnderTheRoutinesName) {
  std::vector<fs::path> unwritable{folder_.Path(), folder_ / "missing/song"};
  if (fs::exists("/dev/full")) unwritable.emplace_back("/dev/full");
  for (const ModeLimits& limits : kModeLimits) {
    const FormatEntry& format = FormatOf(limits.mode);
    const std::string name = kNames.at(static_cast<size_t>(limits.mode));
    SCOPED_TRACE(name);
    fake_.ws.ExportMelody = {{4, "c", "", 1.0F, 0.5F}};
    for (const fs::path& file : unwritable) {
      fake_.log.lines.clear();
      EXPECT_FALSE(format.bSaveFile(file, fake_.ws)) << file;
      EXPECT_THAT(fake_.log.lines, ElementsAre("1: Error in bSaveFile_" + name));
      EXPECT_NE(fake_.ws.refusal, "");
    }
    for (const fs::path& file : {folder_.Path(), folder_ / "missing"}) {
      fake_.log.lines.clear();
      fake_.ws.ImportMelody = fake_.ws.ExportMelody;
      EXPECT_FALSE(format.bReadFile(file, fake_.ws)) << file;
      EXPECT_THAT(fake_.log.lines, ElementsAre("1: Error in bReadFile_" + name));
      EXPECT_TRUE(fake_.ws.ImportMelody.empty());
    }
  }
}

TEST_F(FilesTest, TheEndOfTheProgramEndsThemWithoutATrace) {
  for (const ModeLimits& limits : kModeLimits) {
    const FormatEntry& format = FormatOf(limits.mode);
    SCOPED_TRACE(limits.caption);
    const fs::path file = folder_ / limits.caption;
    FakeWorkspace fake;
    fake.ws.ExportMelody = {Tone("c", 4, 0.5F), Tone("b", 3, 0.5F)};
    const std::string text = format.WriteText(fake.ws);
    fake.pump.ending = true;
    EXPECT_FALSE(format.ReadText(text, fake.ws));
    EXPECT_TRUE(fake.ws.ImportMelody.empty());
    EXPECT_THAT(fake.log.lines, testing::Not(testing::Contains(testing::HasSubstr("Error in bReadFile"))));
    // The EMelody and RTTTL writers let no events run, so nothing stops them.
    const bool stops = limits.mode == FormatMode::IMelody || limits.mode == FormatMode::Melody;
    EXPECT_EQ(format.bSaveFile(file, fake.ws), !stops);
    EXPECT_EQ(fs::exists(file), !stops);
  }
}

}  // namespace
}  // namespace trillomat
