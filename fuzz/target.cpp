// One fuzz program: the body that is named FUZZ_BODY in the table FUZZ_TABLE.
#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "fuzz/bodies.h"
#include "fuzz/time_bound.h"

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer looks for this name.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace trillomat;
  const auto body = std::find_if(FUZZ_TABLE.begin(), FUZZ_TABLE.end(),
                                 [](const FuzzBody& each) { return each.name == FUZZ_BODY; });
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  RunInTime(*body, input);
  if (IsToBeLengthened(input)) RunInTime(*body, Lengthened(input, body->longInput));
  return 0;
}
