// What the command line needs of the system and the C++ library does not have: arguments in one
// encoding, streams that pass bytes unaltered, and who is at their other end.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace trillomat {

/// The arguments in UTF-8, without the program's name.
std::vector<std::string> Utf8Arguments(int argc, char** argv);

/// Standard input and output pass every byte as it is: no line ends are translated. One that was closed when
/// the program started fails, and no file that is opened later takes its number.
void PrepareStreams();

inline constexpr size_t kUsualColumns = 80;

/// The columns of the terminal that standard error is, kUsualColumns where it is none.
size_t ErrorColumns();

/// Whether what is shown on standard error for a moment is seen as that: it is a terminal, and no other
/// program gets standard output, which might show it at the same terminal.
bool IsErrorWatched();

/// Whether standard output is a pipe that nobody reads from any more; to be asked when it has failed.
bool IsOutputAbandoned();

}  // namespace trillomat
