// TokenDecoder and ElementTexts give the same results and log lines as Decode and the maker of texts do,
// whatever came before.
#include <gmock/gmock.h>

#include <random>

#include "core/element_texts.h"
#include "core/silent_services.h"
#include "core/token_decoder.h"
#include "support/fakes.h"
#include "support/sample_notes.h"

namespace trillomat {
namespace {

// Tokens of few characters, some of them damaged, so that they repeat and take each other's places in a small
// cache.
std::vector<std::string> SomeTokens(size_t count, unsigned seed) {
  constexpr std::string_view kCharacters = "abcdefgrpACR0123456789#&.:;*+()osV-\0\xE4";
  std::mt19937 random(seed);
  std::vector<std::string> tokens(count);
  for (std::string& token : tokens) {
    for (size_t length = random() % 5 + (random() % 50 == 0 ? 6 : 0); length > 0; --length) {
      token += kCharacters[random() % (random() % 4 == 0 ? kCharacters.size() : 14)];
    }
  }
  return tokens;
}

constexpr ByteMap kAsItIs([](char c) { return c; }, [](char /*c*/) { return true; });

TEST(RepeatedTokens, AreDecodedAsEachAloneWould) {
  for (const ModeLimits& limits : kModeLimits) {
    for (const size_t expected : {size_t{0}, size_t{100000}}) {
      const TokenDefaults defaults{.octave = 5, .duration = 0.25F};
      FakeLog log;
      FakeLog plain;
      IdlePump pump;
      TokenDecoder decode(limits.mode, defaults, kAsItIs, expected, {log, pump});
      for (const std::string& token : SomeTokens(20000, 7)) {
        const Element alone = Decode(token, limits.mode, defaults, plain);
        const DecodedToken& decoded = decode(CutToken(token, 0, token.size()));
        ASSERT_EQ(Described(decoded.element), Described(alone)) << limits.caption << " " << token;
        ASSERT_EQ(decoded.understood, IsUnderstood(alone)) << token;
      }
      EXPECT_EQ(log.lines, plain.lines);
      EXPECT_FALSE(limits.mode == FormatMode::IMelody && log.lines.empty());
    }
  }
}

TEST(RepeatedTokens, TheTextsOfElementsAreThoseOfEachAlone) {
  FakeLog log;
  FakeLog plain;
  const auto text = [](const Element& element, Log& heard) {
    return Encode(element, FormatMode::IMelody, {}, heard).text;
  };
  ElementTexts texts(0, text, log);
  std::mt19937 random(11);
  SilentLog silent;
  const auto written = [&texts](const Element& element) {
    TextWriter one(0);
    const size_t size = texts.Write(element, one);
    std::string made = one.Take();
    EXPECT_EQ(made.size(), size);
    return made;
  };
  EXPECT_EQ(written(Element()), text(Element(), plain)) << "the element that holds nothing";
  for (const std::string& token : SomeTokens(20000, 8)) {
    Element element = Decode(token, kModeLimits.at(random() % kModeLimits.size()).mode, {}, silent);
    if (random() % 20 == 0) element.SetCommand("a command that stands " + token + " on the heap");
    if (random() % 20 == 0) element.octave = static_cast<int16_t>(random());
    if (random() % 20 == 0) element.duration = -0.0F;
    ASSERT_EQ(written(element), text(element, plain)) << token;
  }
  EXPECT_EQ(log.lines, plain.lines);
  EXPECT_THAT(log.lines, testing::Contains(testing::HasSubstr("Unknown duration-->")));
}

}  // namespace
}  // namespace trillomat
