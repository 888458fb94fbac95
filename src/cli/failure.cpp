#include "cli/failure.h"

#include <iostream>

namespace trillomat {

void Complain(const std::exception& failure) {
  std::string text = "trillomat-cli: ";
  text += failure.what();
  text += '\n';
  if (const auto* const refused = dynamic_cast<const Refused*>(&failure)) text += refused->Extract();
  std::cerr << text;
}

}  // namespace trillomat
