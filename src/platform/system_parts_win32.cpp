#include "files/folder_keeper.h"
#include "platform/clock_win32.h"
#include "platform/file_store_win32.h"
#include "platform/sound_win32.h"
#include "platform/system_parts.h"

namespace trillomat {

std::unique_ptr<Clock> SystemClock() { return std::make_unique<Win32Clock>(); }

// The player reports what cannot be sounded.
std::unique_ptr<SoundDevice> SystemSound(Log& /*log*/) { return std::make_unique<Win32Sound>(); }

std::unique_ptr<FileStore> SystemFileStore() { return std::make_unique<Win32FileStore>(); }

std::unique_ptr<FileKeeper> SystemFileKeeper(FileStore& files, const std::filesystem::path& stateFolder) {
  return std::make_unique<FolderKeeper>(files, stateFolder / "kept-files");
}

}  // namespace trillomat
