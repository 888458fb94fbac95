#include "playback/player.h"

#include <string>

#include "core/ascii.h"
#include "core/number_text.h"
#include "playback/tone_table.h"

namespace trillomat {

int32_t Player::PlayElement(const MelodyNote& note, int32_t beat, int32_t index) {
  last_ = {};
  if (note.NotSupported) seams_.log.WriteLog("Can not play this note -> not supported in this mode", 1);
  if (IsPause(note)) {
    PlayPause(note, beat);
  } else if (note.Special == "(") {
    last_.kind = ElementKind::Repeat;
    repeat.Start();
  } else if (note.Special.ends_with(')')) {
    return PlayRepeatEnd(note.Special, index);
  } else if (note.Note.empty()) {
    PlayCommand(note.Special);
  } else {
    PlayNote(note, beat);
  }
  return 0;
}

int32_t Player::PlayRepeatEnd(std::string_view special, int32_t index) {
  last_.kind = ElementKind::Repeat;
  if (!LimitsOf(ws_.iNoteMode).commands) return 0;
  const int32_t back = repeat.End(special, index, ws_.melody.Elements(), seams_.log, seams_.pump);
  if (back > 0) {
    // A block that takes no time would keep the processor busy for as long as it repeats.
    if (!timePassed_) seams_.pump.WaitForEvents(1);
    timePassed_ = false;
  }
  return back;
}

void Player::PlayCommand(std::string_view special) {
  if (!special.empty()) last_.kind = ElementKind::Command;
  const bool onOff = Contains(special, "on") || Contains(special, "off");
  if (!onOff && !Contains(special, "V")) {
    seams_.log.WriteLog("Error - can not find any note", 1);
    return;
  }
  if (!LimitsOf(ws_.iNoteMode).commands) return;
  if (lights_.Perform(special)) {
    seams_.view.ShowPicture(lights_.Picture());
  } else if (special == "vibeon") {
    seams_.view.EnableTimer(kVibrationTimer);
  } else if (special == "vibeoff") {
    seams_.view.DisableTimer(kVibrationTimer);
  }
}

void Player::PlayNote(const MelodyNote& note, int32_t beat) {
  const auto base = BaseFrequency(note.Note);
  if (!base) seams_.log.WriteLog("Unknown tone-->" + note.Note, 1);
  const auto length = RoundToInt32(double{note.Duration} * beat * double{note.DurationExtra});
  if (!length) {
    seams_.log.WriteLog("Error in PlayElement", 1);
    return;
  }
  last_.length = *length;
  PlayTone(*length, base.value_or(0), note.Octave);
}

void Player::PlayPause(const MelodyNote& note, int32_t beat) {
  const auto length = RoundToInt32(double{note.Duration} * double{note.DurationExtra} * beat);
  last_ = {ElementKind::Pause, length.value_or(0), 0};
  if (length) {
    Wait(static_cast<float>(*length));
  } else {
    seams_.log.WriteLog("Error in PlayPause", 1);
  }
}

void Player::Wait(float milliseconds) {
  // The start is kept in single precision, which costs up to 8 ms late in the day.
  const auto start = static_cast<float>(seams_.clock.SecondsSinceMidnight());
  float length = milliseconds / 1000;
  for (;;) {
    const auto elapsed = static_cast<float>(seams_.clock.SecondsSinceMidnight() - double{start});
    if (elapsed < -1) length = 0;  // midnight has passed, and the wait lasts until its start comes again
    if (!(elapsed < length)) return;
    timePassed_ = true;
    if (!seams_.pump.WaitForEvents(double{length - elapsed} * 1000)) return;
  }
}

void Player::PlayTone(int32_t length, int32_t base, int16_t octave) {
  const auto hertz = ToneFrequency(base, octave);
  if (!hertz) {
    seams_.log.WriteLog("Error in PlayTone", 1);
    return;
  }
  last_.frequency = *hertz;
  seams_.view.ShowFrequency(DecimalText(*hertz));
  if (*hertz == 0) return;
  ++sounding_;
  if (outputType == OutputType::Beep) BeepTone(*hertz, length);
  if (outputType == OutputType::Wave) PlayToneWave(*hertz, length);
  --sounding_;
}

void Player::BeepTone(int32_t hertz, int32_t length) {
  if (length > 0) timePassed_ = true;
  seams_.sound.Beep(hertz, length);
}

void Player::PlayToneWave(int32_t hertz, int32_t length) {
  StopWave();
  wave_.BuildWaveHeader(kSampleRate, 16, 1, 0.5, 0.5);
  wave_.SynthesiseTone(hertz);
  StartWave();
  Wait(static_cast<float>(length));
  StopWave();
}

bool Player::StartWave() {
  if (seams_.sound.StartWave(wave_.Image())) return true;
  seams_.log.WriteLog("Failed to start Wave file..", 1);
  return false;
}

void Player::StopWave() { seams_.sound.StopWave(); }

}  // namespace trillomat
