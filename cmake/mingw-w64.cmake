# Toolchain file: 64-bit Windows programs from Debian's MinGW-w64, with the posix thread model that
# std::thread and std::mutex need. Everything is linked statically, so that a program asks for no DLL
# beyond the system's. Its tests run under Wine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)

# Libraries, headers and CMake packages of the build machine are never those of the target. Whoever
# configures may name further folders for the target, as -DCMAKE_FIND_ROOT_PATH=FOLDER.
list(APPEND CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
list(REMOVE_DUPLICATES CMAKE_FIND_ROOT_PATH)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
