#include "files/refusal_text.h"

#include "core/ascii.h"
#include "core/code_page.h"
#include "core/number_text.h"

namespace trillomat {
namespace {

std::string PlaceText(const Refusal& refusal) {
  if (refusal.line == 0) return {};
  return "line " + std::to_string(refusal.line) + ", column " + std::to_string(refusal.column);
}

std::string FoundText(const Refusal& refusal) {
  if (refusal.line == 0) return {};
  if (!refusal.text.empty()) return " (\"" + refusal.text + "\")";
  return refusal.column == 1 ? " (an empty line)" : " (the line ends there)";
}

}  // namespace

std::string RefusalText(std::string_view name, const Refusal& refusal) {
  const std::string place = PlaceText(refusal);
  std::string text(name);
  if (!text.empty() && !place.empty()) text += ", ";
  text += place;
  if (!text.empty()) text += ": ";
  text += ToUtf8(refusal.why + FoundText(refusal));
  return refusal.advice.empty() ? text : text + ". " + ToUtf8(refusal.advice) + ".";
}

std::string NotUnderstoodText(const NotUnderstood& lost) {
  if (lost.count == 0) return {};
  const std::string elements = Counted(lost.of, "element", "elements");
  const std::string first = lost.first.text.empty() ? "empty" : "\"" + ToUtf8(lost.first.text) + "\"";
  const std::string place = PlaceText(lost.first);
  return std::to_string(lost.count) + " of " + elements +
         (lost.count == 1 ? " was not understood: it is " : " were not understood, the first is ") + first +
         (place.empty() ? "" : " in " + place);
}

std::string SentenceText(std::string_view why) {
  std::string sentence(why);
  if (!sentence.empty()) sentence.front() = ToUpper(sentence.front());
  return sentence + '.';
}

// What stands alone needs no full stop.
std::string JoinedSentences(std::string first, const std::string& second) {
  if (first.empty() || second.empty()) return first + second;
  if (!first.ends_with('.')) first += '.';
  return first + " " + second + (second.ends_with('.') ? "" : ".");
}

}  // namespace trillomat
