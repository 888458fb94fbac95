// What must hold for any input: one body for each way into the program's texts. The fuzz programs run one
// body each over what libFuzzer invents, the tests run all of them over their data and mutations of it.
#pragma once

#include <array>
#include <string_view>

namespace trillomat {

struct FuzzBody {
  std::string_view name;  ///< of the fuzz program behind "fuzz_", and of the folder of its seeds
  void (*run)(std::string_view input);  ///< throws std::logic_error when something does not hold
};

extern const std::array<FuzzBody, 9> kFuzzBodies;

}  // namespace trillomat
