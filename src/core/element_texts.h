// The texts of many elements: that of each distinct one is made once, because a melody holds the same few
// again and again.
#pragma once

#include <functional>
#include <string>

#include "core/element.h"
#include "core/element_cache.h"
#include "core/log.h"
#include "core/text_writer.h"

namespace trillomat {

class ElementTexts {
 public:
  using Make = std::function<std::string(const Element&, Log&)>;

  /// `elements`: about how many will be written. `make` gives the text of one, which may depend on nothing
  /// but the element; the text of one that it logs about is made anew each time, so that each is logged.
  ElementTexts(size_t elements, Make make, Log& log) : make_(std::move(make)), known_(elements), log_(log) {}

  /// Writes the text of `element` and gives its size.
  size_t Write(const Element& element, TextWriter& text) {
    const Text* const known = known_.Find(element);
    if (known == nullptr) return WriteFirst(element, text);
    text.Add(*known);
    return known->size;
  }

 private:
  using Text = ReadyText<15>;

  size_t WriteFirst(const Element& element, TextWriter& text);

  Make make_;
  ElementCache<Text> known_;
  Log& log_;
};

}  // namespace trillomat
