#include "core/element_texts.h"

#include "core/noticing_log.h"

namespace trillomat {

size_t ElementTexts::WriteFirst(const Element& element, TextWriter& text) {
  NoticingLog noticing(log_);
  const std::string made = make_(element, noticing);
  if (!noticing.Noticed() && Text::Holds(made)) known_.Keep(element, Text(made));
  text.Add(made);
  return made.size();
}

}  // namespace trillomat
