// What can be offered for a text that was refused or not wholly understood.
#include "exchange/second_reading.h"

#include "formats/read_case.h"

namespace trillomat {
namespace {

/// A better way as text, "as RTTTL tidied, 2 left, 3 tunes"; "" where there is none.
std::string BetterWords(const std::string& text, const ReadingWay& way) {
  FakeServices fake;
  const WayResult first = ReadInWay(way, text, text, {}, fake.services);
  fake.log.lines.clear();
  const auto better = FindBetterWay(text, way, first.read, {}, fake.pump);
  EXPECT_TRUE(fake.log.lines.empty()) << "nobody has chosen it yet";
  if (!better) return "";
  return "as " + std::string(LimitsOf(better->way.mode).caption) + (better->way.tidied ? " tidied, " : ", ") +
         std::to_string(better->notUnderstood) + " left, " + std::to_string(better->tunes) +
         (better->way.source == way.source ? "" : " from elsewhere");
}

TEST(SecondReading, IsFoundWhereItLeavesLess) {
  constexpr auto kRtttl = FormatMode::Rtttl;
  constexpr auto kIMelody = FormatMode::IMelody;
  const std::string tune = "Tune:d=4,o=5,b=100:c,d,8e.";
  const std::string slips = "Tune:d=4,o=5,b=100:8c_,d,e";
  const std::string file = "BEGIN:IMELODY\r\nNAME:x\r\nMELODY:c2d2\r\nEND:IMELODY\r\n";
  const std::tuple<const char*, std::string, ReadingWay, std::string> cases[] = {
      {"clean", tune, {kRtttl}, ""},
      {"clean, of another name", tune, {kIMelody}, "as RTTTL, 0 left, 1"},
      {"the same, tidied in vain", tune, {kIMelody, true}, "as RTTTL, 0 left, 1"},
      {"slips", slips, {kRtttl}, "as RTTTL tidied, 0 left, 1"},
      {"slips, pasted", slips, {kRtttl, false, TextSource::Import}, "as RTTTL tidied, 0 left, 1"},
      {"slips, tidied", slips, {kRtttl, true}, ""},
      {"slips, of another name", slips, {kIMelody}, "as RTTTL tidied, 0 left, 1"},
      {"a blank last line", file + "\r\n", {kIMelody}, "as I-Melody tidied, 0 left, 1"},
      {"a file, pasted", file, {kRtttl, false, TextSource::Import}, "as I-Melody, 0 left, 1"},
      {"three tunes", tune + "\n" + slips + "\n" + tune + "\n", {kRtttl}, "as RTTTL tidied, 0 left, 3"},
      {"a text too large", slips + std::string(1 << 20, ' '), {kRtttl}, ""},
      {"no melody", "%PDF-1.4 \x01\x02 77", {kIMelody}, ""}};
  for (const auto& [what, text, way, words] : cases) EXPECT_EQ(BetterWords(text, way), words) << what;
}

TEST(SecondReading, EndsWithTheProgram) {
  FakeServices fake;
  const std::string text = "Tune:d=4,o=5,b=100:8c_,d,e";
  const ReadResult first = Read(text, FormatMode::Rtttl, {}, fake.services);
  fake.pump.ending = true;
  EXPECT_FALSE(FindBetterWay(text, {FormatMode::Rtttl}, first, {}, fake.pump));
}

TEST(SecondReading, PastedTextsGoThroughTheConverters) {
  FakeServices fake;
  const std::string text = "Tune:d=4,o=5,b=100,l=3:8c_";
  for (const auto& [source, elements] :
       {std::pair{TextSource::File, "(, 3 #c 0.5 1, @3)"}, {TextSource::Import, "3 #c 0.5 1"}}) {
    const WayResult result = ReadInWay({FormatMode::Rtttl, true, source}, text, text, {}, fake.services);
    EXPECT_EQ(Described(result.read.elements), elements);
    EXPECT_EQ(result.changes.size(), 1U);
  }
}

TEST(SecondReading, TitlesTunes) {
  const std::tuple<const char*, const char*, size_t> cases[] = {
      {"A tune:d=4,o=5,b=63:c,d_,p,", "A tune", 3}, {"x:d=4:c", "x", 1}, {"", "", 0}};
  for (const auto& [tune, name, notes] : cases) {
    EXPECT_EQ(TitleOf(tune).name, name);
    EXPECT_EQ(TitleOf(tune).notes, notes);
  }
}

}  // namespace
}  // namespace trillomat
