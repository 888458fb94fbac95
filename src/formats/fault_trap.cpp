#include "formats/fault_trap.h"

#include <algorithm>

namespace trillomat {

bool RunTrapped(std::string_view routine, Workspace& ws, const std::function<void()>& body) {
  ws.refusal.clear();
  try {
    body();
    return true;
  } catch (const QuietFailure& failure) {
    ws.refusal = failure.what();
  } catch (const std::exception& fault) {
    ws.log.WriteLog("Error in " + std::string(routine), 1);
    ws.refusal = fault.what();
  }
  return false;
}

bool ReadTrapped(std::string_view routine, Workspace& ws, const std::function<void()>& body) {
  const LogOperation operation(ws.log);
  ws.ImportMelody.clear();
  if (RunTrapped(routine, ws, body)) return true;
  ws.ImportMelody.clear();
  return false;
}

void PumpOrLeave(Workspace& ws) {
  if (!ws.pump.PumpEvents()) throw QuietFailure("the program is ending");
}

std::string Quoted(std::string_view text) {
  constexpr size_t kLongest = 60;
  std::string shown(text.substr(0, kLongest));
  std::replace_if(
      shown.begin(), shown.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, '?');
  return "\"" + shown + (text.size() > kLongest ? "...\"" : "\"");
}

}  // namespace trillomat
