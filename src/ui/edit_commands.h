// "Cut", "Copy", "Paste" and their kin: what the "Edit" menu does beside the composer's own commands.
#pragma once

#include <QString>
#include <functional>

#include "composer/composer.h"
#include "core/services.h"

namespace trillomat {

class EditCommands {
 public:
  /// `say` shows why something was refused, and what was found.
  EditCommands(const Document& document, Composer& composer, const Services& services,
               std::function<void(const QString&)> say);

  /// Both do nothing where nothing is selected.
  void Cut();
  void Copy();
  /// A text that is no melody is refused and changes nothing.
  void Paste();
  /// Selects the next element that was not understood or that the format cannot hold, and says which and why,
  /// or that there is none.
  void GoToNextProblem();
  bool HasSelection() const { return !document_.Selection().IsEmpty(); }

 private:
  const Document& document_;
  Composer& composer_;
  Services services_;
  std::function<void(const QString&)> say_;
  bool pasting_ = false;  ///< reading lets events run, and with them another command
};

}  // namespace trillomat
