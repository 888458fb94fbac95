// Any token and any record through the codec, in every notation.
#include <fuzzer/FuzzedDataProvider.h>

#include "fuzz/checks.h"

namespace trillomat {
namespace {

MelodyNote AnyNote(FuzzedDataProvider& data) {
  MelodyNote note;
  note.Octave = data.ConsumeIntegral<int16_t>();
  note.Duration = data.ConsumeBool() ? data.PickValueInArray(kDurations) : data.ConsumeFloatingPoint<float>();
  note.DurationExtra = data.PickValueInArray(kDurationExtras);
  note.Note = data.ConsumeRandomLengthString(8);
  note.Special = data.ConsumeRandomLengthString(8);
  return note;
}

void FuzzCodec(FuzzedDataProvider& data) {
  SilentWorkspace fuzz;
  Workspace& ws = fuzz.ws;
  ws.codec.defaults = {data.ConsumeIntegral<int16_t>(), data.PickValueInArray(kDurations)};
  MelodyList melody{AnyNote(data)};
  const FormatMode mode = kModeLimits.at(data.ConsumeIntegralInRange<size_t>(0, 3)).mode;
  melody.push_back(ws.codec.DecodeNote(data.ConsumeRemainingBytesAsString(), mode));
  WriteEverywhere(melody, ws);
}

}  // namespace
}  // namespace trillomat

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer looks for this name.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  FuzzedDataProvider provider(data, size);
  trillomat::FuzzCodec(provider);
  return 0;
}
