# Builds for 64-bit Windows on Debian, with its MinGW compiler and POSIX threads.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# Nothing of the building machine's own is taken for Windows'. The root of Qt is its prefix.
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 $ENV{BRAMBLET_QT_WINDOWS})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# One file that needs no other: the compiler's own libraries go in as well, and what nobody calls
# stays out.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -s -Wl,--gc-sections")
