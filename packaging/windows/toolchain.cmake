# Cross-compiling for 64-bit Windows with Debian's MinGW compilers, everything linked statically. Libraries, headers and
# CMake packages come from what build-qt (beside this file) has put into its cache, never from this system's own folders.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)

# Remembered, so that a later run of CMake in the same build folder does not depend on the environment.
if(NOT PISTARO_WINDOWS_CACHE)
    if(DEFINED ENV{PISTARO_WINDOWS_CACHE})
        set(cache "$ENV{PISTARO_WINDOWS_CACHE}")
    elseif(DEFINED ENV{XDG_CACHE_HOME})
        set(cache "$ENV{XDG_CACHE_HOME}/pistaro/windows")
    else()
        set(cache "$ENV{HOME}/.cache/pistaro/windows")
    endif()
    set(PISTARO_WINDOWS_CACHE "${cache}" CACHE PATH "Where build-qt keeps the libraries for Windows")
    unset(cache)
endif()
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES PISTARO_WINDOWS_CACHE)

set(CMAKE_FIND_ROOT_PATH "${PISTARO_WINDOWS_CACHE}/prefix")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
