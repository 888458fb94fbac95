#include "core/terminal_text.h"

#include <cstdint>

#include "core/code_page.h"

namespace trillomat {
namespace {

bool MarksDirection(char32_t character) {
  return character == 0x061C || character == 0x200E || character == 0x200F;
}

bool IsObeyed(char32_t character, std::string_view rest) {
  if (character == '\t' || character == '\n' || (character == '\r' && rest.starts_with('\n'))) return false;
  return character < ' ' || (character >= 0x7F && character < 0xA0) || TurnsDirection(character) ||
         MarksDirection(character);
}

// The lowest `digits` hexadecimal digits of `number` behind a backslash and `kind`.
std::string Escape(char kind, uint32_t number, int digits) {
  std::string text{'\\', kind};
  for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4) {
    text += "0123456789ABCDEF"[number >> static_cast<unsigned>(shift) & 0xFU];
  }
  return text;
}

std::string Escaped(char32_t character) {
  return character < 0x80 ? Escape('x', character, 2) : Escape('u', character, 4);
}

}  // namespace

bool TurnsDirection(char32_t character) {
  return (character >= 0x202A && character <= 0x202E) || (character >= 0x2066 && character <= 0x2069);
}

std::string EscapedForTerminal(std::string_view utf8) {
  std::string shown;
  shown.reserve(utf8.size());
  while (!utf8.empty()) {
    const std::string_view before = utf8;
    const auto character = TakeCharacter(utf8);
    if (!character) {
      shown += Escape('x', static_cast<unsigned char>(utf8.front()), 2);
      utf8.remove_prefix(1);
    } else if (IsObeyed(*character, utf8)) {
      shown += Escaped(*character);
    } else {
      shown += before.substr(0, before.size() - utf8.size());
    }
  }
  return shown;
}

}  // namespace trillomat
