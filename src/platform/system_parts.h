// The system's own implementation of each seam, for the programs to wire in.
#pragma once

#include <filesystem>
#include <memory>

#include "core/clock.h"
#include "core/log.h"
#include "files/file_keeper.h"
#include "files/file_store.h"
#include "playback/sound_device.h"

namespace trillomat {

std::unique_ptr<Clock> SystemClock();

/// `log` hears why there is no sound, and has to outlive the device.
std::unique_ptr<SoundDevice> SystemSound(Log& log);

std::unique_ptr<FileStore> SystemFileStore();

/// The desktop's trash; where there is none, and on Windows, a folder of the program's own in `stateFolder`.
/// `files` has to outlive it.
std::unique_ptr<FileKeeper> SystemFileKeeper(FileStore& files, const std::filesystem::path& stateFolder);

}  // namespace trillomat
