// Text helpers: letter case (A to Z alone), containment, removal, replacement and whitespace.
// Text is single-byte Windows-1252; no locale takes part.
#pragma once

#include <string>
#include <string_view>

namespace trillomat {

constexpr char ToLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
constexpr char ToUpper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// Blank, CR, LF and tab: melody texts may hold these anywhere, and they mean nothing.
constexpr bool IsWhitespace(char c) { return c == ' ' || c == '\r' || c == '\n' || c == '\t'; }

std::string Lowered(std::string_view text);
std::string Uppered(std::string_view text);
/// Whether they are the same but for the case of letters.
bool EqualNoCase(std::string_view a, std::string_view b);

constexpr bool Contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}
constexpr bool Contains(std::string_view text, char c) { return text.find(c) != std::string_view::npos; }

/// Whether `text` is digits and nothing else; false for an empty one.
bool IsAllDigits(std::string_view text);

/// Removes every occurrence of `part` (not empty); true when there was one.
bool RemoveAll(std::string& text, std::string_view part);

/// `text` with every occurrence of `from` (not empty) replaced by `to`, scanning left to right.
std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to);

/// `text` on one line: each control character, those below the blank, replaced by `instead`.
std::string OnOneLine(std::string_view text, char instead);

/// `text` without any whitespace.
std::string WithoutWhitespace(std::string_view text);

/// A text without any whitespace. It is copied only if there is whitespace to leave out; otherwise View()
/// refers to the original, which has to live as long.
class CompactText {
 public:
  explicit CompactText(std::string_view text);
  CompactText(const CompactText&) = delete;
  CompactText& operator=(const CompactText&) = delete;

  std::string_view View() const { return view_; }

 private:
  std::string copy_;
  std::string_view view_;
};

/// `text` without the whitespace at both ends; of whitespace alone its empty beginning.
std::string_view Trimmed(std::string_view text);

}  // namespace trillomat
