// "Cut", "Copy", "Paste" and their kin: what the "Edit" menu does beside the composer's own commands.
#pragma once

#include <QString>
#include <functional>

#include "composer/composer.h"
#include "core/services.h"
#include "ui/melody_clipboard.h"

namespace trillomat {

/// Called with what the commands came to.
struct EditCallbacks {
  std::function<void(const QString&)> say;  ///< a text for the status bar
  /// What is to be said of a paste, UTF-8 and empty where all went well, and what the clipboard held.
  std::function<void(std::string said, const ClipboardMelody&)> pasted;
};

class EditCommands {
 public:
  EditCommands(const Document& document, Composer& composer, const Services& services,
               EditCallbacks callbacks);

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
  EditCallbacks callbacks_;
  bool pasting_ = false;  ///< reading lets events run, and with them another command
};

}  // namespace trillomat
