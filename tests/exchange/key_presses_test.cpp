// The key presses of the four phones, through the public export.
#include <gmock/gmock.h>

#include <map>
#include <sstream>

#include "core/tone.h"
#include "exchange/export.h"
#include "support/fakes.h"
#include "support/sample_notes.h"

namespace trillomat {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr float kTriplet = kDurationExtras[3];

struct Exported {
  Result<std::string> text;
  std::vector<std::string> log;
};

Exported Export(Phone phone, const ElementList& elements) {
  FakeServices fake;
  Result<std::string> text = Export(phone, {.elements = elements, .info = {}}, fake.services);
  return {std::move(text), fake.log.lines};
}

// The Result for `lines`: numbered, each with a line end.
std::string Numbered(const std::vector<std::string>& lines) {
  std::string text;
  for (size_t i = 0; i < lines.size(); ++i) text += std::to_string(i) + "--> " + lines[i] + "\r\n";
  return text;
}

void ExpectLines(Phone phone, const ElementList& notes, const std::vector<std::string>& lines) {
  const Exported exported = Export(phone, notes);
  EXPECT_EQ(*exported.text, Numbered(lines));
  EXPECT_THAT(exported.log, IsEmpty());
}

std::string HoldLine(const std::string& key, const std::string& until, const std::string& behind) {
  return "Hold: " + key + " until " + until + " Then press: " + behind;
}

TEST(KeyPresses, EveryToneWhateverItsCase) {
  // Of quarter notes: the keys of the Nokia and of the T68i, the key that is held on the T39 and R320, and
  // what is pressed there afterwards.
  const ToneTable<const char*> keys{"1 1 1 0",    "1# 1# 1 #0",  "1# 2# 2 ##0", "2 2 2 0",    "2# 2## 2 #0",
                                    "2# 3# 3 #0", "3 3 3 0",     "4 4 4 0",     "4# 4# 4 #0", "4# 5# 5 ##0",
                                    "5 5 5 0",    "5# 5## 5 #0", "5# 6# 6 ##0", "6 6 6 0",    "6# 6## 6 #0",
                                    "6# 7# 7 #0", "7 7 7 0"};
  for (size_t i = 0; i < kTones.size(); ++i) {
    std::istringstream words(keys.at(i));
    std::string nokia, t68i, held, behind;
    words >> nokia >> t68i >> held >> behind;
    std::string upper(kTones.at(i));
    upper.back() = static_cast<char>(upper.back() - 'a' + 'A');
    for (const std::string& note : {std::string(kTones.at(i)), upper}) {
      ExpectLines(Phone::Nokia, {Note(note)}, {"Press: " + nokia});
      ExpectLines(Phone::T68i, {Note(note)}, {"Press: " + t68i});
      ExpectLines(Phone::T39, {Note(note)}, {HoldLine(held, "lowercase with a \".\"", behind)});
      ExpectLines(Phone::R320, {Note(note)}, {HoldLine(held, "uppercase.", behind)});
    }
  }
}

TEST(KeyPresses, NokiaStepsThroughOctavesAndLengths) {
  ExpectLines(Phone::Nokia,
              {Note("c", 3, 0.5F), Note("g", 3, 1.0F, 1.5F), Note("c", 6, 4.0F), Note("c", 4, 0.125F),
               Note("c", 5, 4.0F)},
              {"Press: 1 * * * 8", "Press: (hold) 5 9", "Press: 1 * * * 9 9", "Press: 1 * * 8 8 8 8 8",
               "Press: 1 * 9 9 9 9 9"});
}

TEST(KeyPresses, NokiaPausesCommandsAndATonesMissingOctave) {
  ExpectLines(Phone::Nokia,
              {Rest(0.5F), Rest(1.0F, 1.5F), Rest(1.0F, 1.5F), Rest(2.0F, kTriplet), Rest(2.0F, 1.75F),
               Note("R", -1), Command("V10"), Command("ledon"), Note("a", 4, 1.0F, kTriplet)},
              {"Press: 0 8", "Press and hold 0  9", "Press and hold 0 ", "Press and hold 0 \r\n 9",
               "Press and hold 0 \r\n 9\r\n", "Press: 0 8", "Not supported", "Not supported", "Press: 6"});
  ExpectLines(Phone::Nokia, {Rest(1.0F, 1.75F)}, {""});
  ExpectLines(Phone::Nokia, {Note("c", 6), Note("d", -1), Note("e", 3)},
              {"Press: 1 * *", "Press: 2", "Press: 3 *"});
}

TEST(KeyPresses, T68iTypesWithoutBlanks) {
  ExpectLines(Phone::T68i,
              {Note("c", 5, 2.0F), Note("d", 4, 1.0F, 1.5F), Note("e", 7, 0.25F, 1.75F), Rest(1.0F, 1.5F),
               Rest(4.0F, kTriplet), Note("a", -1, 4.0F)},
              {"Press: 109", "Press: 20008OptionKey 6Down Yes", "Press: 300088OptionKey 6Down Down Yes",
               "Press: *99OptionKey 6Down Yes", "Press: *99OptionKey 6Down Down Down Yes", "Press: 60"});
}

TEST(KeyPresses, T68iCommands) {
  using Keys = std::map<std::string, std::string>;
  const Keys lights = {{"ledon", "2"},   {"ledoff", "1"}, {"vibeon", "6"},
                       {"vibeoff", "5"}, {"backon", "4"}, {"backoff", "3"}};
  const Keys repeats = {{"(", "7"},        {"@0)", "8, 8"}, {"@1)", "8"},  {"@2)", "8, 9"},
                        {"@3)", "8, 9 9"}, {"@-3)", "8"},   {")", "8, 8"}, {")5", "8, 8"}};
  const Keys volumes = {{"V+", "9"},
                        {"V-", "Down, Down, Left"},
                        {"V0", "Down, Down, Left, Left"},
                        {"V3", "Down, Down, Left, Left, 9 9 9"},
                        {"V", "Down, Down, Left, Left"}};
  for (const Keys& cases : {lights, repeats, volumes}) {
    for (const auto& [special, keys] : cases)
      ExpectLines(Phone::T68i, {Command(special)}, {"Option key, 2, " + keys});
  }
  ExpectLines(Phone::T68i, {Note("c"), Command("LedOn")}, {"Press: 1", "Press: 1\r\n"});
}

TEST(KeyPresses, T39LengthsOctavesAndCommands) {
  ExpectLines(
      Phone::T39,
      {Note("c", 3), Note("#f", 5, 0.5F), Note("b", 3, 4.0F), Note("&b", 4, 2.0F), Note("c", 3, 0.125F),
       Note("c", -1), Rest(4.0F), Rest(2.0F), Rest(1.0F, 1.5F), Rest(0.5F), Rest(0.25F), Command("V10"),
       Command("@2)")},
      {R"(Hold: 1 until lowercase with a ".")", "Press: 4 Then press: #00",
       R"(Hold: 7 until uppercase with a ".")", "Hold: 7 until uppercase. Then press: #0", "Press: 1",
       R"(Hold: 1 until lowercase with a ".")", "Hold: * until P. is shown", "Hold: * until P is shown",
       "Hold: * until p. is shown", "Press: *", "Press: *", "Not supported", "Not supported"});
}

TEST(KeyPresses, R320HasTwoLengthsAndTwoOctaves) {
  ExpectLines(Phone::R320,
              {Note("d", 4), Note("&a", 3, 0.5F), Note("c", 3, 2.0F), Note("#c", 4, 4.0F),
               Note("c", 3, 0.25F), Note("c", -1), Rest(4.0F), Command("vibeoff"), Command("V+")},
              {"Hold: 2 until uppercase. Then press: 0", "Press: 6 Then press: ##", "Not supported",
               "Not supported Then press: #0", "Press: 1", "Hold: 1 until uppercase. Then press: 0",
               "Press: *", "Not supported", "Not supported"});
}

TEST(KeyPresses, AToneWithoutKeysCarriesOnTheElementBefore) {
  // "e#" and a length that no phone has, as a damaged text gives them.
  const ElementList notes{Note("#c", 4), Note("x", 4), Note("x", 5, 0), Note("d", 4)};
  const std::string unknownLength = "1: Unknown duration-->0";

  const Exported nokia = Export(Phone::Nokia, notes);
  EXPECT_EQ(*nokia.text, Numbered({"Press: 1#", "Press: Press: 1#\r\n",
                                   "Press: Press: Press: 1#\r\n\r\n * 9 9", "Press: 2 * * * 8 8"}));
  EXPECT_THAT(nokia.log, ElementsAre("1: Critical error in Make Nokia Keypress", unknownLength,
                                     "1: Critical error in Make Nokia Keypress"));

  const Exported t68i = Export(Phone::T68i, notes);
  EXPECT_EQ(*t68i.text, Numbered({"Press: 1#", "Press: Press: 1#\r\n", "Press: Press: Press: 1#\r\n\r\n099",
                                  "Press: 200088"}));
  EXPECT_THAT(t68i.log, ElementsAre("1: Critical error in Make T68i Keypress",
                                    "1: Critical error in Make T68i Keypress", unknownLength));

  // These keep the key and the modifier, to which the octave keys of each element are added.
  const Exported t39 = Export(Phone::T39, notes);
  EXPECT_EQ(*t39.text,
            Numbered({R"(Hold: 1 until lowercase with a "." Then press: #0)",
                      R"(Hold: 1 until lowercase with a "." Then press: #00)", "Press: 1 Then press: #0000",
                      R"(Hold: 2 until lowercase with a "." Then press: 0)"}));
  EXPECT_THAT(t39.log, ElementsAre("1: Critical error in Make T68i Keypress",
                                   "1: Critical error in Make T68i Keypress", unknownLength));

  const Exported r320 = Export(Phone::R320, {Note("#c", 4), Command("V10"), Note("x", 3)});
  EXPECT_EQ(*r320.text, Numbered({"Hold: 1 until uppercase. Then press: #0", "Press: 1 Then press: #00",
                                  "Hold: 1 until uppercase. Then press: #00"}));
  EXPECT_THAT(r320.log, ElementsAre("1: Critical error in Make R320 Keypress", unknownLength,
                                    "1: Critical error in Make R320 Keypress"));
}

// The keys of a repeated element, which come from a cache, fit the octave and length that the phone is set to
// then.
TEST(KeyPresses, ElementsThatComeAgainFollowWhatIsBeforeThem) {
  const Element high = Note("#c", 5, 0.5F, 1.5F);
  const Element low = Note("a", 4, 2.0F);
  ExpectLines(Phone::Nokia, {high, low, high, low, Rest(2.0F), low, Rest(2.0F), high},
              {"Press: (hold) 1# * 8", "Press: 6 * * * 9 9", "Press: (hold) 1# * 8 8", "Press: 6 * * * 9 9",
               "Press: 0", "Press: 6", "Press: 0", "Press: (hold) 1# * 8 8"});
  ExpectLines(Phone::T68i, {high, low, high, Command("V2"), low, Command("V2"), high},
              {"Press: 1#08OptionKey 6Down Yes", "Press: 600099", "Press: 1#088OptionKey 6Down Yes",
               "Option key, 2, Down, Down, Left, Left, 9 9", "Press: 600099",
               "Option key, 2, Down, Down, Left, Left, 9 9", "Press: 1#088OptionKey 6Down Yes"});
  const Exported t39 = Export(Phone::T39, {high, low, high, Rest(0.5F), Rest(0.5F), Note("x", 4)});
  EXPECT_EQ(*t39.text, Numbered({"Press: 1 Then press: #00", "Hold: 6 until uppercase. Then press: 0",
                                 "Press: 1 Then press: #00", "Press: *", "Press: *",
                                 R"(Hold: 1 until lowercase with a "." Then press: #000)"}));
}

TEST(KeyPresses, TellsOfAMoveUpAlone) {
  using Case = std::tuple<Phone, ElementList, std::string>;
  const Case cases[] = {{Phone::Nokia, Tones({2, 3}), "1"}, {Phone::Nokia, Tones({6, 7}), ""},
                        {Phone::Nokia, Tones({3, 4}), ""},  {Phone::T68i, Tones({2}), "2"},
                        {Phone::T39, Tones({2}), "1"},      {Phone::R320, Tones({0}), "3"}};
  for (const auto& [phone, notes, moved] : cases) {
    const std::string header = moved.empty() ? "" : "All notes have been moved " + moved + " (scale) \r\n";
    EXPECT_THAT(*Export(phone, notes).text, ::testing::StartsWith(header + "0--> "));
  }
}

TEST(KeyPresses, CountsLinesBeyondSixteenBitsAndRefusesATextBeyondAllBounds) {
  const std::string text = *Export(Phone::Nokia, ElementList(70000, Note("c"))).text;
  EXPECT_TRUE(text.ends_with("69999--> Press: 1\r\n"));
  EXPECT_NE(text.find("\n32768--> Press: 1\r\n"), std::string::npos);
  const Exported repeat = Export(Phone::T68i, {Command("@9999999999999)")});
  EXPECT_FALSE(repeat.text);
  EXPECT_EQ(repeat.text.Why().why, "the melody takes more key presses than can be written down");
  EXPECT_FALSE(Export(Phone::Nokia, ElementList(20000, Note("x"))).text);
}

}  // namespace
}  // namespace trillomat
