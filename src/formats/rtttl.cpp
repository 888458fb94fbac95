// The RTTTL file ("rtx"): one line of RTTTL text (rtttl_notes.h), ended by CR LF. A loop count of the header
// becomes a repeat around the notes when it is read.
//
//   Tune:d=4,o=5,b=120,l=3:8C,P,C#6.
#include "core/number_text.h"
#include "formats/format_functions.h"
#include "formats/rtttl_notes.h"
#include "formats/rtttl_text.h"

namespace trillomat {
namespace {

void AddRepeat(Reading& reading) {
  const int16_t loop = reading.record.info.loop;
  reading.services.log.WriteLog("Adding the repeat.....", 1);
  reading.elements.insert(reading.elements.begin(), Command("("));
  reading.elements.push_back(Command(loop >= kHighestLoop ? "@0)" : "@" + DecimalText(loop) + ")"));
}

}  // namespace

void ReadRtttl(Reading& reading) {
  RequireCharacters(reading, 5);
  const RtttlParts parts = TakeRtttlText(reading);
  if (reading.record.info.loop != 0) AddRepeat(reading);
  if (reading.elements.empty()) {
    throw ReadFault(ReadFault::Kind::Logged, "the text holds no notes", parts.notes, kRtttlAdvice);
  }
}

Result<std::string> WriteRtttl(const Song& song, const Services& services) {
  return RtttlFile(song, RtttlSpelling::Classic, services.log);
}

}  // namespace trillomat
