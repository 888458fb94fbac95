#include "cli/program.h"

namespace trillomat {
namespace {

using testing::ElementsAre;
using testing::Eq;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr std::string_view kTune = "Fr\xE8re:d=4,o=5,b=120:C,D,8E.,2P\r\n";

class FilesTest : public ProgramTest {
 protected:
  FilesTest() { MakeFile("tune.rtx", kTune); }
};

TEST_F(FilesTest, ConvertWritesEachFormat) {
  const std::vector<std::pair<std::string, std::string_view>> expected{
      {"a.rtx", kTune},
      {"a.imy",
       "BEGIN:IMELODY\r\nVERSION:1.2\r\nFORMAT:CLASS1.0\r\nNAME:Fr\xE8re\r\nCOMPOSER:\r\nBEAT:120\r\nSTYLE:"
       "S0\r\n"
       "VOLUME:V10\r\nMELODY:*3c2*3d2*3e3.r1\r\nEND:IMELODY\r\n"},
      {"a.emy", "BEGIN:EMELODY\r\nVERSION:1.0\r\nMELODY:c.d.P\r\nEND:EMELODY\r\n"},
      {"a.mel", "CD\r\n"},
  };
  for (const auto& [name, bytes] : expected) {
    SCOPED_TRACE(name);
    const Ran ran = Run("convert tune.rtx " + name);
    EXPECT_EQ(ran.status, 0) << ran.err;
    EXPECT_THAT(ran.out, IsEmpty());
    EXPECT_EQ(FileBytes(name), bytes);
  }
  EXPECT_EQ(Run("convert --mode rtttl - -", kTune).out, kTune);
  EXPECT_EQ(Run("convert tune.rtx - --mode melody").out, "CD\r\n");
}

TEST_F(FilesTest, AnExistingFileIsReplacedOnlyOnRequestAndOnlyBySuccess) {
  MakeFile("old.imy", "old");
  MakeFile("bad.rtx", "no colon");
  MakeFile("bad.txt", "c,d,e");
  MakeFile("high.rtx", "a:d=4,o=8,b=120:c,");
  const std::vector<Case> refused{
      {"convert tune.rtx old.imy", 1, IsEmpty(), HasSubstr("old.imy exists already; --force")},
      {"convert --force bad.rtx old.imy", 1, IsEmpty(), HasSubstr("bad.rtx: ")},
      {"import --from rtttl bad.txt old.imy", 1, IsEmpty(), HasSubstr("bad.txt: ")},
      {"transpose --octaves 1 high.rtx old.imy", 1, IsEmpty(),
       HasSubstr("2: All notes must be within scale 3-6, currently note 1 is incorrect\n")},
      {"render bad.rtx old.imy", 1, IsEmpty(), HasSubstr("bad.rtx: ")},
      {"convert bad.rtx new.imy", 1, IsEmpty(), HasSubstr("bad.rtx: ")},
  };
  ExpectEach(refused);
  EXPECT_EQ(FileBytes("old.imy"), "old");
  EXPECT_THAT(Files(), ElementsAre("bad.rtx", "bad.txt", "high.rtx", "old.imy", "tune.rtx"));

  EXPECT_EQ(Run("convert --force tune.rtx old.imy").status, 0);
  EXPECT_THAT(FileBytes("old.imy"), HasSubstr("MELODY:*3c2"));
  EXPECT_THAT(Files(), ElementsAre("bad.rtx", "bad.txt", "high.rtx", "old.imy", "tune.rtx"));
}

TEST_F(FilesTest, WhatALinkStandsForIsReplacedAndKeepsItsPermissions) {
  std::filesystem::create_symlink("tune.rtx", "link.rtx");
  std::filesystem::permissions("tune.rtx",
                               std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
  EXPECT_EQ(Run("transpose --octaves 1 link.rtx link.rtx").status, 0);
  EXPECT_TRUE(std::filesystem::is_symlink("link.rtx"));
  EXPECT_EQ(FileBytes("tune.rtx"), "Fr\xE8re:d=4,o=6,b=120:C,D,8E.,2P\r\n");
  EXPECT_EQ(std::filesystem::status("tune.rtx").permissions(),
            std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

TEST_F(FilesTest, ImportTakesUtf8AndWindows1252) {
  const std::vector<Case> cases{
      {"import --from rtttl --mode rtttl - -", 0, Eq(kTune), IsEmpty(),
       "Frère: d=4, o=5, b=120 : c, d, 8e., 2p"},
      {"import --from rtttl --mode rtttl - -", 0, Eq(kTune), IsEmpty(),
       "\xEF\xBB\xBF"
       "Frère:d=4,o=5,b=120:c,d,8e.,2p"},
      {"import --from rtttl --mode rtttl - -", 0, Eq(kTune), IsEmpty(), "Fr\xE8re:d=4,o=5,b=120:c,d,8e.,2p"},
      {"import --from emelody --mode rtttl - -", 0, "Unknown:d=4,o=5,b=200:C,D,2E\r\n", IsEmpty(), "c.d.E"},
      {"import --from melody --mode melody - -", 0, "+CD\r\n", IsEmpty(), "+C D"},
      {"import --from rtttl --adapt-t68i --mode imelody - -", 0, HasSubstr("MELODY:c2d2e3.r1\r\n"), IsEmpty(),
       kTune},
      {"import --from rtttl --adapt-t68i --mode rtttl - -", 0, HasSubstr(":"), HasSubstr("not adapted"),
       "a:d=4,o=2,b=120:c,d8"},
      {"import --from rtttl --verbose --mode rtttl - -", 1, IsEmpty(),
       HasSubstr("1: Error in Convert_RTTTL\n1: Failed to make the import\ntrillomat-cli: -: "), "a:d=4"},
  };
  ExpectEach(cases);
}

TEST_F(FilesTest, ExportPrintsTheResultByteForByte) {
  MakeFile("wide.rtx", "a:d=4,o=5,b=120:c5,c8,");
  MakeFile("none.imy", "NAME:none\r\n");
  const std::vector<Case> cases{
      {"export --to rtttl tune.rtx", 0, Eq(kTune.substr(0, kTune.size() - 2)), IsEmpty()},
      {"export --to nokia tune.rtx", 0, testing::StartsWith("0--> Press: 1 * * *\r\n1--> Press: 2\r\n"),
       IsEmpty()},
      {"export --to r320 wide.rtx", 1, IsEmpty(), HasSubstr("wide.rtx: ")},
      {"export --to t39 none.imy", 1, IsEmpty(), HasSubstr("2: Nothing to export\n")},
  };
  ExpectEach(cases);
}

TEST_F(FilesTest, TransposeMovesWithinTheRangeOfTheInput) {
  const std::vector<Case> cases{
      {"transpose --octaves 3 tune.rtx --mode rtttl -", 0, "Fr\xE8re:d=4,o=8,b=120:C,D,8E.,2P\r\n",
       IsEmpty()},
      {"transpose --octaves -1 tune.rtx --mode imelody -", 1, IsEmpty(), HasSubstr("scale 3-6")},
      {"transpose --octaves=-1 - --mode imelody -", 0, HasSubstr("MELODY:*3c2\r\n"), IsEmpty(),
       "MELODY:c2\r\nEND:IMELODY\r\n"},
  };
  ExpectEach(cases);
}

}  // namespace
}  // namespace trillomat
