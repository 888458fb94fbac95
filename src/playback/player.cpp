#include "playback/player.h"

#include <string>

#include "core/ascii.h"
#include "core/codec.h"
#include "core/number_text.h"
#include "core/scoped_value.h"
#include "playback/element_sound.h"
#include "playback/tone_table.h"
#include "playback/wave_synthesis.h"

namespace trillomat {
namespace {

// Loops a wave image for as long as it lives.
class LoopingWave {
 public:
  LoopingWave(SoundDevice& sound, std::span<const uint8_t> image, Log& log) : sound_(sound) {
    sound_.StopWave();
    if (!sound_.StartWave(image)) log.WriteLog("Failed to start Wave file..", 1);
  }
  LoopingWave(const LoopingWave&) = delete;
  LoopingWave& operator=(const LoopingWave&) = delete;
  ~LoopingWave() {
    try {
      sound_.StopWave();
    } catch (...) {  // NOLINT(bugprone-empty-catch): a device that does not stop cannot be helped
    }
  }

 private:
  SoundDevice& sound_;
};

// Has the view show the element for as long as it lives.
class ShownElement {
 public:
  ShownElement(PlayerView& view, const NowPlaying& now) : view_(view) { view_.ShowPlaying(now); }
  ShownElement(const ShownElement&) = delete;
  ShownElement& operator=(const ShownElement&) = delete;
  ~ShownElement() { view_.ShowPlaying(std::nullopt); }

 private:
  PlayerView& view_;
};

NowPlaying PlayingOf(const Element& element, int32_t index) {
  const int tone = SemitoneOf(element.Note());
  return {index, tone < 0 ? std::nullopt : std::optional(tone)};
}

}  // namespace

bool PhoneLights::Perform(std::string_view command) {
  const bool on = command.ends_with("on");
  if (command == "ledon" || command == "ledoff") {
    led = on;
    return true;
  }
  if (command == "backon" || command == "backoff") {
    backlight = on;
    return true;
  }
  return false;
}

int32_t Player::PlayElement(const Element& element, int32_t index) {
  last_ = {};
  const ShownElement shown(seams_.view, PlayingOf(element, index));
  if (!Supports(element, document_.Mode())) {
    seams_.services.log.WriteLog("Can not play this note -> not supported in this mode", 1);
  }
  const std::string_view command = element.Command();
  if (IsPause(element)) {
    PlayPause(element);
  } else if (command == "(") {
    last_.kind = ElementKind::Repeat;
    repeat.Start();
  } else if (command.ends_with(')')) {
    return PlayRepeatEnd(command, index);
  } else if (element.Note().empty()) {
    PlayCommand(command);
  } else {
    PlayNote(element);
  }
  return 0;
}

void Player::ResetPhone() {
  lights_ = {};
  seams_.view.Vibrate(false);
  seams_.view.ShowPicture(lights_.Picture());
  seams_.view.ShowFrequency(DecimalText(0));
}

int32_t Player::PlayRepeatEnd(std::string_view command, int32_t index) {
  last_.kind = ElementKind::Repeat;
  if (!LimitsOf(document_.Mode()).commands) return 0;
  const int32_t back = repeat.End(command, index, document_, seams_.services);
  if (back > 0) BeginRound();
  return back;
}

void Player::BeginRound() {
  if (!timePassed_) seams_.services.pump.WaitForEvents(1);
  timePassed_ = false;
}

void Player::PlayCommand(std::string_view command) {
  if (!command.empty()) last_.kind = ElementKind::Command;
  const bool onOff = Contains(command, "on") || Contains(command, "off");
  if (!onOff && !Contains(command, "V")) {
    seams_.services.log.WriteLog("Error - can not find any note", 1);
    return;
  }
  if (!LimitsOf(document_.Mode()).commands) return;
  if (lights_.Perform(command)) {
    seams_.view.ShowPicture(lights_.Picture());
  } else if (command == "vibeon" || command == "vibeoff") {
    seams_.view.Vibrate(command == "vibeon");
  }
}

void Player::PlayPause(const Element& element) {
  const int32_t beat = BeatLength(document_.Info().bpm);
  const auto length = RoundToInt32(double{element.duration} * double{element.extra} * beat);
  last_ = {ElementKind::Pause, length.value_or(0), 0};
  if (length) {
    Wait(static_cast<float>(*length));
  } else {
    seams_.services.log.WriteLog("Error in PlayPause", 1);
  }
}

void Player::PlayNote(const Element& element) {
  Log& log = seams_.services.log;
  const auto base = BaseFrequency(element.Note());
  if (!base) log.WriteLog("Unknown tone-->" + std::string(element.Note()), 1);
  const int32_t beat = BeatLength(document_.Info().bpm);
  const auto length = RoundToInt32(double{element.duration} * beat * double{element.extra});
  if (!length) {
    log.WriteLog("Error in PlayElement", 1);
    return;
  }
  if (const auto hertz = ToneFrequency(base.value_or(0), element.octave)) {
    Sound(*hertz, *length);
  } else {
    log.WriteLog("Error in PlayTone", 1);
  }
}

void Player::Sound(int32_t hertz, int32_t milliseconds) {
  seams_.view.ShowFrequency(DecimalText(hertz));
  if (hertz == 0) return;
  last_ = {ElementKind::Tone, milliseconds, hertz};
  const ScopedValue sounding(sounding_, true);
  if (outputType == OutputType::Beep) SoundBeep(hertz, milliseconds);
  if (outputType == OutputType::Wave) SoundWave(hertz, milliseconds);
}

void Player::SoundBeep(int32_t hertz, int32_t milliseconds) {
  if (milliseconds > 0) timePassed_ = true;
  seams_.view.PaintNow();
  seams_.sound.Beep(hertz, milliseconds);
  seams_.services.pump.TimeHasPassed();
}

void Player::SoundWave(int32_t hertz, int32_t milliseconds) {
  const std::vector<uint8_t> image = ToneImage(hertz);
  const LoopingWave wave(seams_.sound, image, seams_.services.log);
  Wait(static_cast<float>(milliseconds));
}

// A wait across midnight lasts until the clock passes its start again.
void Player::Wait(float milliseconds) {
  const ScopedValue fresh(cutShort_, false);
  // The start is kept in single precision, which costs up to 8 ms late in the day.
  const auto start = static_cast<float>(seams_.clock.SecondsSinceMidnight());
  float length = milliseconds / 1000;
  while (!cutShort_) {
    const auto elapsed = static_cast<float>(seams_.clock.SecondsSinceMidnight() - double{start});
    if (elapsed < -1) length = 0;  // midnight has passed
    if (!(elapsed < length)) return;
    timePassed_ = true;
    if (!seams_.services.pump.WaitForEvents(double{length - elapsed} * 1000)) return;
  }
}

}  // namespace trillomat
