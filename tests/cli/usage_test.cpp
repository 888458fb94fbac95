#include "cli/program.h"

namespace trillomat {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class UsageTest : public ProgramTest {};

TEST_F(UsageTest, HelpAndVersionSucceedAndWrongUsageIsTwo) {
  MakeFile("a.imy", FileBytes(TEST_DATA_DIR "/plain.imy"));
  MakeFile("a.txt", "x");
  const auto complains = [](const std::string& about) {
    return AllOf(StartsWith("trillomat-cli: "), HasSubstr(about));
  };
  const std::vector<Case> cases{
      {"--help", 0, HasSubstr("transpose"), IsEmpty()},
      {"play --help", 0, AllOf(HasSubstr("--trace"), HasSubstr("--endless")), IsEmpty()},
      {"--version", 0, "trillomat-cli " CLI_VERSION "\n", IsEmpty()},
      {"", 2, IsEmpty(), complains("no command")},
      {"sing a.imy", 2, IsEmpty(), complains("sing")},
      {"show", 2, IsEmpty(), complains("FILE is required")},
      {"show a.imy b.imy", 2, IsEmpty(), complains("b.imy")},
      {"show --colour a.imy", 2, IsEmpty(), complains("--colour")},
      {"show a.txt", 2, IsEmpty(), complains(".imy, .emy, .rtx or .mel")},
      {"show --mode midi a.txt", 2, IsEmpty(), complains("midi")},
      {"show -", 2, IsEmpty(), complains("--mode")},
      {"convert a.imy b.mid", 2, IsEmpty(), complains("b.mid")},
      {"import --from imelody a.txt b.imy", 2, IsEmpty(), complains("imelody")},
      {"import a.txt b.imy", 2, IsEmpty(), complains("--from is required")},
      {"export --to r380 a.imy", 2, IsEmpty(), complains("r380")},
      {"transpose --octaves one a.imy b.imy", 2, IsEmpty(), complains("one")},
      {"transpose --octaves 40000 a.imy b.imy", 2, IsEmpty(), complains("40000")},
      {"play --output organ a.imy", 2, IsEmpty(), complains("organ")},
      {"play --trace --endless 0 a.imy", 2, IsEmpty(), complains("--endless")},
      {"show gone.imy", 1, IsEmpty(), complains("gone.imy: ")},
      {"import --from rtttl gone.txt b.imy", 1, IsEmpty(), complains("gone.txt: ")},
  };
  ExpectEach(cases);
  EXPECT_THAT(Files(), testing::ElementsAre("a.imy", "a.txt"));
}

TEST_F(UsageTest, OutputThatCannotBeWrittenIsNoticed) {
  MakeFile("a.imy", FileBytes(TEST_DATA_DIR "/plain.imy"));
  const std::vector<Case> cases{
      {"show a.imy >/dev/full", 1, IsEmpty(), HasSubstr("standard output")},
      {"convert a.imy no/such/folder.imy", 1, IsEmpty(), HasSubstr("cannot write no/such/folder.imy")},
      {"convert --mode imelody --force a.imy /dev/full", 1, IsEmpty(), HasSubstr("cannot write /dev/full")},
      {"render a.imy .", 1, IsEmpty(), HasSubstr("cannot write .")},
      {"show .", 2, IsEmpty(), HasSubstr("--mode")},
      {"show --mode imelody .", 1, IsEmpty(), HasSubstr(".: ")},
  };
  ExpectEach(cases);
}

}  // namespace
}  // namespace trillomat
