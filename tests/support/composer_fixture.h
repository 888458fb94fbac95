// A composer over fakes: what was sounded and shown is remembered, time passes by hand.
#pragma once

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "composer/composer.h"
#include "playback/player.h"
#include "support/fake_sound.h"

namespace trillomat {

/// An I-Melody file with these notes.
inline std::string TuneText(const std::string& notes) {
  return "BEGIN:IMELODY\r\nVERSION:1.2\r\nFORMAT:CLASS1.0\r\nNAME:Tune\r\nCOMPOSER:Me\r\nBEAT:120\r\n"
         "STYLE:S2\r\nVOLUME:V7\r\nMELODY:" +
         notes + "\r\nEND:IMELODY\r\n";
}

class FakeComposerView : public ComposerView {
 public:
  void ShowMelody(const MelodyViewText& text) override { melody = text; }
  void ShowComposer() override {}
  void UpdateListFiles() override { ++fileLists; }

  MelodyViewText melody;
  int fileLists = 0;
};

class ComposerTest : public testing::Test, public FakeWorkspace {
 protected:
  ComposerTest() { player.outputType = OutputType::Beep; }

  /// The composed melody in I-Melody tokens, the cursor as "|" behind the element it is on.
  std::string Tokens() {
    const MelodyList& all = ws.melody.Elements();
    const auto cursor = all.begin() + std::min(ws.melody.lCurrentIndex, ws.melody.UpperBound()) + 1;
    std::string left = TokensOf({all.begin(), cursor}, " ");
    if (!left.empty()) left.pop_back();
    return left + (left.empty() ? "|" : "| ") + TokensOf({cursor, all.end()}, " ");
  }

  void Compose(const std::string& tokens, int32_t cursor) {
    ws.melody.Assign(NotesOf(tokens));
    ws.melody.lCurrentIndex = cursor;
  }

  FakeSound sound;
  NullPlayerView playerView;
  Player player{ws, clock, sound, playerView};
  PlaySettings settings{.bAutoPlay = false, .bPlayComposing = false, .bPlayMoving = false};
  FakeComposerView view;
  Composer composer{ws, player, settings, view};
};

}  // namespace trillomat
