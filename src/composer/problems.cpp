#include "composer/problems.h"

#include "composer/element_words.h"
#include "core/codec.h"

namespace trillomat {

std::optional<int32_t> NextProblem(const Document& document) {
  const int32_t count = document.LastIndex() + 1;
  for (int32_t step = 1; step <= count; ++step) {
    const int32_t index = (document.Cursor() + step) % count;
    const Element& element = document.At(index);
    if (!IsUnderstood(element) || !IsHeld(element, document.Mode())) return index;
  }
  return std::nullopt;
}

std::string ProblemWords(const Document& document, std::optional<int32_t> index) {
  const std::string format(LimitsOf(document.Mode()).caption);
  if (!index) return "No problem: all elements are understood, and " + format + " can hold them";
  const Element& element = document.At(*index);
  return "Element " + std::to_string(*index + 1) + " of " + std::to_string(document.LastIndex() + 1) + ": " +
         (IsUnderstood(element) ? format + " cannot hold it" : "not understood") + " (" +
         ElementWords(element) + ")";
}

}  // namespace trillomat
