// How the program is used, and what it shows of a file.

#include <algorithm>
#include <fstream>
#include <sstream>

#include "cli/program.h"

namespace trillomat {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

TEST_F(ProgramTest, HelpAndVersionSucceedAndWrongUsageIsTwo) {
  folder_.Write("a.imy", folder_.Read(TEST_DATA_DIR "/plain.imy"));
  folder_.Write("a.txt", "x");
  const auto complains = [](const std::string& about) {
    return AllOf(StartsWith("trillomat-cli: "), HasSubstr(about));
  };
  ExpectEach({
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
      {"convert a.imy b.mp3", 2, IsEmpty(), complains("b.mp3")},
      {"import --from imelody a.txt b.imy", 2, IsEmpty(), complains("imelody")},
      {"import a.txt b.imy", 2, IsEmpty(), complains("--from is required")},
      {"export --to r380 a.imy", 2, IsEmpty(), complains("r380")},
      {"transpose --octaves one a.imy b.imy", 2, IsEmpty(), complains("one")},
      {"transpose --octaves 40000 a.imy b.imy", 2, IsEmpty(), complains("40000")},
      {"play --output organ a.imy", 2, IsEmpty(), complains("organ")},
      {"play --trace --endless 0 a.imy", 2, IsEmpty(), complains("--endless")},
      {"show gone.imy", 1, IsEmpty(), complains("gone.imy: ")},
      {"import --from rtttl gone.txt b.imy", 1, IsEmpty(), complains("gone.txt: ")},
  });
  EXPECT_THAT(folder_.Names(), testing::ElementsAre("a.imy", "a.txt"));
}

// What stands behind "  trillomat-cli " or in a pipe with it, in the texts for users.
std::vector<std::string> ExamplesIn(const std::string& text) {
  std::vector<std::string> examples;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    line.erase(std::remove(line.begin(), line.end(), '\\'), line.end());  // as the manual escapes it
    const bool isPiped = line.find("| trillomat-cli ") != std::string::npos;
    if (line.starts_with("  trillomat-cli ") || isPiped) examples.push_back(line);
  }
  return examples;
}

TEST_F(ProgramTest, TheExamplesWorkInAFolderOfTheSamples) {
  std::string help;
  for (const std::string command :
       {"show", "check", "convert", "import", "export", "transpose", "play", "render"}) {
    const Ran ran = Run(command + " --help");
    EXPECT_THAT(ExamplesIn(ran.out), testing::Not(IsEmpty())) << command;
    help += ran.out;
  }
  // What sounds is ended soon, as a user would do it.
  folder_.Write("trillomat-cli",
                "#!/bin/sh\nexec timeout --preserve-status -s INT 1 '" CLI_PROGRAM "' \"$@\"\n");
  std::filesystem::permissions("trillomat-cli", std::filesystem::perms::owner_all);
  std::ostringstream manual;
  manual << std::ifstream(CLI_MANUAL).rdbuf();
  for (const std::string& text : {help, manual.str()}) {
    const TempFolder samples;
    std::filesystem::copy(CLI_SAMPLES, samples.Path());
    for (const std::string& example : ExamplesIn(text)) {
      folder_.Write("example", "cd " + samples.Path().string() + "\n" + example + "\n");
      const Ran ran = Run("", "", "PATH=" + folder_.Path().string() + ":$PATH sh example");
      EXPECT_EQ(ran.status, 0) << example;
      EXPECT_THAT(ran.err, testing::Not(HasSubstr("trillomat-cli: "))) << example;
    }
  }
}

TEST_F(ProgramTest, OutputThatCannotBeWrittenIsNoticed) {
  folder_.Write("a.imy", folder_.Read(TEST_DATA_DIR "/plain.imy"));
  ExpectEach({
      {"show a.imy >/dev/full", 1, IsEmpty(), HasSubstr("standard output")},
      {"--version >&-", 1, IsEmpty(), HasSubstr("standard output")},
      {"--help >/dev/full", 1, IsEmpty(), HasSubstr("standard output")},
      {"show --help >/dev/full", 1, IsEmpty(), HasSubstr("standard output")},
      {"show --mode imelody - </dev/zero", 1, IsEmpty(), HasSubstr("larger than 64 MiB")},
      {"convert a.imy no/such/folder.imy", 1, IsEmpty(), HasSubstr("cannot write no/such/folder.imy")},
      {"render a.imy .", 1, IsEmpty(), HasSubstr("cannot write .")},
      {"show .", 2, IsEmpty(), HasSubstr("--mode")},
      {"show --mode imelody .", 1, IsEmpty(), HasSubstr(".: ")},
  });
}

TEST_F(ProgramTest, JsonHoldsEveryFieldAndEscapesText) {
  folder_.Write(
      "a.imy",
      "NAME:\"Fr\xE8re\" \\ \x01\r\nCOMPOSER:me\r\nBEAT:90\r\nSTYLE:S1\r\nVOLUME:V16\r\nVERSION:1.2\r\n"
      "FORMAT:CLASS1.0\r\nMELODY:*5#c3;r2.ledon\r\nEND:IMELODY\r\n");
  const Ran imelody = Run("show --json a.imy");
  EXPECT_EQ(imelody.status, 0);
  EXPECT_EQ(
      imelody.out,
      R"({"header": {"name": "\"Frère\" \\ \u0001", "composer": "me", "bpm": 90, "style": "S1", )"
      R"("volume": "V10", "version": "1.2", "format": "CLASS1.0", "loop": 0},)"
      "\n \"elements\": [\n"
      R"(  {"octave": 5, "note": "#c", "special": "", "duration": 0.5, "extra": 0.6666667, "token": "*5#c3;"},)"
      "\n"
      R"(  {"octave": -1, "note": "r", "special": "", "duration": 1, "extra": 1.5, "token": "r2."},)"
      "\n"
      R"(  {"octave": -1, "note": "", "special": "ledon", "duration": 0, "extra": 0, "token": "ledon"}]})"
      "\n");

  folder_.Write("a.rtx", "a:d=4,o=5,b=63,l=3:c,\r\n");
  const Ran rtttl = Run("show --json a.rtx");
  EXPECT_THAT(rtttl.out,
              AllOf(HasSubstr("\"loop\": 3}"), HasSubstr("\"token\": \"4C5\""),
                    HasSubstr("\"special\": \"@3)\", \"duration\": 0, \"extra\": 0, \"token\": \"\"}")));
}

TEST_F(ProgramTest, TheLogGoesToStandardErrorByLevel) {
  folder_.Write("a.imy", "BEGIN:IMELODY\r\nMELODY:c9\r\nEND:IMELODY\r\n");
  const std::string level2 = "2: Unknown duration-->9\n";
  const Ran quiet = Run("show a.imy");
  EXPECT_EQ(quiet.err, level2);
  const Ran verbose = Run("--verbose show a.imy");
  EXPECT_THAT(verbose.err, testing::StartsWith("1: Found an other tag - unknown-->BEGIN\n" + level2));
  EXPECT_EQ(Run("show --verbose a.imy").err, verbose.err);
  EXPECT_EQ(quiet.out, verbose.out);
}

}  // namespace
}  // namespace trillomat
