#include "files/recovery_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <initializer_list>
#include <vector>

#include "core/ascii.h"
#include "core/number_text.h"
#include "formats/reading.h"

namespace trillomat {
namespace {

constexpr std::string_view kTitle = "trillomat-recovery 2";
constexpr std::string_view kFirstTitle = "trillomat-recovery 1";
constexpr std::string_view kEscaped{"\\\t\r\n\0", 5};
constexpr std::string_view kHexDigits = "0123456789abcdef";

using Fields = std::vector<std::string>;

uint64_t Checksum(std::string_view text) {
  uint64_t hash = 0xcbf29ce484222325U;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3U;
  return hash;
}

std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    if (!Contains(kEscaped, c)) {
      escaped += c;
      continue;
    }
    const auto code = static_cast<unsigned char>(c);
    escaped += '\\';
    escaped += kHexDigits[code / 16];
    escaped += kHexDigits[code % 16];
  }
  return escaped;
}

// Nothing for a "\" that two digits do not follow.
std::optional<std::string> Unescaped(std::string_view text) {
  std::string plain;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\') {
      plain += text[i];
      continue;
    }
    if (i + 2 >= text.size()) return std::nullopt;
    const size_t high = kHexDigits.find(text[i + 1]);
    const size_t low = kHexDigits.find(text[i + 2]);
    if (high == std::string_view::npos || low == std::string_view::npos) return std::nullopt;
    plain += static_cast<char>(high * 16 + low);
    i += 2;
  }
  return plain;
}

void AppendLine(std::string& text, std::initializer_list<std::string_view> fields) {
  for (const std::string_view field : fields) text += Escaped(field) + '\t';
  text.back() = '\n';
}

void AppendElement(std::string& text, const Element& element) {
  AppendLine(text, {"note", std::to_string(element.octave), element.Note(), element.Command(),
                    FloatText(element.extra), FloatText(element.duration), "0"});
}

// The fields of a line that starts with `kind` and has `count` of them behind it.
std::optional<Fields> FieldsOf(std::string_view line, std::string_view kind, size_t count) {
  Fields fields;
  while (true) {
    const size_t length = std::min(line.find('\t'), line.size());
    auto field = Unescaped(line.substr(0, length));
    if (!field) return std::nullopt;
    fields.push_back(std::move(*field));
    if (length == line.size()) break;
    line.remove_prefix(length + 1);
  }
  if (fields.size() != count + 1 || fields[0] != kind) return std::nullopt;
  fields.erase(fields.begin());
  return fields;
}

template <typename Number>
bool Parse(const std::string& text, Number& number) {
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  return result.ec == std::errc() && result.ptr == end;
}

// No length in a melody comes near the bound, which keeps times computed from it in their range.
bool ParseLength(const std::string& text, float& length) {
  constexpr float kBound = 100.0F;
  return Parse(text, length) && std::abs(length) < kBound;
}

bool ReadMode(std::string_view line, FormatMode& mode) {
  const auto fields = FieldsOf(line, "mode", 1);
  int16_t number = 0;
  if (!fields || !Parse(fields->at(0), number)) return false;
  if (number < 0 || static_cast<size_t>(number) >= kModeLimits.size()) return false;
  mode = static_cast<FormatMode>(number);
  return true;
}

bool ReadOrigin(std::string_view line, RecoveredSong& recovered) {
  auto fields = FieldsOf(line, "kept", 2);
  if (!fields || !Parse(fields->at(0), recovered.time)) return false;
  recovered.file = std::move(fields->at(1));
  return true;
}

bool ReadInfo(std::string_view line, SongInfo& info) {
  auto fields = FieldsOf(line, "song", 8);
  if (!fields || !Parse(fields->at(2), info.bpm) || !Parse(fields->at(7), info.loop)) return false;
  info.name = std::move(fields->at(0));
  info.composer = std::move(fields->at(1));
  info.style = std::move(fields->at(3));
  info.volume = std::move(fields->at(4));
  info.version = std::move(fields->at(5));
  info.format = std::move(fields->at(6));
  return true;
}

bool ReadElement(std::string_view line, Element& element) {
  const auto fields = FieldsOf(line, "note", 6);
  if (!fields || !Parse(fields->at(0), element.octave)) return false;
  if (!ParseLength(fields->at(3), element.extra) || !ParseLength(fields->at(4), element.duration)) {
    return false;
  }
  if (fields->at(2).empty()) {
    element.SetNote(fields->at(1));
  } else {
    element.SetCommand(fields->at(2));
  }
  return true;
}

// Whether the last line counts the elements and fits the bytes before it: a file that was cut or
// damaged is not taken for a shorter melody.
bool EndFits(std::string_view text, std::string_view line, size_t elements) {
  const auto fields = FieldsOf(line, "end", 2);
  size_t count = 0;
  uint64_t checksum = 0;
  if (!fields || !Parse(fields->at(0), count) || !Parse(fields->at(1), checksum)) return false;
  return count == elements && checksum == Checksum(text.substr(0, text.size() - line.size() - 1));
}

}  // namespace

std::string WriteRecovery(const Song& song, FormatMode mode, std::string_view file, int64_t time) {
  const SongInfo& info = song.info;
  std::string text(kTitle);
  text += '\n';
  AppendLine(text, {"kept", std::to_string(time), file});
  AppendLine(text, {"mode", std::to_string(static_cast<int>(mode))});
  AppendLine(text, {"song", info.name, info.composer, std::to_string(info.bpm), info.style, info.volume,
                    info.version, info.format, std::to_string(info.loop)});
  for (const Element& element : song.elements) AppendElement(text, element);
  const uint64_t checksum = Checksum(text);
  AppendLine(text, {"end", std::to_string(song.elements.size()), std::to_string(checksum)});
  return text;
}

std::optional<RecoveredSong> ReadRecovery(std::string_view text) {
  constexpr size_t kFewestLines = 4;
  if (!text.starts_with(kTitle) && !text.starts_with(kFirstTitle)) return std::nullopt;
  std::vector<std::string_view> lines = SplitLines(text);
  if (!text.ends_with('\n') || lines.size() < kFewestLines) return std::nullopt;
  RecoveredSong recovered;
  if (lines[0] == kTitle) {
    if (!ReadOrigin(lines[1], recovered)) return std::nullopt;
    lines.erase(lines.begin() + 1);
  } else if (lines[0] != kFirstTitle) {
    return std::nullopt;
  }
  if (lines.size() < kFewestLines) return std::nullopt;
  Song& song = recovered.song;
  if (!ReadMode(lines[1], recovered.mode) || !ReadInfo(lines[2], song.info)) return std::nullopt;
  song.elements.resize(lines.size() - kFewestLines);
  for (size_t i = 0; i < song.elements.size(); ++i) {
    if (!ReadElement(lines[i + 3], song.elements[i])) return std::nullopt;
  }
  if (!EndFits(text, lines.back(), song.elements.size())) return std::nullopt;
  return recovered;
}

std::string_view SongPartOf(std::string_view text) {
  const size_t begin = text.find("\nmode\t");
  const size_t end = text.rfind("\nend\t");
  if (begin == text.npos || end == text.npos || end < begin || !text.ends_with('\n')) return {};
  const std::string_view last = text.substr(end + 1, text.size() - end - 2);
  uint64_t checksum = 0;
  const auto fields = FieldsOf(last, "end", 2);
  if (!fields || !Parse(fields->at(1), checksum) || checksum != Checksum(text.substr(0, end + 1))) return {};
  return text.substr(begin + 1, end - begin);
}

}  // namespace trillomat
