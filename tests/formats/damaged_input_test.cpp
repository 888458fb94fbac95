// Any bytes at all end in true or false, soon, and never touch the melody that is being composed.
#include <chrono>
#include <random>

#include "read_case.h"

namespace trillomat {
namespace {

const std::array<std::string, 4> kSongs{
    "BEGIN:IMELODY\r\nNAME:x\r\nBEAT:120\r\nMELODY:c2*5#d3.(V10ledonr2@3)&b1;\r\nEND:IMELODY\r\n",
    "BEGIN:EMELODY\r\nMELODY:+C.(b)d++#ePp.\r\nEND:EMELODY\r\n",
    "x:d=4,o=5,b=120,l=3,s=N:8c#6.,p,16h,so,c\r\n", "+C(b)d#eph\r\n"};

// A few bytes of the text removed, doubled or replaced by others.
std::string Damage(std::string text, std::mt19937& random) {
  for (uint32_t hits = random() % 4; hits-- > 0 && !text.empty();) {
    const size_t at = random() % text.size();
    const size_t length = random() % 4;
    switch (random() % 3) {
      case 0: text.erase(at, length); break;
      case 1: text.insert(at, text.substr(random() % text.size(), length)); break;
      default: text[at] = static_cast<char>(random()); break;
    }
  }
  return text;
}

TEST(DamagedInput, EndsInTrueOrFalse) {
  std::mt19937 random(1);
  FakeWorkspace fake;
  const MelodyList composed{{4, "c", "", 1.0F, 0.5F}};
  fake.ws.melody.Assign(composed);
  std::array<int, 2> results{};
  for (int round = 0; round < 4000; ++round) {
    const std::string text = Damage(kSongs.at(random() % 4), random);
    const FormatMode mode = kModeLimits.at(random() % 4).mode;
    const bool ok = FormatOf(mode).ReadText(text, fake.ws);
    ++results.at(ok ? 1 : 0);
    ASSERT_EQ(fake.ws.melody.Elements(), composed);
    ASSERT_TRUE(ok || fake.ws.ImportMelody.empty()) << text;
    ASSERT_EQ(ok, fake.ws.refusal.empty()) << text;
    fake.ws.ExportMelody = fake.ws.ImportMelody;
    for (const ModeLimits& limits : kModeLimits) FormatOf(limits.mode).WriteText(fake.ws);
  }
  EXPECT_THAT(results, testing::Each(testing::Gt(500)));
}

std::string Repeated(std::string_view part, size_t count) {
  std::string text;
  while (count-- > 0) text += part;
  return text;
}

TEST(DamagedInput, TakesTimeInProportionToItsSize) {
  constexpr size_t kMany = 300000;
  const std::vector<std::pair<FormatMode, std::string>> cases{
      {FormatMode::IMelody, "MELODY:" + Repeated("c2\n", kMany) + "END:"},
      {FormatMode::IMelody, "MELODY:" + Repeated("c", kMany) + "\nEND:"},
      {FormatMode::IMelody, "MELODY:" + Repeated("@", kMany) + ")@\nEND:"},
      {FormatMode::IMelody, Repeated("MELODY:\n", kMany)},
      {FormatMode::EMelody, "MELODY:" + Repeated("(b)c", kMany) + "END:EMELODY"},
      {FormatMode::EMelody, Repeated("MELODY:", kMany)},
      {FormatMode::Melody, Repeated("c)", kMany)},
      {FormatMode::Rtttl, "x::" + Repeated("c,", kMany)},
      {FormatMode::Rtttl, "x:" + Repeated("b=1", kMany) + ":c"},
      {FormatMode::Rtttl, "x:b=" + Repeated("1", kMany) + ":c"},
      {FormatMode::Rtttl, "x::" + Repeated("7", kMany)}};
  FakeWorkspace fake;
  for (const auto& [mode, text] : cases) {
    const auto start = std::chrono::steady_clock::now();
    FormatOf(mode).ReadText(text, fake.ws);
    // Quadratic work would take minutes.
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10)) << text.substr(0, 40);
  }
}

}  // namespace
}  // namespace trillomat
