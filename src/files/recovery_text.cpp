#include "browser/recovery_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <initializer_list>
#include <vector>

#include "core/number_text.h"
#include "formats/text_file.h"

namespace trillomat {
namespace {

constexpr std::string_view kTitle = "trillomat-recovery 1";
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
    if (kEscaped.find(c) == std::string_view::npos) {
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

void AppendNote(std::string& text, const MelodyNote& note) {
  AppendLine(text, {"note", std::to_string(note.Octave), note.Note, note.Special,
                    FloatText(note.DurationExtra), FloatText(note.Duration), note.NotSupported ? "1" : "0"});
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

bool ReadSong(std::string_view line, SongHeader& header) {
  auto fields = FieldsOf(line, "song", 8);
  if (!fields || !Parse(fields->at(2), header.BPM) || !Parse(fields->at(7), header.Loop)) return false;
  header.Name = std::move(fields->at(0));
  header.Composer = std::move(fields->at(1));
  header.Style = std::move(fields->at(3));
  header.Volume = std::move(fields->at(4));
  header.Version = std::move(fields->at(5));
  header.Format = std::move(fields->at(6));
  return true;
}

bool ReadNote(std::string_view line, MelodyNote& note) {
  auto fields = FieldsOf(line, "note", 6);
  if (!fields || !Parse(fields->at(0), note.Octave)) return false;
  if (!ParseLength(fields->at(3), note.DurationExtra) || !ParseLength(fields->at(4), note.Duration)) {
    return false;
  }
  note.Note = std::move(fields->at(1));
  note.Special = std::move(fields->at(2));
  note.NotSupported = fields->at(5) == "1";
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

std::string WriteRecovery(const Workspace& ws) {
  const SongHeader& header = ws.header;
  std::string text(kTitle);
  text += '\n';
  AppendLine(text, {"mode", std::to_string(static_cast<int>(ws.iNoteMode))});
  AppendLine(text, {"song", header.Name, header.Composer, std::to_string(header.BPM), header.Style,
                    header.Volume, header.Version, header.Format, std::to_string(header.Loop)});
  for (const MelodyNote& note : ws.melody.Elements()) AppendNote(text, note);
  const uint64_t checksum = Checksum(text);
  AppendLine(text, {"end", std::to_string(ws.melody.Elements().size()), std::to_string(checksum)});
  return text;
}

std::optional<RecoveredMelody> ReadRecovery(std::string_view text) {
  const std::vector<std::string_view> lines = SplitLines(text);
  if (!text.ends_with('\n') || lines.size() < 4 || lines[0] != kTitle) return std::nullopt;
  RecoveredMelody melody;
  if (!ReadMode(lines[1], melody.mode) || !ReadSong(lines[2], melody.header)) return std::nullopt;
  melody.elements.resize(lines.size() - 4);
  for (size_t i = 0; i < melody.elements.size(); ++i) {
    if (!ReadNote(lines[i + 3], melody.elements[i])) return std::nullopt;
  }
  if (!EndFits(text, lines.back(), melody.elements.size())) return std::nullopt;
  return melody;
}

}  // namespace trillomat
