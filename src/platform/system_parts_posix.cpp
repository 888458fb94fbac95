#include "files/folder_keeper.h"
#include "platform/clock_std.h"
#include "platform/file_store_posix.h"
#include "platform/sound_sdl.h"
#include "platform/system_parts.h"
#include "platform/trash_posix.h"

namespace trillomat {

std::unique_ptr<Clock> SystemClock() { return std::make_unique<StdClock>(); }

std::unique_ptr<SoundDevice> SystemSound(Log& log) { return std::make_unique<SdlSound>(log); }

std::unique_ptr<FileStore> SystemFileStore() { return std::make_unique<PosixFileStore>(DriveMap()); }

std::unique_ptr<FileKeeper> SystemFileKeeper(FileStore& files, const std::filesystem::path& stateFolder) {
  if (auto trash = DesktopTrash()) return std::make_unique<Trash>(files, std::move(*trash));
  return std::make_unique<FolderKeeper>(files, stateFolder / "kept-files");
}

}  // namespace trillomat
