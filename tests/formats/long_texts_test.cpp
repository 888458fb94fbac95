// Texts of many tokens are cut into exactly those that they were made of, wherever these fall.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "core/codec.h"
#include "core/silent_services.h"
#include "formats/formats.h"

namespace trillomat {
namespace {

struct Text {
  FormatMode mode;
  std::string before;
  std::vector<std::string> tokens;
  std::string between;
  std::string after;       ///< begins with a last token, "c1" in I-Melody, "c" elsewhere
  std::string whitespace;  ///< what may stand between tokens besides
};

std::vector<Text> Texts() {
  return {{.mode = FormatMode::IMelody,
           .before = "MELODY:",
           .tokens = {"c2", "*5#f3.", "&b0;", "b3", "*0r5", "r2:", "ledon", "ledoff", "backon", "vibeoff",
                      "V+", "V-", "V12", "V7", "(", "@2)", "@0)", "*3*5e1"},
           .between = "",
           .after = "c1\r\nEND:IMELODY\r\n",
           .whitespace = "\r\n "},
          {.mode = FormatMode::EMelody,
           .before = "MELODY:",
           .tokens = {"c", "C.", "++#f", "+(b)D.", "r", "R", "y", "A.", "(b)e"},
           .between = "",
           .after = "c\r\nEND:EMELODY\r\n",
           .whitespace = "\r\n "},
          {.mode = FormatMode::Rtttl,
           .before = "Tune:d=4,o=5,b=120:",
           .tokens = {"c", "8c#6.", "16a", "32.d#5", "r", "2g.7", "x", "1e4444444", "#", ""},
           .between = ",",
           .after = "c\r\n",
           .whitespace = " \t"},
          {.mode = FormatMode::Melody,
           .before = "",
           .tokens = {"c", "C", "+#f", "+(b)D", "r", "R", "y", "(b)e", "9c"},
           .between = "",
           .after = "c\r\n",
           .whitespace = "\n "}};
}

TEST(LongTexts, AreCutIntoTheTokensThatTheyAreMadeOf) {
  std::mt19937 random(3);
  SilentServices silent;
  const TokenDefaults defaults{.octave = 3, .duration = 1.0F};
  for (const Text& text : Texts()) {
    for (int round = 0; round < 300; ++round) {
      std::string bytes = text.before;
      ElementList expected;
      const auto expect = [&](std::string_view token) {
        expected.push_back(Decode(token, text.mode, defaults, silent.log));
      };
      for (size_t left = 1 + random() % 60; left > 0; --left) {
        const std::string& token = text.tokens[random() % text.tokens.size()];
        bytes += token + text.between;
        expect(token);
        if (random() % 40 == 0) bytes += text.whitespace;
      }
      expect(text.mode == FormatMode::IMelody ? "c1" : "c");
      const ReadResult read = Read(bytes + text.after, text.mode, {}, silent.services);
      ASSERT_EQ(read.elements, expected) << bytes;
    }
  }
}

}  // namespace
}  // namespace trillomat
