#include "cli/stream_log.h"

#include "core/code_page.h"

namespace trillomat {

void StreamLog::WriteLog(std::string_view message, int16_t level) {
  if (level < 2 && !verbose_) return;
  stream_ << level << ": " << ToUtf8(message) << '\n';
}

}  // namespace trillomat
