// Makes the system calls of the file store fail. The test program is linked so that the calls of the
// program's own libraries come through here (--wrap).
#pragma once

namespace trillomat {

/// The calls that can fail, as bits.
enum SystemCall : unsigned { kOpen = 1, kWrite = 2, kFlush = 4, kRename = 8, kUnlink = 16, kLink = 32 };

/// The kind of medium that the calls pretend to work on.
enum class Medium { AsItIs, NoLinks, NoNamelessFiles };

struct SystemFaults {
  Medium medium = Medium::AsItIs;
  unsigned calls = 0;  ///< the calls that count, as bits
  int fails = 0;       ///< which of them fails, counted from 1; 0 for none
  int code = 0;        ///< the error that it fails with
  int count = 0;       ///< how many of them there have been
};

/// What is to fail in this process.
SystemFaults& Faults();

}  // namespace trillomat
