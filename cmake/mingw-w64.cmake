# Cross-builds the Qt-free libraries, the Win32 backend and its Wine harness with Debian's
# mingw-w64 (posix threads, for std::thread and std::mutex):
#   cmake -S . -B build-win -G Ninja -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-w64.cmake
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(QC_MINGW_PREFIX x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${QC_MINGW_PREFIX}-gcc-posix)
set(CMAKE_CXX_COMPILER ${QC_MINGW_PREFIX}-g++-posix)
set(CMAKE_RC_COMPILER ${QC_MINGW_PREFIX}-windres)
set(CMAKE_FIND_ROOT_PATH /usr/${QC_MINGW_PREFIX})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
# Self-contained programs: Wine then needs no runtime DLLs beside them.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -static-libgcc -static-libstdc++")
set(CMAKE_CROSSCOMPILING_EMULATOR wine)
# Qt is not cross-built here.
set(QC_QT OFF CACHE BOOL "" FORCE)
