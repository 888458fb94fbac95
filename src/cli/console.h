// What the command line needs of the system and the C++ library does not have: arguments in one
// encoding, and streams that pass bytes unaltered.
#pragma once

#include <string>
#include <vector>

namespace trillomat {

/// The arguments in UTF-8, without the program's name.
std::vector<std::string> Utf8Arguments(int argc, char** argv);

/// Standard input and output pass every byte as it is: no line ends are translated. One that was closed when
/// the program started fails, and no file that is opened later takes its number.
void PrepareStreams();

}  // namespace trillomat
