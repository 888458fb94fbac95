#include "files/sound_export.h"

#include "files/files_fixture.h"

namespace trillomat {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SoundExportTest : public FilesTest {
 protected:
  std::string Run(const std::string& answer) {
    host.notice.clear();
    host.savePath = folder.Path() / answer;
    command.Run();
    return host.notice;
  }

  Result<SoundBytes> made = SoundBytes{"bytes"};
  std::vector<std::string> asked;  ///< extensions
  SoundExport command{parts, browser,
                      [this](const Document& song, std::string_view extension, const Services& /*services*/) {
                        EXPECT_EQ(song.Elements(), document.Elements());
                        asked.emplace_back(extension);
                        return made;
                      }};
};

TEST_F(SoundExportTest, WritesByTheNameAndSaysWhatCameOfIt) {
  EXPECT_EQ(Run("a.wav"), "");
  EXPECT_THAT(log.lines, ElementsAre("2: Nothing to export"));
  Compose("c2");
  EXPECT_EQ(Run("a"), "Wrote a.wav");
  EXPECT_EQ(Run("b.MIDI"), "Wrote b.MIDI");
  made = SoundBytes{"more", {"1 tone is lower"}};
  EXPECT_EQ(Run("c.mid"), "Wrote c.mid; 1 tone is lower");
  EXPECT_THAT(asked, ElementsAre("wav", "mid", "mid"));
  EXPECT_EQ(Run("a.wav"), "Replaced a.wav; 1 tone is lower");
  EXPECT_EQ(host.offer, FileMessage::Offer::Restore);
  EXPECT_EQ(folder.Read("a.wav"), "more");
  EXPECT_EQ(kept.Restore().fault, "");
  EXPECT_EQ(folder.Read("a.wav"), "bytes");
  EXPECT_TRUE(document.IsChanged() && document.File().empty());
}

TEST_F(SoundExportTest, LeavesTheOldFileWhereItIsRefused) {
  folder.Write("a.wav", "old");
  Compose("c2");
  host.yes = false;
  EXPECT_EQ(Run("a.wav"), "");
  host.yes = true;
  made = Refusal{.why = "it is too long"};
  EXPECT_EQ(Run("a.wav"), "Not exported: it is too long");
  host.plays = true;
  EXPECT_EQ(Run("a.wav"), "");
  host.plays = false;
  const auto running = operations.Begin();
  EXPECT_EQ(Run("a.wav"), "");
  EXPECT_EQ(folder.Read("a.wav"), "old");
  EXPECT_THAT(log.lines, IsEmpty());
}

}  // namespace
}  // namespace trillomat
