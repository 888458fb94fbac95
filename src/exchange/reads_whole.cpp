#include "exchange/reads_whole.h"

#include <algorithm>
#include <string>

#include "core/codec.h"
#include "core/event_pump.h"
#include "formats/formats.h"

namespace trillomat {
namespace {

class IdlePump : public EventPump {
 public:
  bool PumpEvents() override { return true; }
  bool WaitForEvents(double /*milliseconds*/) override { return true; }
};

}  // namespace

bool ReadsWhole(std::string_view notes, FormatMode mode) {
  SilentLog silent;
  IdlePump pump;
  const std::string end = mode == FormatMode::Melody ? "" : "\r\nEND:EMELODY\r\n";
  const std::string text = (mode == FormatMode::Melody ? "" : "MELODY:") + std::string(notes) + end;
  const ReadResult read = Read(text, mode, {}, {silent, pump});
  return read && std::all_of(read.elements.begin(), read.elements.end(), IsUnderstood);
}

}  // namespace trillomat
