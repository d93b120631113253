# How our own code is compiled, everywhere alike.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)

add_library(pistaro_compiler INTERFACE)
target_include_directories(pistaro_compiler INTERFACE ${PROJECT_SOURCE_DIR}/src)
# Saved designs must come out the same with every compiler: no fused multiply-add, no relaxed arithmetic.
target_compile_options(pistaro_compiler INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wswitch-enum -ffp-contract=off -fno-fast-math)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(pistaro_compiler INTERFACE -Wno-restrict) # GCC 12 warns of its own string header
endif()
if(PISTARO_WARNINGS_AS_ERRORS)
    target_compile_options(pistaro_compiler INTERFACE -Werror)
endif()
if(PISTARO_SANITIZERS)
    # GCC sees uninitialised values in what the sanitizers add to its own library's headers.
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer
        -Wno-maybe-uninitialized)
    add_link_options(-fsanitize=address,undefined)
endif()
if(PISTARO_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined,float-cast-overflow -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
