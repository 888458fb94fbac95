// What is read back of each element that was written into a melody file, written down a second time and
// independently of the program: what a format cannot hold, and what it changes.
//
//              octaves  lengths              lost as well             changed
//   I-Melody   0 to 8   all                  nothing                  nothing
//   E-Melody   3 to 5   1/1 to 1/8, plain    commands, 1/4 pauses     1/8 pauses become 1/4
//   RTTTL      3 to 6   all, plain or dotted commands                 flats become sharps
//   Melody     3 to 4   1/4 and 1/8, plain   commands                 1/4 pauses become 1/8,
//                                                                     1/4 tones are in upper case
//
// What lies outside the octaves and lengths of a format is lost. A pause of E-Melody and Melody comes back
// with the octave 3, which counts for nothing. RTTTL's repeat count comes back as elements around the others.
#pragma once

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/ascii.h"
#include "core/format_mode.h"
#include "core/song.h"

namespace trillomat {

struct HeldByFormat {
  int lowestOctave;
  int highestOctave;
  std::vector<float> durations;
  std::vector<float> extras;
};

inline HeldByFormat HeldBy(FormatMode mode) {
  const std::vector<float> all(kDurations.begin(), kDurations.end());
  switch (mode) {
    case FormatMode::IMelody: return {0, 8, all, {kDurationExtras.begin(), kDurationExtras.end()}};
    case FormatMode::EMelody: return {3, 5, {4.0F, 2.0F, 1.0F, 0.5F}, {1.0F}};
    case FormatMode::Rtttl: return {3, 6, all, {1.0F, 1.5F}};
    case FormatMode::Melody: break;
  }
  return {3, 4, {1.0F, 0.5F}, {1.0F}};
}

inline std::optional<Element> PauseReadBack(Element pause, FormatMode mode) {
  if (mode == FormatMode::EMelody || mode == FormatMode::Melody) pause.octave = 3;
  if (mode == FormatMode::Melody) pause.duration = 0.5F;
  if (mode == FormatMode::EMelody) {
    if (pause.duration == 1.0F) return std::nullopt;
    if (pause.duration == 0.5F) pause.duration = 1.0F;
  }
  return pause;
}

inline Element ToneReadBack(Element tone, FormatMode mode) {
  static const std::map<std::string_view, std::string_view> kSharps{
      {"&d", "#c"}, {"&e", "#d"}, {"&g", "#f"}, {"&a", "#g"}, {"&b", "#a"}};
  const auto sharp = kSharps.find(tone.Note());
  if (mode == FormatMode::Rtttl && sharp != kSharps.end()) tone.SetNote(sharp->second);
  if (mode == FormatMode::Melody && tone.duration == 1.0F) tone.SetNote(Uppered(tone.Note()));
  return tone;
}

/// What comes back of a tone in lower case, a pause or a command; nothing for what the format loses.
inline std::optional<Element> ReadBack(const Element& element, FormatMode mode) {
  if (!element.Command().empty()) return mode == FormatMode::IMelody ? std::optional(element) : std::nullopt;
  const HeldByFormat held = HeldBy(mode);
  const auto holds = [](const std::vector<float>& values, float value) {
    return std::find(values.begin(), values.end(), value) != values.end();
  };
  if (!holds(held.durations, element.duration) || !holds(held.extras, element.extra)) return std::nullopt;
  if (element.Note() == "r") return PauseReadBack(element, mode);
  if (element.octave < held.lowestOctave || element.octave > held.highestOctave) return std::nullopt;
  return ToneReadBack(element, mode);
}

/// The same of all of a song.
inline ElementList ReadBack(const Song& song, FormatMode mode) {
  ElementList kept;
  for (const Element& element : song.elements) {
    if (const auto back = ReadBack(element, mode)) kept.push_back(*back);
  }
  const int loop = song.info.loop;
  if (mode != FormatMode::Rtttl || kept.empty() || loop == 0) return kept;
  kept.insert(kept.begin(), Command("("));
  kept.push_back(Command(loop < 15 ? "@" + std::to_string(loop) + ")" : "@0)"));
  return kept;
}

/// A song with any elements that can be entered, made of bytes: three an element, and one for the repeat
/// count.
inline Song SongOfBytes(std::string_view bytes) {
  constexpr std::array<std::string_view, 18> kNotes{"c",  "#c", "&d", "d",  "#d", "&e", "e",  "f", "#f",
                                                    "&g", "g",  "#g", "&a", "a",  "#a", "&b", "b", "r"};
  constexpr std::array<std::string_view, 14> kCommands{"ledon",   "ledoff", "vibeon", "vibeoff", "backon",
                                                       "backoff", "V+",     "V-",     "V0",      "V7",
                                                       "V15",     "(",      "@0)",    "@12)"};
  Song song;
  const auto at = [bytes](size_t i) { return static_cast<unsigned char>(bytes[i]); };
  if (!bytes.empty()) song.info.loop = static_cast<int16_t>(at(0) % 20);
  for (size_t i = 1; i + 2 < bytes.size(); i += 3) {
    const size_t kind = at(i) % (kNotes.size() + 3);
    if (kind >= kNotes.size()) {
      song.elements.push_back(Command(kCommands.at(at(i + 1) % kCommands.size())));
      continue;
    }
    const float duration = kDurations.at(at(i + 2) % kDurations.size());
    const float extra = kDurationExtras.at(at(i + 2) / 8U % kDurationExtras.size());
    const std::string_view note = kNotes.at(kind);
    song.elements.push_back(note == "r" ? Pause(duration, extra)
                                        : Tone(note, static_cast<int16_t>(at(i + 1) % 9), duration, extra));
  }
  return song;
}

}  // namespace trillomat
