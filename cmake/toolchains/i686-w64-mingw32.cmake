# Cross-compiling for 32-bit Windows with Debian's mingw-w64 (win32 thread
# model): the VB6 IDE is a 32-bit process, so its add-ins are too.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(_triple i686-w64-mingw32)
set(CMAKE_C_COMPILER ${_triple}-gcc-win32)
set(CMAKE_CXX_COMPILER ${_triple}-g++-win32)
set(CMAKE_RC_COMPILER ${_triple}-windres)
set(TESSALY_WIDL ${_triple}-widl CACHE STRING "The IDL compiler for the type library")
set(CMAKE_FIND_ROOT_PATH /usr/${_triple})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
