#include "cli/program.h"

namespace trillomat {
namespace {

using testing::Eq;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string kTune = "Fr\xE8re:d=4,o=5,b=120:C,D,8E.,2P\r\n";

class FilesTest : public ProgramTest {
 protected:
  FilesTest() { folder_.Write("tune.rtx", kTune); }
};

TEST_F(FilesTest, ConvertWritesEachFormat) {
  ExpectEach(
      {
          {"tune.rtx - --mode imelody", 0,
           "BEGIN:IMELODY\r\nVERSION:1.2\r\nFORMAT:CLASS1.0\r\nNAME:Fr\xE8re\r\nCOMPOSER:\r\nBEAT:"
           "120\r\nSTYLE:"
           "S0\r\nVOLUME:V10\r\nMELODY:*3c2*3d2*3e3.r1\r\nEND:IMELODY\r\n",
           IsEmpty()},
          {"tune.rtx - --mode emelody", 0, "BEGIN:EMELODY\r\nVERSION:1.0\r\nMELODY:c.d.P\r\nEND:EMELODY\r\n",
           IsEmpty()},
          {"tune.rtx a.mel", 0, IsEmpty(), IsEmpty()},
          {"--mode rtttl - -", 0, Eq(kTune), IsEmpty(), kTune},
      },
      "convert ");
  EXPECT_EQ(folder_.Read("a.mel"), "CD\r\n");
}

TEST_F(FilesTest, AnExistingFileIsReplacedOnlyOnRequestAndOnlyBySuccess) {
  folder_.Write("old.imy", "old");
  folder_.Write("bad.rtx", "no colon");
  folder_.Write("high.rtx", "a:d=4,o=8,b=120:c,");
  std::filesystem::create_symlink("gone.mel", folder_.Path() / "link.mel");
  const auto files = folder_.Names();
  const auto exists = [](const std::string& name) {
    return Eq("trillomat-cli: " + name + " exists already; --force replaces it\n");
  };
  for (const std::string command : {"convert", "import --from rtttl", "transpose --octaves 1", "render"}) {
    // Refused before the first line is read.
    ExpectEach({{"bad.rtx old.imy", 1, IsEmpty(), exists("old.imy")},
                {"tune.rtx link.mel", 1, IsEmpty(), exists("link.mel")},
                {"--force bad.rtx old.imy", 1, IsEmpty(), HasSubstr("bad.rtx: ")},
                {"bad.rtx new.imy", 1, IsEmpty(), HasSubstr("bad.rtx: ")}},
               command + " ");
  }
  ExpectEach({{"transpose --force --octaves 1 high.rtx old.imy", 1, IsEmpty(),
               HasSubstr("2: All notes must be within scale 3-6, currently note 1 is incorrect\n")}});
  EXPECT_EQ(folder_.Read("old.imy"), "old");
  EXPECT_EQ(folder_.Names(), files);

  const std::string longest = std::string(251, 'x') + ".mel";
  ExpectEach({{"--force tune.rtx old.imy", 0, IsEmpty(), IsEmpty()},
              {"--force tune.rtx link.mel", 0, IsEmpty(), IsEmpty()},
              {"tune.rtx /dev/null --mode melody", 0, IsEmpty(), IsEmpty()},
              {"tune.rtx /dev/stdout --mode melody", 0, "CD\r\n", IsEmpty()},
              {"tune.rtx " + longest, 0, IsEmpty(), IsEmpty()},
              {"--force tune.rtx " + longest, 0, IsEmpty(), IsEmpty()}},
             "convert ");
  EXPECT_THAT(folder_.Read("old.imy"), HasSubstr("MELODY:*3c2"));
  EXPECT_EQ(folder_.Read("gone.mel"), "CD\r\n");
}

TEST_F(FilesTest, TheFileThatIsReadIsReplacedInItsOwnFormatOnly) {
  std::filesystem::create_hard_link(folder_.Path() / "tune.rtx", folder_.Path() / "hard.imy");
  std::filesystem::create_symlink("tune.rtx", folder_.Path() / "link.rtx");
  const auto lost = HasSubstr(" is the file that is read");
  ExpectEach({{"render --force tune.rtx tune.rtx", 1, IsEmpty(), lost},
              {"render --force --mode rtttl - link.rtx <tune.rtx", 1, IsEmpty(), lost},
              {"convert --force link.rtx hard.imy", 1, IsEmpty(), lost},
              {"transpose --force --octaves 0 tune.rtx hard.imy", 1, IsEmpty(), lost},
              {"import --force --from emelody tune.rtx link.rtx", 1, IsEmpty(), lost},
              {"import --force --from rtttl tune.rtx link.rtx", 0, IsEmpty(), IsEmpty()}});
  EXPECT_EQ(folder_.Read("tune.rtx"), kTune);
}

TEST_F(FilesTest, ImportTakesUtf8AndWindows1252) {
  ExpectEach({
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
      {"import --from rtttl --adapt-t68i --mode rtttl - -", 0, HasSubstr(":"),
       HasSubstr("trillomat-cli: -: not adapted: "), "a:d=4,o=2,b=120:c,d8"},
      {"import --from rtttl --verbose --mode rtttl - -", 1, IsEmpty(),
       HasSubstr("1: Error in Convert_RTTTL\n1: Failed to make the import\ntrillomat-cli: -: "), "a:d=4"},
  });
}

TEST_F(FilesTest, ExportPrintsTheResultByteForByte) {
  folder_.Write("wide.rtx", "a:d=4,o=5,b=120:c5,c8,");
  folder_.Write("none.imy", "NAME:none\r\n");
  ExpectEach({
      {"export --to rtttl tune.rtx", 0, Eq(kTune.substr(0, kTune.size() - 2)), IsEmpty()},
      {"export --to nokia tune.rtx", 0, testing::StartsWith("0--> Press: 1 * * *\r\n1--> Press: 2\r\n"),
       IsEmpty()},
      {"export --to r320 wide.rtx", 1, IsEmpty(), HasSubstr("wide.rtx: ")},
      {"export --to t39 none.imy", 1, IsEmpty(), HasSubstr("2: Nothing to export\n")},
  });
}

TEST_F(FilesTest, RtttlIsSpelledForTodaysPlayersOnRequest) {
  folder_.Write("name.imy", "NAME:Am:I\r\nBEAT:90\r\nMELODY:*4b3.*4#c2*5d2\r\nEND:IMELODY\r\n");
  const std::string modern = "Am:d=4,o=6,b=90:8b.,c#,d7";
  const auto warns = HasSubstr(
      "warning: the name \"Am:I\" holds \":\", which ends a name in RTTTL: it will be "
      "read back as \"Am\"");
  const auto misuse = HasSubstr("--spelling is for RTTTL alone");
  ExpectEach(
      {{"export --to rtttl --spelling modern name.imy", 0, Eq(modern), warns},
       {"export --to rtttl --spelling classic name.imy", 0, "Am:I:d=4,o=6,b=90:8H.,C#,D7", warns},
       {"export --to rtttl --spelling modern tune.rtx", 0, "Fr\xE8re:d=4,o=5,b=120:c,d,8e.,2p", IsEmpty()},
       {"convert --spelling modern name.imy a.rtx", 0, IsEmpty(), warns},
       {"convert --spelling modern a.rtx - --mode rtttl", 0, modern + "\r\n", IsEmpty()},
       {"export --to nokia --spelling modern tune.rtx", 2, IsEmpty(), misuse},
       {"convert --spelling classic tune.rtx a.mel", 2, IsEmpty(), misuse},
       {"convert --spelling odd tune.rtx b.rtx", 2, IsEmpty(), HasSubstr("odd")}});
  EXPECT_EQ(folder_.Read("a.rtx"), modern + "\r\n");
}

}  // namespace
}  // namespace trillomat
