#include "platform/clock_std.h"
#include "platform/file_store_posix.h"
#include "platform/sound_sdl.h"
#include "platform/system_parts.h"

namespace trillomat {

std::unique_ptr<Clock> SystemClock() { return std::make_unique<StdClock>(); }

std::unique_ptr<SoundDevice> SystemSound(Log& log) { return std::make_unique<SdlSound>(log); }

std::unique_ptr<FileStore> SystemFileStore() { return std::make_unique<PosixFileStore>(DriveMap()); }

}  // namespace trillomat
