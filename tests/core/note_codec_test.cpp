#include "core/note_codec.h"

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

class NoteCodecTest : public testing::Test {
 protected:
  FakeLog log_;
  NoteCodec codec_{log_};
};

// What a token means: "OCTAVE NOTE DURATION EXTRA", or the command itself.
using Meanings = std::vector<std::pair<const char*, const char*>>;

TEST_F(NoteCodecTest, Decodes) {
  codec_.defaults = {.octave = 4, .duration = 0.5F};
  const auto expect = [this](FormatMode mode, const Meanings& cases) {
    for (const auto& [token, note] : cases) {
      const MelodyNote decoded = codec_.DecodeNote(token, mode);
      EXPECT_EQ(Described(decoded), note) << static_cast<int>(mode) << " " << token;
      EXPECT_FALSE(decoded.NotSupported) << token;
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
  EXPECT_THAT(log_.lines, IsEmpty());
}

TEST_F(NoteCodecTest, DecodingLogsWhatItCannotRead) {
  using Case = std::tuple<FormatMode, std::string, std::string>;
  const Case cases[] = {{I, "x", "1: Could not decode the note....-->x"},
                        {I, "", "1: Could not decode the note....-->"},
                        {I, "c7", "2: Unknown duration-->7"},
                        {I, "*4c", "2: Unknown duration-->"},
                        {R, "04c", "2: Unknown duration-->04"},
                        {R, "8*c", "2: Unknown duration-->8*"}};
  for (const auto& [mode, token, line] : cases) {
    log_.lines.clear();
    EXPECT_EQ(codec_.DecodeNote(token, mode).Duration, 0.0F) << token;
    EXPECT_THAT(log_.lines, ElementsAre(line));
  }
}

TEST_F(NoteCodecTest, Encodes) {
  codec_.defaults = {.octave = 4, .duration = 1.0F};
  const auto expect = [this](FormatMode mode, const Meanings& cases) {
    for (const auto& [element, token] : cases) {
      MelodyNote note = NoteOf(element);
      const bool lacks = std::string_view(token).starts_with('[');
      note.NotSupported = !lacks;
      EXPECT_EQ(codec_.EncodeNote(note, mode), token) << static_cast<int>(mode) << " " << element;
      EXPECT_EQ(note.NotSupported, lacks) << token;
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
  MelodyNote nameless = Tone("", 3);
  EXPECT_EQ(codec_.EncodeNote(nameless, E), ".");
}

TEST_F(NoteCodecTest, EncodingSaysWhatTheDefaultsLeaveOutAndWhatHasNoName) {
  struct Case {
    MelodyDefaults defaults;
    const char* note;
    const char* token;
    std::vector<std::string> log;
  };
  const Case cases[] = {
      // What equals the default is still judged; without a default every token is complete.
      {{7, 0.0F}, "7 c 0 1", "[C]", {"1: Unknown duration-->0"}},
      {{-1, -1.0F}, "4 a 1 1", "4A6", {}},
      {{4, 1.0F}, "4 #e 3 1", "[32]", {"1: Unknown duration-->3", "1: Couldnot find the note"}}};
  for (const Case& c : cases) {
    log_.lines.clear();
    codec_.defaults = c.defaults;
    MelodyNote note = NoteOf(c.note);
    EXPECT_EQ(codec_.EncodeNote(note, R), c.token);
    EXPECT_EQ(log_.lines, c.log);
  }
}

}  // namespace
}  // namespace trillomat
