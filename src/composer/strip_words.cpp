#include "composer/strip_words.h"

#include "composer/element_words.h"
#include "core/codec.h"

namespace trillomat {
namespace {

std::string WordsAt(const Document& document, int32_t index) {
  const Element& element = document.At(index);
  const std::string_view lacks = IsHeld(element, document.Mode()) ? "" : ", not in this format";
  return ElementWords(element, document.Info().bpm) + std::string(lacks) + ".";
}

std::string Position(const Document& document) {
  const std::string count = std::to_string(document.LastIndex() + 1);
  const int32_t cursor = document.Cursor();
  if (!document.HasElement(cursor)) return "Before the first of " + count + " elements.";
  return "Element " + std::to_string(cursor + 1) + " of " + count + ": " + WordsAt(document, cursor);
}

}  // namespace

std::string StripWords(const Document& document) {
  if (document.IsEmpty()) return "The melody is empty.";
  std::string words = Position(document);
  const int32_t next = document.Cursor() + 1;
  if (document.HasElement(next)) words += " Next: " + WordsAt(document, next);
  const ElementRange selected = document.Selection();
  if (selected.IsEmpty()) return words;
  words += " Selected: " + std::to_string(selected.begin + 1);
  if (selected.Size() > 1) words += " to " + std::to_string(selected.end);
  return words + ".";
}

}  // namespace trillomat
