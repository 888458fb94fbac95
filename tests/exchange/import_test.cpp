// The import of pasted texts as far as it differs from reading files, and the choice of the import window.
#include "exchange/import.h"

#include <gmock/gmock.h>

#include <random>

#include "core/tone.h"
#include "exchange/export.h"
#include "support/fakes.h"
#include "support/sample_notes.h"

namespace trillomat {
namespace {

using ::testing::Contains;
using ::testing::IsEmpty;

struct ImportCase {
  PastedFormat format;
  std::string text;
  std::string elements;  ///< as Described tells them
  std::vector<std::string> log = {};
};

TEST(Import, TakesTextsThatAreNoWholeFiles) {
  constexpr PastedFormat kEMelody = PastedFormat::EMelody;
  const std::vector<ImportCase> cases{
      // No repeat marks, no gap where "so" is refused.
      {PastedFormat::Rtttl,
       "te st:\td=4, o=5,b=100,\r\nl=3,s=C:c, P,8H.,-,so,x",
       "3 c 1 1, -1 r 1 1, 3 b 0.5 1.5, -1 r 1 1, 3 x 1 1",
       {"1: Last Note?\?-->x"}},
      {kEMelody, "BEGIN:EMELODY\r\nVERSION:1.0\r\nMEL ODY:c\r\nEND:EMEL ODY\r\nx", "3 c 0.5 1"},
      {kEMelody, " +C.\r\n(b)d", "4 c 4 1, 3 &d 0.5 1"},
      {kEMelody, "cEND:d", "3 c 0.5 1, 3 e 2 1, 3 n 2 1, 3 d 2 1, 3 :d 0.5 1"},
      {kEMelody, "c", "3 c 0.5 1"},
      {PastedFormat::Melody, "+C(b)aPp(b)ZqD.",
       "4 C 1 1, 3 &a 0.5 1, 3 R 1 1, 3 r 0.5 1, 3 &Z 1 1, 3 q 0.5 1, 3 D. 1 1"},
  };
  for (const ImportCase& each : cases) {
    SCOPED_TRACE(each.text);
    FakeServices fake;
    const ReadResult read = Import(each.format, each.text, false, {}, fake.services).read;
    EXPECT_EQ(Described(read.elements), each.elements);
    EXPECT_EQ(read.record.info.name, each.format == PastedFormat::Rtttl ? "test" : "Unknown");
    EXPECT_EQ(read.record.info.loop, each.format == PastedFormat::Rtttl ? 3 : 0);
    EXPECT_EQ(fake.log.lines, each.log);
  }
}

struct RefusalCase {
  PastedFormat format;
  std::string text;
  Refusal refusal;
  std::vector<std::string> log;
};

TEST(Import, RefusesWithALogLineAndAPlace) {
  const std::string rtttl = "1: Error in Convert_RTTTL";
  const std::string eMelody = "1: Error in bConvert_EMelody";
  const std::vector<RefusalCase> cases{
      {PastedFormat::Rtttl,
       "one:colon,",
       {"the text holds fewer than two \":\"", 1, 1, "one:colon,"},
       {rtttl}},
      {PastedFormat::Rtttl,
       "a:\r\no=5,:so,",
       {"there is no note behind the second \":\"", 2, 6, "so,"},
       {rtttl}},
      {PastedFormat::Rtttl,
       "a:\n l=40 000,:c,",
       {"the header's \"l=40000\" is out of range", 2, 2, "l=40 000"},
       {rtttl}},
      {PastedFormat::EMelody, "", {"the text holds no notes", 1, 1, ""}, {eMelody}},
      {PastedFormat::EMelody,
       "x\n MELODY:c",
       {"there is no \"END:EMELODY\" behind \"MELODY:\"", 2, 2, "MELODY:"},
       {eMelody}},
      {PastedFormat::EMelody, "MELODY: END:EMELODY", {"the text holds no notes", 1, 8, ""}, {eMelody}},
      {PastedFormat::Melody, " \r\n", {"the text holds no notes", 1, 1, ""}, {"1: Error in bConvert_Melody"}},
      {PastedFormat::Melody,
       "cd\n x)",
       {"the notes end without a tone letter: \"x)\"", 2, 2, "x)"},
       {"1: Critical error when converting!!!!"}},
  };
  for (const RefusalCase& each : cases) {
    SCOPED_TRACE(each.text);
    FakeServices fake;
    const ReadResult read = Import(each.format, each.text, true, {}, fake.services).read;
    EXPECT_EQ(read.refusal, each.refusal);
    EXPECT_THAT(read.elements, IsEmpty());
    std::vector<std::string> log = each.log;
    log.emplace_back("1: Failed to make the import");
    EXPECT_EQ(fake.log.lines, log);
  }
}

TEST(Import, AdaptsForTheT68i) {
  FakeServices fake;
  Imported imported = Import(PastedFormat::Rtttl, "a:d=4,:c3,d4,", true, {}, fake.services);
  EXPECT_EQ(Described(imported.read.elements), "4 c 1 1, 5 d 1 1");
  EXPECT_EQ(imported.notAdapted, "");

  imported = Import(PastedFormat::Rtttl, "a:d=4,:c3,d8,", true, {}, fake.services);
  EXPECT_EQ(Described(imported.read.elements), "1 c 1 1, 6 d 1 1");
  EXPECT_THAT(fake.log.lines, Contains("1: Failed to make the adaption"));
  EXPECT_EQ(imported.notAdapted,
            "the melody spans octaves 1 to 6, which is more than the 4 octaves of the T68i");
}

TEST(Import, TakesBackWhatTheRtttlExportGave) {
  std::mt19937 random(1);
  const auto below = [&random](size_t bound) {
    return std::uniform_int_distribution<size_t>(0, bound - 1)(random);
  };
  for (int round = 0; round < 300; ++round) {
    Song song{.elements = ElementList(1 + below(80)), .info = {}};
    for (Element& element : song.elements) {
      const std::string_view tone = kTones.at(below(kTones.size()));
      // RTTTL knows no flats.
      const std::string_view note = tone.starts_with('&') ? "g" : tone;
      const float duration = kDurations.at(below(kDurations.size()));
      const float extra = kDurationExtras.at(below(2));
      element =
          below(6) == 0 ? Rest(duration, extra) : Note(note, 3 + static_cast<int>(below(4)), duration, extra);
    }
    song.info.name = "n" + std::to_string(round);
    song.info.bpm = 25 + static_cast<int>(below(876));
    song.info.loop = static_cast<int16_t>(below(3));
    FakeServices fake;
    const std::string text = *Export(Phone::Rtttl, song, fake.services);
    const ReadResult read = Import(PastedFormat::Rtttl, text, false, {}, fake.services).read;
    EXPECT_EQ(read.elements, song.elements) << text;
    EXPECT_EQ(std::tie(read.record.info.name, read.record.info.bpm, read.record.info.loop),
              std::tie(song.info.name, song.info.bpm, song.info.loop))
        << text;
  }
}

using Options = std::array<bool, 5>;

TEST(ImportChoice, TheHighestOptionThatIsOnCounts) {
  EXPECT_EQ(&ImportChoice::Selected(Options{}), &kImportOptions.front());
  EXPECT_EQ(&ImportChoice::Selected(Options{true, true, false, true, false}), &kImportOptions.at(3));
}

TEST(ImportChoice, EnablesTheButtonByFormatAndText) {
  ImportChoice choice;
  EXPECT_FALSE(choice.CanImport());
  using Step = std::tuple<size_t, std::string, bool>;
  const std::vector<Step> steps{{0, "a:b", false}, {0, "a:b,c", true},  {2, "", true},   {3, "", true},
                                {1, "c", false},   {2, "long", false},  {4, "x", false}, {1, "\r\n", true},
                                {2, "", true},     {0, "no,no", false}, {0, ":,", true}};
  for (const auto& [option, text, enabled] : steps) {
    Options options{};
    options.at(option) = true;
    choice.Update(options, text);
    EXPECT_EQ(choice.CanImport(), enabled) << option << " " << text;
  }
}

}  // namespace
}  // namespace trillomat
