#include "settings/ini_text.h"

#include <algorithm>
#include <utility>

#include "core/ascii.h"
#include "core/code_page.h"

namespace trillomat {
namespace {

constexpr std::string_view kHexDigits = "0123456789abcdef";

// The name in the brackets of a line that begins a section.
std::optional<std::string_view> SectionOf(std::string_view line) {
  line = Trimmed(line);
  if (!line.starts_with('[')) return std::nullopt;
  return Trimmed(line.substr(1, line.find(']') - 1));
}

bool IsHexDigit(char c) { return Contains(kHexDigits, ToLower(c)); }

// The character whose hexadecimal digits follow "\x", as many as there are; empty where there is no such
// character.
std::string TakeHexadecimal(std::string_view& text) {
  constexpr char32_t kBeyond = 0x10000;
  char32_t number = 0;
  for (; !text.empty() && IsHexDigit(text.front()); text.remove_prefix(1)) {
    if (number < kBeyond)
      number = number * 16 + static_cast<char32_t>(kHexDigits.find(ToLower(text.front())));
  }
  std::string character;
  if (number < kBeyond) AppendUtf8(character, number);
  return character;
}

// The character that is meant by the one behind a backslash.
std::string TakeEscape(std::string_view& text) {
  constexpr std::string_view kLetters = "abfnrtv0";
  constexpr std::string_view kControls{"\a\b\f\n\r\t\v\0", 8};
  if (text.empty()) return {};
  const char letter = text.front();
  text.remove_prefix(1);
  if (letter == 'x') return TakeHexadecimal(text);
  const size_t place = kLetters.find(letter);
  return {place == kLetters.npos ? letter : kControls[place]};
}

std::string Unescaped(std::string_view text) {
  std::string value;
  while (!text.empty()) {
    const char c = text.front();
    text.remove_prefix(1);
    if (c == '\\') {
      value += TakeEscape(text);
    } else if (c != '"') {
      value += c;
    }
  }
  return value;
}

// A hexadecimal digit behind a "\x" escape is escaped too, or it would count as part of that.
std::string Escaped(std::string_view value) {
  std::string text;
  bool behindHexadecimal = false;
  for (const char c : value) {
    const auto byte = static_cast<unsigned char>(c);
    const bool hexadecimal = byte < ' ' || byte == 0x7F || (behindHexadecimal && IsHexDigit(c));
    if (hexadecimal) {
      text += {'\\', 'x', kHexDigits[byte >> 4U], kHexDigits[byte & 0xFU]};
    } else if (c == '\\' || c == '"') {
      text += {'\\', c};
    } else {
      text += c;
    }
    behindHexadecimal = hexadecimal;
  }
  const bool blankEnd = value.starts_with(' ') || value.ends_with(' ');
  return blankEnd || value.find_first_of(";,=") != value.npos ? '"' + text + '"' : text;
}

}  // namespace

std::optional<IniText::Line> IniText::LineOf(std::string_view section, std::string_view key) const {
  std::optional<Line> found;
  bool inside = false;
  for (Line line = Next({}); line.length > 0; line = Next(line)) {
    const std::string_view text = In(line);
    if (const auto name = SectionOf(text)) {
      inside = *name == section;
    } else if (inside && text.find('=') != text.npos && Trimmed(text.substr(0, text.find('='))) == key) {
      found = line;
    }
  }
  return found;
}

// Where the last line of the section that is not blank ends.
std::optional<size_t> IniText::EndOf(std::string_view section) const {
  std::optional<size_t> end;
  bool inside = false;
  for (Line line = Next({}); line.length > 0; line = Next(line)) {
    if (const auto name = SectionOf(In(line))) inside = *name == section;
    if (inside && !Trimmed(In(line)).empty()) end = line.begin + line.length;
  }
  return end;
}

IniText::Line IniText::Next(Line line) const {
  const size_t begin = line.begin + line.length;
  return {begin, std::min(text_.find('\n', begin), text_.size() - 1) + 1 - begin};
}

std::optional<std::string> IniText::Get(std::string_view section, std::string_view key) const {
  const auto line = LineOf(section, key);
  if (!line) return std::nullopt;
  const std::string_view text = In(*line);
  return Unescaped(Trimmed(text.substr(text.find('=') + 1)));
}

void IniText::Set(std::string_view section, std::string_view key, std::string_view value) {
  const std::string line = std::string(key) + "=" + Escaped(value) + "\n";
  if (const auto old = LineOf(section, key)) {
    text_.replace(old->begin, old->length, line);
    return;
  }
  if (!text_.empty() && !text_.ends_with('\n')) text_ += '\n';
  if (const auto end = EndOf(section)) {
    text_.insert(*end, line);
  } else {
    text_ += (text_.empty() ? "[" : "\n[") + std::string(section) + "]\n" + line;
  }
}

void IniText::DeleteSection(std::string_view section) {
  std::string kept;
  bool inside = false;
  for (Line line = Next({}); line.length > 0; line = Next(line)) {
    if (const auto name = SectionOf(In(line))) inside = *name == section;
    if (!inside) kept += In(line);
  }
  text_ = std::move(kept);
}

void IniText::Apply(const SettingsChanges& changes) {
  for (const std::string& section : changes.deletedSections) DeleteSection(section);
  for (const auto& [section, key, text, onlyIfMissing] : changes.values) {
    if (!onlyIfMissing || !LineOf(section, key)) Set(section, key, text);
  }
}

}  // namespace trillomat
