// The functions of SDL that the program calls, loaded when the first of them is wanted: SDL brings some forty
// libraries along, and most runs of the command line make no sound.
#pragma once

#include <SDL.h>

namespace trillomat {

struct SdlLibrary {
  decltype(&SDL_CloseAudioDevice) closeAudioDevice = nullptr;
  decltype(&SDL_FreeWAV) freeWav = nullptr;
  decltype(&SDL_GetError) getError = nullptr;
  decltype(&SDL_InitSubSystem) initSubSystem = nullptr;
  decltype(&SDL_LoadWAV_RW) loadWav = nullptr;
  decltype(&SDL_OpenAudioDevice) openAudioDevice = nullptr;
  decltype(&SDL_PauseAudioDevice) pauseAudioDevice = nullptr;
  decltype(&SDL_QuitSubSystem) quitSubSystem = nullptr;
  decltype(&SDL_RWFromConstMem) fileInMemory = nullptr;
  decltype(&SDL_SetHint) setHint = nullptr;
  decltype(&SDL_TLSCleanup) cleanUpThread = nullptr;
};

/// Loads it at the first call. Null where the system does not have it.
const SdlLibrary* Sdl();

}  // namespace trillomat
