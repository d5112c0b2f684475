# Builds for 64-bit Windows with Debian's MinGW-w64. What scripts/windows-libraries has built is all that is linked:
# nothing of this machine's own headers and libraries is seen.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR AMD64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

if(DEFINED ENV{XDG_CACHE_HOME})
  set(CIMHTTP_WINDOWS_CACHE "$ENV{XDG_CACHE_HOME}/cimhttp/windows")
else()
  set(CIMHTTP_WINDOWS_CACHE "$ENV{HOME}/.cache/cimhttp/windows")
endif()
set(CMAKE_FIND_ROOT_PATH "${CIMHTTP_WINDOWS_CACHE}/libraries" /usr/x86_64-w64-mingw32)
set(CMAKE_PREFIX_PATH "/")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# A program or library needs nothing beside it but Windows and this project's own.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "-static")
set(OPENSSL_USE_STATIC_LIBS ON)

# Its programs run under Wine, in a Windows of their own.
set(CMAKE_CROSSCOMPILING_EMULATOR env "WINEPREFIX=${CIMHTTP_WINDOWS_CACHE}/wine" WINEDEBUG=-all wine)
