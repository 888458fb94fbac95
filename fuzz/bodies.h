// What must hold for any input: one body for each way into the program. Each fuzz program runs one body over
// what libFuzzer invents; the tests run the bodies for texts over their own data and mutations of it.
#pragma once

#include <cstddef>
#include <span>
#include <stdexcept>
#include <string_view>

namespace trillomat {

struct FuzzBody {
  std::string_view name;  ///< of the fuzz program behind "fuzz_", and of the folder of its seeds
  void (*run)(std::string_view input);  ///< throws std::logic_error when something does not hold
  /// Processor time that an input may take: a few times what any input takes under the sanitizers.
  double microsecondsAByte = 50;
  size_t longInput = 1 << 16;  ///< bytes to which some inputs are lengthened, so that quadratic work shows
};

/// Throws std::logic_error of `what` unless it holds.
inline void Require(bool holds, const char* what) {
  if (!holds) throw std::logic_error(what);
}

// A table for each file of bodies, which links no more of the program than these need.
extern const std::span<const FuzzBody> kTextBodies;         ///< bodies.cpp: formats/ and exchange/
extern const std::span<const FuzzBody> kClipboardBodies;    ///< clipboard_body.cpp: files/ and exchange/
extern const std::span<const FuzzBody> kSongBodies;         ///< songs_body.cpp: files/ and exchange/
extern const std::span<const FuzzBody> kCommandLineBodies;  ///< command_line_body.cpp: cli/
extern const std::span<const FuzzBody> kStateBodies;        ///< state_bodies.cpp: files/ and settings/
extern const std::span<const FuzzBody> kEditingBodies;      ///< editing_body.cpp: composer/ and playback/

}  // namespace trillomat
