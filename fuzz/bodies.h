// What must hold for any input: one body for each way into the program. The fuzz programs run one body each
// over what libFuzzer invents; the tests run those over texts over their data and mutations of it.
#pragma once

#include <span>
#include <stdexcept>
#include <string_view>

namespace trillomat {

struct FuzzBody {
  std::string_view name;  ///< of the fuzz program behind "fuzz_", and of the folder of its seeds
  void (*run)(std::string_view input);  ///< throws std::logic_error when something does not hold
};

/// Throws std::logic_error of `what` unless it holds.
inline void Require(bool holds, const char* what) {
  if (!holds) throw std::logic_error(what);
}

// A table for each file of bodies, which links no more of the program than these need.
extern const std::span<const FuzzBody> kTextBodies;         ///< bodies.cpp: formats/ and exchange/
extern const std::span<const FuzzBody> kCommandLineBodies;  ///< command_line_body.cpp: cli/
extern const std::span<const FuzzBody> kStateBodies;        ///< state_bodies.cpp: files/ and settings/
extern const std::span<const FuzzBody> kEditingBodies;      ///< editing_body.cpp: composer/ and playback/

}  // namespace trillomat
