// Where each refusal says that the fault is, counted in the bytes as they were given.
#include "read_case.h"

namespace trillomat {
namespace {

struct PlaceCase {
  FormatMode mode;
  std::string text;
  Refusal refusal;
};

TEST(Places, OfEveryRefusal) {
  const std::string noLength = "no note with a length digit follows in the melody: ";
  const std::string noLetter = "the notes end without a tone letter: ";
  const std::string sixty(60, '7');
  const std::vector<PlaceCase> cases{
      {FormatMode::IMelody, "", {"the file is empty", 1, 1, ""}},
      {FormatMode::IMelody, "NAME:x\r\nOops\r\n", {"line 2 has no \":\": \"Oops\"", 2, 1, "Oops"}},
      {FormatMode::IMelody, "NAME:x\n\r\nEND:", {"line 2 has no \":\": \"\"", 2, 1, ""}},
      {FormatMode::IMelody,
       "NAME:x\nBEAT:9999999999\n",
       {"line 2: the beat is out of range: \"9999999999\"", 2, 6, "9999999999"}},
      {FormatMode::IMelody, "NAME:x\nMELODY:c2\n", {"no END line follows the MELODY line", 2, 8, "c2"}},
      {FormatMode::IMelody,
       "NAME:x\rMELODY:c2 \r\n d 2@\t3\r\nEND",
       {"a repeat end has no \")\": \"@3\"", 3, 5, "@?3"}},
      {FormatMode::IMelody, "MELODY:c2\nd\nd\nEND", {noLength + "\"dd\"", 2, 1, "d"}},
      // The fault is that the melody ends there.
      {FormatMode::IMelody, "MELODY:c2V\nEND", {noLength + "\"\"", 1, 11, ""}},
      {FormatMode::IMelody, "MELODY:\nEND", {noLength + "\"\"", 1, 8, ""}},
      {FormatMode::EMelody, "c", {"the file holds fewer than 2 characters", 1, 1, "c"}},
      {FormatMode::EMelody, "c\nd", {"the file holds no \"MELODY:\"", 1, 1, "c"}},
      {FormatMode::EMelody, "x\nMEL\nODY:c", {"no \"END:EMELODY\" follows \"MELODY:\"", 2, 1, "MEL"}},
      {FormatMode::EMelody, "MELODY: \nEND:EMELODY", {"the text holds no notes", 1, 8, ""}},
      {FormatMode::EMelody, "MELO\nDY:\nc2 1\n2\nEND:EMELODY", {noLetter + "\"212\"", 3, 2, "2 1"}},
      {FormatMode::Melody, "c\n" + sixty + "8", {noLetter + "\"" + sixty + "...\"", 2, 1, sixty}},
      {FormatMode::Rtttl, "one:colon", {"the text holds fewer than two \":\"", 1, 1, "one:colon"}},
      {FormatMode::Rtttl,
       "t:\nb = 99999 99999 :c",
       {"the header's \"b=9999999999\" is out of range", 2, 1, "b = 99999 99999"}},
      {FormatMode::Rtttl, "t:s=N:o,", {"the text holds no notes", 1, 7, "o,"}},
  };
  for (const PlaceCase& each : cases) {
    SCOPED_TRACE(each.text);
    FakeServices fake;
    const std::optional<Refusal> refusal = Read(each.text, each.mode, {}, fake.services).refusal;
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->why, each.refusal.why);
    EXPECT_EQ(refusal->line, each.refusal.line);
    EXPECT_EQ(refusal->column, each.refusal.column);
    EXPECT_EQ(refusal->text, each.refusal.text);
  }
}

}  // namespace
}  // namespace trillomat
