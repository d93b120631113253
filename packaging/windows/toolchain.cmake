# Cross-compiling for 64-bit Windows with Debian's MinGW compilers, everything linked statically. Libraries, headers and
# CMake packages come from what build-libraries (beside this file) has put into its cache, never from this system's own folders.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)

if(NOT PISTARO_WINDOWS_CACHE)
    message(FATAL_ERROR "PISTARO_WINDOWS_CACHE, the folder that build-libraries fills, is not set: packaging/windows/build does so")
endif()
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES PISTARO_WINDOWS_CACHE)

set(CMAKE_FIND_ROOT_PATH "${PISTARO_WINDOWS_CACHE}/prefix")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
