// Level-2 log messages as message boxes of the window system.
#pragma once

#include <string_view>

#include "core/log.h"

namespace trillomat {

class QtMessageBox : public MessageBox {
 public:
  /// A plain box with an OK button over the active window. Events run until it is closed.
  bool ShowMessage(std::string_view message, bool offerSilence) override;
};

}  // namespace trillomat
