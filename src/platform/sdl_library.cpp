#include "platform/sdl_library.h"

#include <dlfcn.h>

#include <optional>
#include <type_traits>

namespace trillomat {
namespace {

// The library stays loaded, because its threads and those of the sound servers' libraries may outlive the
// last call.
std::optional<SdlLibrary> Load() {
  void* const library = dlopen("libSDL2-2.0.so.0", RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) return std::nullopt;
  SdlLibrary sdl;
  bool whole = true;
  const auto find = [&](auto& function, const char* name) {
    function = reinterpret_cast<std::remove_reference_t<decltype(function)>>(dlsym(library, name));
    whole = whole && function != nullptr;
  };
  find(sdl.closeAudioDevice, "SDL_CloseAudioDevice");
  find(sdl.freeWav, "SDL_FreeWAV");
  find(sdl.getError, "SDL_GetError");
  find(sdl.initSubSystem, "SDL_InitSubSystem");
  find(sdl.loadWav, "SDL_LoadWAV_RW");
  find(sdl.openAudioDevice, "SDL_OpenAudioDevice");
  find(sdl.pauseAudioDevice, "SDL_PauseAudioDevice");
  find(sdl.quitSubSystem, "SDL_QuitSubSystem");
  find(sdl.fileInMemory, "SDL_RWFromConstMem");
  find(sdl.setHint, "SDL_SetHint");
  find(sdl.cleanUpThread, "SDL_TLSCleanup");
  return whole ? std::optional(sdl) : std::nullopt;
}

}  // namespace

const SdlLibrary* Sdl() {
  static const std::optional<SdlLibrary> sdl = Load();
  return sdl ? &*sdl : nullptr;
}

}  // namespace trillomat
