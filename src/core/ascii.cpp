#include "core/ascii.h"

#include <algorithm>

#include "core/character_block.h"

namespace trillomat {
namespace {

CharacterMask WhitespaceIn(CharacterBlock block) {
  if (block.Between('\t', ' ') == 0) return 0;  // nearly always
  return block.Equal(' ') | block.Equal('\r') | block.Equal('\n') | block.Equal('\t');
}

}  // namespace

std::string Lowered(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), ToLower);
  return result;
}

std::string Uppered(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), ToUpper);
  return result;
}

bool EqualNoCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return ToLower(x) == ToLower(y); });
}

bool IsAllDigits(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), IsDigit);
}

bool RemoveAll(std::string& text, std::string_view part) {
  size_t size = text.find(part);
  if (size == std::string::npos) return false;
  for (size_t i = size; i < text.size();) {
    if (std::string_view(text).substr(i).starts_with(part)) {
      i += part.size();
    } else {
      text[size++] = text[i++];
    }
  }
  text.resize(size);
  return true;
}

std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to) {
  std::string result;
  result.reserve(text.size());
  while (true) {
    const size_t at = text.find(from);
    result += text.substr(0, at);
    if (at == std::string_view::npos) return result;
    result += to;
    text.remove_prefix(at + from.size());
  }
}

std::string OnOneLine(std::string_view text, char instead) {
  std::string line(text);
  std::replace_if(
      line.begin(), line.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, instead);
  return line;
}

std::string WithoutWhitespace(std::string_view text) { return WithoutCharacters(text, WhitespaceIn); }

CompactText::CompactText(std::string_view text) : view_(text) {
  if (FindCharacter(text, WhitespaceIn) == text.size()) return;
  copy_ = WithoutWhitespace(text);
  view_ = copy_;
}

std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && IsWhitespace(text.back())) text.remove_suffix(1);
  while (!text.empty() && IsWhitespace(text.front())) text.remove_prefix(1);
  return text;
}

}  // namespace trillomat
