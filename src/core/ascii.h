// Text helpers over the letters A to Z alone: case, containment, removal and replacement.
// Text is single-byte Windows-1252; no locale takes part.
#pragma once

#include <string>
#include <string_view>

namespace trillomat {

constexpr char ToLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
constexpr char ToUpper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// The characters that melody texts may hold anywhere without meaning: blank, CR, LF and tab.
constexpr bool IsLayout(char c) { return c == ' ' || c == '\r' || c == '\n' || c == '\t'; }

std::string Lowered(std::string_view text);
std::string Uppered(std::string_view text);
bool EqualNoCase(std::string_view a, std::string_view b);

constexpr bool Contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

/// Removes every occurrence of `part` (not empty); true when there was one.
bool RemoveAll(std::string& text, std::string_view part);

/// `text` with every occurrence of `from` (not empty) replaced by `to`, scanning left to right.
std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to);

/// `text` without its blanks, CR, LF and tabs.
std::string WithoutLayout(std::string_view text);

/// The same, of a text that lives longer: a copy is made only where there is something to leave out.
class LayoutFree {
 public:
  explicit LayoutFree(std::string_view text);
  LayoutFree(const LayoutFree&) = delete;
  LayoutFree& operator=(const LayoutFree&) = delete;

  std::string_view View() const { return view_; }

 private:
  std::string copy_;
  std::string_view view_;
};

/// `text` without those around it; where it holds nothing else, its empty beginning.
std::string_view WithoutOuterLayout(std::string_view text);

}  // namespace trillomat
