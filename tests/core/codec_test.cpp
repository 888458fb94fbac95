#include "core/codec.h"

#include <gmock/gmock.h>

#include "support/fakes.h"
#include "support/sample_notes.h"

namespace trillomat {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr FormatMode I = FormatMode::IMelody;
constexpr FormatMode E = FormatMode::EMelody;
constexpr FormatMode R = FormatMode::Rtttl;
constexpr FormatMode M = FormatMode::Melody;

// The element of a description that Described gives.
Element ElementOf(const std::string& description) {
  if (description.find(' ') == std::string::npos) return Command(description);
  std::istringstream in(description);
  std::string note;
  Element element;
  in >> element.octave >> note >> element.duration >> element.extra;
  element.SetNote(note);
  return element;
}

// What a token means: "OCTAVE NOTE DURATION EXTRA", or the command itself.
using Meanings = std::vector<std::pair<const char*, const char*>>;

TEST(CodecTest, Decodes) {
  FakeLog log;
  const auto expect = [&log](FormatMode mode, const Meanings& cases) {
    for (const auto& [token, element] : cases) {
      const Element decoded = Decode(token, mode, {.octave = 4, .duration = 0.5F}, log);
      EXPECT_EQ(Described(decoded), element) << static_cast<int>(mode) << " " << token;
    }
  };
  const Meanings imelody = {{"*4c2", "4 c 1 1"},
                            {"c2", "4 c 1 1"},
                            {"#c3.", "4 #c 0.5 1.5"},
                            {"*5#f3:", "5 #f 0.5 1.75"},
                            {"&b0;", "4 &b 4 0.6666667"},
                            {"#&b0", "4 &b 4 1"},
                            {"c2.;", "4 c 1 0.6666667"},
                            {"C2", "4 C 1 1"},
                            {"r1", "-1 r 2 1"},
                            {"#r1", "-1 r 2 1"},
                            {"R1", "4 R 2 1"},
                            {"*xc2", "0 c 1 1"}};
  expect(I, imelody);
  const Meanings commands = {{"ledon", "ledon"}, {"V+", "V+"},   {"V12", "V12"},
                             {"(", "("},         {"@3)", "@3)"}, {"@3.)", "@3)"}};
  expect(I, commands);
  const Meanings emelody = {{"+C.", "4 c 4 1"},   {"++#d", "5 #d 0.5 1"},     {"+++d", "5 +d 0.5 1"},
                            {"(b)E", "3 &e 2 1"}, {"#(b)e", "3 #(b)e 0.5 1"}, {"g.", "3 g 1 1"},
                            {"P", "-1 p 2 1"},    {"R.", "3 r 4 1"},          {"1", "3 1 2 1"}};
  expect(E, emelody);
  const Meanings rtttl = {{"16c#6", "4 #c 0.25 1"}, {"c", "4 c 0.5 1"},   {"8c.", "4 c 0.5 1.5"},
                          {"8c.6", "4 c 0.5 1.5"},  {"r", "-1 r 0.5 1"},  {"r5", "3 r 0.5 1"},
                          {"2R", "4 R 2 1"},        {"c1", "-1 c 0.5 1"}, {"c15", "3 c1 0.5 1"},
                          {"16", "4  0.25 1"},      {"", "4  0.5 1"},     {"c_5", "3 c_ 0.5 1"},
                          {"8s", "0 Error 0 0"},    {"o", "0 Error 0 0"}};
  expect(R, rtttl);
  const Meanings melody = {{"C", "3 C 1 1"},     {"+c", "4 c 0.5 1"}, {"++#c", "4 #c 0.5 1"},
                           {"(b)A", "3 &A 1 1"}, {"p", "-1 p 0.5 1"}, {"R", "3 R 1 1"}};
  expect(M, melody);
  EXPECT_THAT(log.lines, IsEmpty());
}

TEST(CodecTest, DecodingLogsWhatItCannotRead) {
  using Case = std::tuple<FormatMode, std::string, std::string>;
  const Case cases[] = {{I, "x", "1: Could not decode the note....-->x"},
                        {I, "", "1: Could not decode the note....-->"},
                        {I, "c7", "2: Unknown duration-->7"},
                        {I, "*4c", "2: Unknown duration-->"},
                        {R, "04c", "2: Unknown duration-->04"},
                        {R, "8*c", "2: Unknown duration-->8*"}};
  for (const auto& [mode, token, line] : cases) {
    FakeLog log;
    EXPECT_EQ(Decode(token, mode, {}, log).duration, 0.0F) << token;
    EXPECT_THAT(log.lines, ElementsAre(line));
  }
}

TEST(CodecTest, Encodes) {
  FakeLog log;
  const auto expect = [&log](FormatMode mode, const Meanings& cases) {
    for (const auto& [description, token] : cases) {
      const Element element = ElementOf(description);
      const bool supported = !std::string_view(token).starts_with('[');
      EXPECT_EQ(Encode(element, mode, {}, log), (Token{token, supported})) << description;
      EXPECT_EQ(Supports(element, mode), supported) << static_cast<int>(mode) << " " << description;
      EXPECT_EQ(SupportedText(element, mode, {}, log), supported ? token : "") << description;
    }
  };
  const Meanings imelody = {
      {"4 c 1 1", "*4c2"},    {"5 #f 0.5 1.5", "*5#f3."}, {"4 &b 2 0.6666667", "*4&b1;"},
      {"3 &A 1 1", "*3&a2"},  {"9 c 1 1", "[*4c2]"},      {"-1 c 1 1", "[*4c2]"},
      {"-1 r 1 1.75", "r2:"}, {"3 R 0.5 1", "r3"},        {"4 c 0 1", "*4c"},
      {"@0)", "@0)"}};
  expect(I, imelody);
  const Meanings emelody = {{"4 #c 4 1", "+#C."}, {"5 &e 0.5 1", "++(b)e"}, {"3 G 1 1", "g."},
                            {"3 g 2 1", "G"},     {"6 g 2 1", "[G]"},       {"3 g 0.25 1", "[g]"},
                            {"3 g 0 1", "[g]"},   {"3 g 0.5 1.5", "[g]"},   {"-1 r 4 1", "P."},
                            {"-1 r 2 1", "P"},    {"-1 r 1 1", ""},         {"-1 r 1 1.5", "[]"},
                            {"-1 r 0.5 1", "p."}, {"-1 r 0.125 1", "[p.]"}, {"V+", ""}};
  expect(E, emelody);
  const Meanings rtttl = {{"3 #c 0.5 1.5", "8C#5."},
                          {"4 b 1 1", "H"},
                          {"6 &b 0.125 1", "32A#8"},
                          {"4 C 4 1", "1C"},
                          {"7 c 1 1", "[C4]"},
                          {"3 c 0.5 1.75", "[8C5:]"},
                          {"4 c 0.5 0.6666667", "[8C;]"},
                          {"4 x 0.5 1", "[8]"},
                          {"4 c 0 1", "[32C]"},
                          {"-1 r 1 1", "P"},
                          {"-1 r 0.25 1", "16P"},
                          {"-1 r 0.5 1.5", "8P."},
                          {"vibeon", ""}};
  expect(R, rtttl);
  const Meanings melody = {{"4 c 1 1", "+C"},  {"3 &a 0.5 1", "(b)a"}, {"3 #F 0.5 1", "#f"},
                           {"3 c 2 1", "[C]"}, {"3 c 0.25 1", "[c]"},  {"5 c 0.5 1", "[c]"},
                           {"-1 r 1 1", "p"},  {"-1 R 2 1", "[p]"},    {"-1 r 0.5 0.6666667", "[p]"},
                           {"(", ""}};
  expect(M, melody);
  EXPECT_EQ(Encode(Note("", 3), E, {}, log).text, ".");
  // A damaged file's note that begins with the bracket is taken for an unsupported one.
  EXPECT_TRUE(Supports(Note("[", 3, 0.5F), E));
  EXPECT_EQ(SupportedText(Note("[", 3, 0.5F), E, {}, log), "");
}

TEST(CodecTest, EncodingSaysWhatTheDefaultsLeaveOutAndWhatHasNoName) {
  struct Case {
    TokenDefaults defaults;
    const char* element;
    const char* token;
    std::vector<std::string> log;
  };
  const Case cases[] = {
      // A field that equals the default is left out, but can make the token unsupported; without defaults
      // nothing is left out.
      {{7, 0.0F}, "7 c 0 1", "[C]", {"1: Unknown duration-->0"}},
      {kNoTokenDefaults, "4 a 1 1", "4A6", {}},
      {{4, 1.0F}, "4 #e 3 1", "[32]", {"1: Unknown duration-->3", "1: Couldnot find the note"}}};
  for (const Case& c : cases) {
    FakeLog log;
    EXPECT_EQ(Encode(ElementOf(c.element), R, c.defaults, log).text, c.token);
    EXPECT_EQ(log.lines, c.log);
  }
}

}  // namespace
}  // namespace trillomat
