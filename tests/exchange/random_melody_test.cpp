// Random melodies and damaged texts: what the exports promise whatever they are given.
#include <gtest/gtest.h>

#include <array>
#include <random>

#include "core/tone.h"
#include "exchange/export_targets.h"
#include "exchange/import_text.h"
#include "support/fakes.h"
#include "support/sample_notes.h"

namespace trillomat {
namespace {

class Dice {
 public:
  explicit Dice(unsigned seed) : engine_(seed) {}
  size_t Below(size_t bound) { return std::uniform_int_distribution<size_t>(0, bound - 1)(engine_); }
  template <typename List>
  auto Pick(const List& list) {
    return list[Below(std::size(list))];
  }

 private:
  std::mt19937 engine_;
};

// What RTTTL can hold: four octaves, all lengths, dotted or not.
MelodyNote RandomNote(Dice& dice) {
  constexpr std::array<std::string_view, 12> kSharps{"c",  "#c", "d",  "#d", "e",  "f",
                                                     "#f", "g",  "#g", "a",  "#a", "b"};
  const float duration = dice.Pick(kDurations);
  const float extra = dice.Below(3) == 0 ? 1.5F : 1.0F;
  if (dice.Below(6) == 0) return Pause(duration, extra);
  return Tone(dice.Pick(kSharps), 3 + static_cast<int>(dice.Below(4)), duration, extra);
}

TEST(RandomMelody, RtttlExportReadsBackAsTheSameMelody) {
  FakeWorkspace fake;
  for (unsigned seed = 0; seed < 500; ++seed) {
    Dice dice(seed);
    MelodyList notes(1 + dice.Below(80));
    for (MelodyNote& note : notes) note = RandomNote(dice);
    SongHeader header{.Name = "n" + std::to_string(seed),
                      .Composer = "",
                      .BPM = 25 + static_cast<int>(dice.Below(876)),
                      .Style = "",
                      .Volume = "",
                      .Version = "",
                      .Format = "",
                      .Loop = static_cast<int16_t>(dice.Below(3))};
    // A header without "l=" and "s=" keeps those of the one before.
    fake.ws.rtttl = {};
    fake.ws.header = header;
    fake.ws.ExportMelody = notes;
    const std::optional<std::string> text = ExportText(Phone::Rtttl, fake.ws);
    ASSERT_TRUE(text);
    ASSERT_TRUE(Convert_RTTTL(*text, fake.ws)) << *text;
    EXPECT_EQ(fake.ws.ImportMelody, notes) << *text;
    EXPECT_EQ(fake.ws.header, header) << *text;
  }
}

TEST(RandomMelody, DamagedTextsEndWellEverywhere) {
  constexpr std::string_view kGood =
      "tune:d=4,o=5,b=120,l=2,s=N:8c#6.,p,h,2&a5;,16e7,MELODY:+C.(b)d(c)END:EMELODY";
  using Converter = bool (*)(std::string_view, Workspace&);
  constexpr std::array<Converter, 3> kConverters{Convert_RTTTL, bConvert_EMelody, bConvert_Melody};
  FakeWorkspace fake;
  size_t taken = 0;
  size_t exported = 0;
  for (unsigned seed = 0; seed < 3000; ++seed) {
    Dice dice(seed);
    std::string text(kGood);
    for (size_t damage = dice.Below(8); damage > 0 && !text.empty(); --damage) {
      const size_t at = dice.Below(text.size());
      switch (dice.Below(4)) {
        case 0: text.erase(at, 1 + dice.Below(6)); break;
        case 1: text[at] = static_cast<char>(dice.Below(256)); break;
        case 2: text.insert(at, 1, dice.Pick(kGood)); break;
        default: text += text.substr(at); break;
      }
    }
    if (!dice.Pick(kConverters)(text, fake.ws)) {
      EXPECT_TRUE(fake.ws.ImportMelody.empty()) << text;
      EXPECT_FALSE(fake.ws.refusal.empty()) << text;
      continue;
    }
    ++taken;
    ASSERT_FALSE(fake.ws.ImportMelody.empty()) << text;
    for (const ExportTarget& target : kExportTargets) {
      fake.ws.ExportMelody = fake.ws.ImportMelody;
      const std::optional<std::string> result = ExportText(target.phone, fake.ws);
      EXPECT_EQ(result.has_value(), fake.ws.refusal.empty()) << text;
      if (result) ++exported;
    }
  }
  EXPECT_GT(taken, 1000U);
  EXPECT_GT(exported, 3000U);
}

}  // namespace
}  // namespace trillomat
