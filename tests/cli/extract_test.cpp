// Errors as they are shown: with the place marked in the text that they are about.
#include "cli/program.h"
#include "cli/shown_line.h"

namespace trillomat {
namespace {

using testing::EndsWith;

struct Wrong {
  std::string file;
  std::string bytes;
  std::string arguments;
  std::string message;  ///< its end
};

TEST_F(ProgramTest, ErrorsMarkTheirPlaceInTheText) {
  const std::string tune = "a:d=4,o=5,b=120:";
  const std::string tags = ". Each line begins with a tag and \":\", like \"NAME:Tune\".\n";
  const std::string letters = ". Each note ends with its letter, a to h, or p for a pause.\n";
  const std::vector<Wrong> wrongs{
      {"a.imy", "NAME:a\r\nc4d&4\r\n", "show",
       "trillomat-cli: a.imy: line 2, column 1: the line has no \":\" (\"c4d&4\")" + tags +
           "  c4d&4\n  ^~~~~\n"},
      {"a.imy", "NAME:a\n\nBEAT:90\n", "show", "(an empty line)" + tags + "\n  ^\n"},
      // What is missing is marked where it should begin.
      {"a.rtx", tune, "export --to t39", "\n  " + tune + "\n                  ^\n"},
      // Columns are characters, and the caret stands under those that take two of the terminal.
      {"a.mel", "c\xE9\td\x1B\x9D#", "show",
       "line 1, column 5: the notes end without a tone letter (\"?\xC2\x9D#\")" + letters +
           "  c\xC3\xA9 d??#\n      ^~~\n"},
      {"a.mel",
       "\xEF\xBB\xBF"
       "\xC3\xA9\xF0\x9F\x8E\xB5"
       "d#",
       "play --trace",
       "a.mel: line 1, column 4: the notes end without a tone letter (\"#\")" + letters +
           "  \xC3\xA9\xF0\x9F\x8E\xB5"
           "d#\n      ^\n"},
      {"a.rtx", tune + "c,\xC3\xA9\xF0\x9F\x8E\xB5,d\n", "check",
       "a.rtx: line 1, column 19: warning: not understood\n  " + tune +
           "c,\xC3\xA9\xF0\x9F\x8E\xB5,d\n                    ^~~\n"},
      {"a.rtx", tune + "c,85_,d,x\n", "convert --force",
       "a.rtx: warning: 2 of 4 elements were not understood, the first is \"85_\" in line 1, column 19\n  " +
           tune + "c,85_,d,x\n                    ^~~\n"},
      {"a.rtx", "\xC3\xA9:d=4,o=5,b=120:", "show --tidy",
       "\n  \xC3\xA9:d=4,o=5,b=120:\n                  ^ in the text as it was tidied\n"},
      {"a.rtx", tune + "c5,c8", "export --to r320",
       "a.rtx: the melody spans octaves 3 to 6, which is more than the 2 octaves of the R320 and T28\n"
       "  4C5 4C8\n      ^~~ element 2 is too far from the octaves before it\n"},
      {"a.rtx", tune + "c,p,d,e8,f", "transpose --octaves 1 --force",
       "a.rtx: not moved, and nothing written\n  4C5 4P 4D5 4E8 4F5\n"
       "             ^~~ element 4 would leave the octaves of its format\n"}};
  for (const Wrong& wrong : wrongs) {
    folder_.Write(wrong.file, wrong.bytes);
    const std::string out = wrong.arguments.ends_with("--force") ? " b.rtx" : "";
    EXPECT_THAT(Run(wrong.arguments + ' ' + wrong.file + out).err, EndsWith(wrong.message)) << wrong.bytes;
  }
}

TEST(ShownLineTest, ALineIsCutAroundItsMark) {
  const std::string line = "0123456789abcdefghijklmnopqrstuvwxyz";
  const std::tuple<size_t, Mark, std::string> cases[] = {
      {39, {35, 1}, "  " + line + "\n  " + std::string(35, ' ') + "^\n"},
      {23, {0, 40}, "  0123456789abcdefg...\n  ^~~~~~~~~~~~~~~~~\n"},
      {23, {18, 2}, "  ...bcdefghijklmno...\n            ^~\n"},
      {23, {36, 0}, "  ...jklmnopqrstuvwxyz\n" + std::string(22, ' ') + "^\n"},
      {5, {18, 2}, "  ......\n     ^\n"},
      {0, {18, 2}, "  ......\n     ^\n"}};
  for (const auto& [columns, mark, text] : cases) EXPECT_EQ(MarkedLine(line, mark, columns), text) << columns;
  std::string longLine;
  for (int i = 0; i < 300'000; ++i) longLine += "c\xC3\xA9,";
  EXPECT_EQ(MarkedLine(longLine, {450'000, 2}, 23),
            "  ...,c\xC3\xA9,c\xC3\xA9,c\xC3\xA9,c\xC3\xA9,c...\n            ^~\n");
}

}  // namespace
}  // namespace trillomat
