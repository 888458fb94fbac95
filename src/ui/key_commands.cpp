#include "ui/key_commands.h"

namespace trillomat {
namespace {

// Goes round the extras that the mode has.
void SelectNextExtra(Composer& composer) {
  constexpr int kCount = static_cast<int>(kDurationExtras.size());
  for (int i = 1; i < kCount; ++i) {
    const int extra = (composer.State().durationExtra + i) % kCount;
    if (composer.HasDurationExtra(extra)) return composer.SelectDurationExtra(extra);
  }
}

void BindEntering(KeyInput& keys, const KeyTargets& on) {
  Composer& composer = on.composer;
  keys.Bind(KeyCommand::Tones, [&composer](int tone) { composer.TypeTone(tone); });
  keys.Bind(KeyCommand::TonesAbove, [&composer](int tone) { composer.TypeTone(tone, 1); });
  keys.Bind(KeyCommand::Pause, [&composer](int) { composer.EnterPause(); });
  keys.Bind(KeyCommand::Durations, [&composer](int index) {
    if (composer.HasDuration(index)) composer.SelectDuration(index);
  });
  keys.Bind(KeyCommand::NextExtra, [&composer](int) { SelectNextExtra(composer); });
  keys.Bind(KeyCommand::OctaveUp, [&composer](int) { composer.SetOctave(composer.State().octave + 1); });
  keys.Bind(KeyCommand::OctaveDown, [&composer](int) { composer.SetOctave(composer.State().octave - 1); });
  keys.Bind(KeyCommand::Enter, [on](int) { on.composer.TakeLengthAndOctave(on.document.Cursor()); });
}

void BindMoving(KeyInput& keys, const KeyTargets& on) {
  for (const KeyCommand command : {KeyCommand::MoveLeft, KeyCommand::MoveRight, KeyCommand::ToStart,
                                   KeyCommand::ToEnd, KeyCommand::EraseLeft, KeyCommand::EraseRight}) {
    keys.Bind(command, [&melody = on.melody, command](int) { melody.Press(command); });
  }
  keys.Bind(KeyCommand::SelectLeft, [on](int) { on.composer.SelectTo(on.document.Cursor() - 1); });
  keys.Bind(KeyCommand::SelectRight, [on](int) { on.composer.SelectTo(on.document.Cursor() + 1); });
  keys.Bind(KeyCommand::SelectToStart, [on](int) { on.composer.SelectTo(-1); });
  keys.Bind(KeyCommand::SelectToEnd, [on](int) { on.composer.SelectTo(on.document.LastIndex()); });
  keys.Bind(KeyCommand::Leave, [&melody = on.melody](int) { melody.Line().TakeFocus(); });
}

}  // namespace

void BindKeys(KeyInput& keys, const KeyTargets& targets) {
  BindEntering(keys, targets);
  BindMoving(keys, targets);
  keys.Bind(KeyCommand::PlayOrStop, [&melody = targets.melody](int) { melody.PlayOrStop(); });
  keys.Bind(KeyCommand::PlayFromCursor, [on = targets](int) {
    if (on.play.State() != PlayState::Stopped) return on.melody.PlayOrStop();
    on.play.PlayFromCursor();
  });
}

}  // namespace trillomat
