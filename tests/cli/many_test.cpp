// Many files at once, files that need tidying, and what an export reports.
#include "cli/program.h"

namespace trillomat {
namespace {

using testing::AllOf;
using testing::Eq;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string kClean = "Clean:d=4,o=5,b=120:C,D,8E.,2P\r\n";
const std::string kSharp = "Sharp:d=4,o=5,b=120:c_,d\r\n";

class ManyTest : public ProgramTest {
 protected:
  ManyTest() {
    folder_.Write("clean.rtx", kClean);
    folder_.Write("sharp.rtx", kSharp);
    folder_.Write("bad.imy", "no colon");
    folder_.Write("light.imy", "NAME:a\r\nBEAT:90\r\nMELODY:*4c2ledon*4d3:\r\nEND:IMELODY\r\n");
  }
};

TEST_F(ManyTest, CheckSaysOfEachFileWhatItIs) {
  std::filesystem::create_directories("sub/deep");
  folder_.Write("sub/deep/TUNE.MEL", "CD\r\n");
  folder_.Write("sub/other.txt", "x");
  const std::string sharp =
      "sharp.rtx: reads; 2 elements; 1 of 2 elements was not understood: it is \"c_\" in line 1, column 21; "
      "formats none; phones none; "
      "tidied with 1 change: reads; 2 elements; formats imelody emelody rtttl melody; phones rtttl nokia "
      "t68i t39 "
      "r320\n";
  const std::string inFolder =
      "sub/deep/TUNE.MEL: reads; 2 elements; formats imelody emelody rtttl melody; phones rtttl nokia t68i "
      "t39 "
      "r320\n";
  ExpectEach(
      {{"check clean.rtx", 0, HasSubstr("clean.rtx: reads; 4 elements; formats imelody"), IsEmpty()},
       {"check sharp.rtx sub", 0, Eq(sharp + inFolder),
        Eq("trillomat-cli: sharp.rtx: line 1, column 21: warning: not understood\n"
           "  Sharp:d=4,o=5,b=120:c_,d\n"
           "                      ^~\n")},
       {"check bad.imy clean.rtx gone.mel sub/other.txt", 1,
        AllOf(HasSubstr("bad.imy: does not read: line 1, column 1: "), HasSubstr("\nclean.rtx: reads"),
              HasSubstr("\ngone.mel: does not read: "),
              HasSubstr("\nsub/other.txt: does not read: its name tells no format")),
        Eq("trillomat-cli: bad.imy: line 1, column 1: the line has no \":\"\n  no colon\n  ^~~~~~~~\n"
           "trillomat-cli: 3 of 4 files do not read\n")},
       {"check --mode rtttl -", 0, HasSubstr("-: reads; 2 elements; 1 of 3 elements was not understood"),
        HasSubstr("\n                   ^~\n"), "a:d=4,o=5,b=90:c,so,d"},
       {"check --mode rtttl -", 0, HasSubstr("-: reads; 4 elements"), IsEmpty(), kClean},
       {"check", 2, IsEmpty(), HasSubstr("FILE is required")}});
}

TEST_F(ManyTest, CheckPrintsOneJsonArray) {
  const std::string finding = R"("reads": true, "refusal": null, "elements": 2, "notUnderstood": 0, )"
                              R"("formats": ["imelody", "emelody", "rtttl", "melody"], )"
                              R"("phones": ["rtttl", "nokia", "t68i", "t39", "r320"]})";
  const std::string asItIs = R"("reads": true, "refusal": null, "elements": 2, "notUnderstood": 1, )"
                             R"("formats": [], "phones": [], )";
  const std::string refused = R"({"line": 1, "column": 1, "text": "no colon", "why": ")";
  ExpectEach({{"check --json sharp.rtx", 0,
               "[\n  {\"file\": \"sharp.rtx\", \"format\": \"rtttl\", " + asItIs +
                   R"("tidied": {"changes": 1, )" + finding + "}]\n",
               IsEmpty()},
              {"check --json bad.imy gone.rtx", 1,
               AllOf(HasSubstr("\"reads\": false, \"refusal\": " + refused),
                     HasSubstr(",\n  {\"file\": \"gone.rtx\", \"format\": null, \"reads\": false")),
               Eq("trillomat-cli: 2 of 2 files do not read\n")},
              {"check --json .", 1, HasSubstr("clean.rtx"), HasSubstr("1 of 4 files")}});
}

TEST_F(ManyTest, TidyPutsTheTextRightAndListsWhatItChanged) {
  folder_.Write("two.rtx", "One:d=4,o=5,b=100:c,d\r\nTwo:d=4,o=5,b=100:e,f\r\n");
  folder_.Write("rtttl.imy", kClean);
  const auto lists = HasSubstr("sharp.rtx: line 1, column 21: \"c_\" is now \"c#\": ");
  ExpectEach({{"show --tidy --json sharp.rtx", 0, HasSubstr("\"token\": \"4C#5\""), lists},
              {"show --json sharp.rtx", 0, testing::Not(HasSubstr("C#5")), IsEmpty()},
              {"convert --tidy sharp.rtx - --mode melody", 0, "#CD\r\n", lists},
              {"import --tidy --from rtttl sharp.rtx - --mode melody", 0, "#CD\r\n", lists},
              {"export --tidy --to nokia sharp.rtx", 0, HasSubstr("0--> Press: 1#"), lists},
              {"play --tidy --trace sharp.rtx", 0, testing::StartsWith("0\ttone\t500\t280\n"), lists},
              {"render --tidy sharp.rtx a.wav", 0, IsEmpty(), lists},
              {"show --tidy clean.rtx", 0, HasSubstr("Clean"), IsEmpty()},
              {"convert --tidy two.rtx - --mode melody", 0, "CD\r\n",
               HasSubstr("two.rtx: the first of 2 tunes is taken\n")},
              {"show --tidy rtttl.imy", 0, HasSubstr("Mode      RTTTL"),
               HasSubstr("rtttl.imy: read as RTTTL, which it looks like\n")}});
}

TEST_F(ManyTest, AFolderTakesWhatManyFilesBecome) {
  std::filesystem::create_directory("again");
  folder_.Write("again/clean.rtx", kSharp);
  const std::string failed = "trillomat-cli: 1 of 3 files failed\n";
  ExpectEach(
      {{"convert --to melody --to-folder out clean.rtx bad.imy light.imy", 1, IsEmpty(),
        AllOf(HasSubstr("trillomat-cli: bad.imy: "), HasSubstr(failed))},
       {"convert --to melody --to-folder out clean.rtx", 1, IsEmpty(), HasSubstr("clean.mel exists already")},
       {"convert --force --mode melody --to-folder out clean.rtx again/clean.rtx light.imy", 1, IsEmpty(),
        AllOf(HasSubstr("clean.mel has been written from clean.rtx"), HasSubstr(failed))},
       {"export --to nokia --to-folder keys light.imy sharp.rtx", 0, IsEmpty(),
        HasSubstr("sharp.rtx: warning: 1 of 2")},
       {"export --to rtttl --spelling modern --to-folder keys clean.rtx", 0, IsEmpty(), IsEmpty()},
       {"convert --tidy --to midi --to-folder out sharp.rtx", 0, IsEmpty(), HasSubstr("is now")},
       {"convert --to-folder out clean.rtx", 2, IsEmpty(), HasSubstr("--to-folder needs --to")},
       {"convert --to melody --spelling modern --to-folder out clean.rtx", 2, IsEmpty(),
        HasSubstr("--spelling")},
       {"convert clean.rtx", 2, IsEmpty(), HasSubstr("OUT is required")},
       {"convert clean.rtx a.mel b.mel", 2, IsEmpty(), HasSubstr("b.mel")},
       {"export --to nokia clean.rtx sharp.rtx", 2, IsEmpty(), HasSubstr("sharp.rtx")},
       {"convert --to melody --to-folder clean.rtx sharp.rtx", 1, IsEmpty(),
        HasSubstr("the folder clean.rtx")}});
  EXPECT_EQ(folder_.Read("out/clean.mel"), "CD\r\n");
  EXPECT_THAT(folder_.Read("out/sharp.mid"), testing::StartsWith("MThd"));
  EXPECT_EQ(folder_.Read("keys/clean.rtx"), "Clean:d=4,o=5,b=120:c,d,8e.,2p");
  EXPECT_THAT(folder_.Read("keys/light.txt"), testing::StartsWith("0--> Press: 1\r\n1--> Not supported"));
  EXPECT_THAT(folder_.Names(), testing::IsSupersetOf({"keys", "out", "clean.rtx"}));
}

TEST_F(ManyTest, ExportReportsWhatItLeavesOut) {
  ExpectEach({{"export --to rtttl --report light.imy", 0, "a:d=4,o=6,b=90:C",
               Eq("light.imy: 2 of 3 elements left out: 1 command, 1 dot or triplet\n"
                  "  *4c2 ledon *4d3:\n"
                  "       ^~~~~ element 2 is a command that it lacks\n")},
              {"export --to rtttl light.imy", 0, "a:d=4,o=6,b=90:C", IsEmpty()},
              {"export --to rtttl --report clean.rtx", 0, HasSubstr("C,D"), IsEmpty()}});
}

}  // namespace
}  // namespace trillomat
