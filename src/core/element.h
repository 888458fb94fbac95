// One element of a melody: a tone, a pause or a phone command. The record knows no file format; each
// format mode writes the same fields in its own notation (see codec.h). It is small and needs no heap
// for what a clean file holds, so melodies of any length are cheap to copy, to change and to compare.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

#include "core/short_text.h"

namespace trillomat {

/// Marks an element without an octave: pauses and commands.
inline constexpr int16_t kNoOctave = -1;

/// The lengths that an element can have, in quarter-note beats: whole note to thirty-second note.
inline constexpr std::array<float, 6> kDurations{4.0F, 2.0F, 1.0F, 0.5F, 0.25F, 0.125F};

/// The length multipliers: plain, dotted, double dotted, and the triplet's two thirds.
inline constexpr std::array<float, 4> kDurationExtras{1.0F, 1.5F, 1.75F, static_cast<float>(2.0 / 3.0)};

/// The 24 bytes of an element as three numbers, which are quick to compare and to hash.
struct ElementBits {
  uint64_t first, second, third;

  // Without a branch between the numbers, unlike the operator that the compiler would make.
  bool operator==(const ElementBits& other) const {
    return ((first ^ other.first) | (second ^ other.second) | (third ^ other.third)) == 0;
  }
};

class Element {
 public:
  float duration = 0;  ///< beats, one of kDurations; 0 in a decoded command
  float extra = 0;     ///< one of kDurationExtras; 0 in a decoded command
  int16_t octave = 0;  ///< octave number of I-Melody (its octave 3 holds a = 440 Hz), or kNoOctave

  /// "c", "#c", "&d", ... "b", in the case in which it was read; "r" for a pause; empty for a command.
  std::string_view Note() const { return isCommand_ ? std::string_view() : text_.View(); }
  /// The command's own token ("ledon", "V10", "(", "@2)"), empty for a tone or a pause.
  std::string_view Command() const { return isCommand_ ? text_.View() : std::string_view(); }

  /// Makes it a tone or a pause. Its length and octave stay.
  void SetNote(std::string_view note) { Set(note, false); }
  /// Makes it a command; with an empty text, an element without a note. Its length and octave stay.
  void SetCommand(std::string_view command) { Set(command, !command.empty()); }

  bool operator==(const Element&) const = default;

  /// Its bytes: the same for equal elements as long as they are self-contained. One with a text on the heap
  /// holds that text's address instead, which not even a copy of it shares.
  ElementBits Bits() const;
  /// Whether it needs no heap.
  bool IsSelfContained() const { return text_.IsInPlace(); }

 private:
  void Set(std::string_view text, bool isCommand) {
    text_ = ShortText(text);
    isCommand_ = isCommand;
  }

  bool isCommand_ = false;  ///< text_ is a command, not a note
  ShortText text_;
};

static_assert(sizeof(Element) == 24 && sizeof(ElementBits) == 24,
              "there is no padding, so Bits() is all set");

inline ElementBits Element::Bits() const {
  const char* const bytes = reinterpret_cast<const char*>(this);
  ElementBits bits{};
  std::memcpy(&bits.first, bytes, 8);
  std::memcpy(&bits.second, bytes + 8, 8);
  std::memcpy(&bits.third, bytes + 16, 8);
  return bits;
}

using ElementList = std::vector<Element>;

/// A tone: `note` as Element::Note gives it, the other values as the fields hold them.
Element Tone(std::string_view note, int16_t octave, float duration, float extra);
Element Pause(float duration, float extra);
/// A command as the decoders make it: no octave, no length.
Element Command(std::string_view token);

/// The element `octaves` higher, its octave kept within 16 bits; one without an octave as it is.
Element OctavesUp(const Element& element, int octaves);

/// True for a pause: a note that contains an "r" of either case.
bool IsPause(const Element& element);

/// The index of `value` in kDurations or kDurationExtras, -1 when it is none of them.
int DurationIndex(float value);
int DurationExtraIndex(float value);

}  // namespace trillomat
