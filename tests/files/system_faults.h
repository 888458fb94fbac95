// Makes the system calls fail with which the file store works. The test program is linked so that the calls
// of the program's own libraries come through here (--wrap).
#pragma once

namespace trillomat {

/// The calls that can fail, as bits.
enum SystemCall : unsigned { kOpen = 1, kWrite = 2, kFlush = 4, kRename = 8, kUnlink = 16, kLink = 32 };

/// Which medium the calls pretend.
enum class Medium { AsItIs, NoLinks, NoNamelessFiles };

struct SystemFaults {
  Medium medium = Medium::AsItIs;
  unsigned calls = 0;  ///< those that are counted
  int fails = 0;       ///< the how-manieth of them fails, from 1; 0 none
  int code = 0;        ///< with this error
  int count = 0;       ///< how many there have been
};

/// Of this process.
SystemFaults& Faults();

}  // namespace trillomat
