# How our own code is compiled: one interface target that every target of ours links.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 11)
set(CMAKE_C_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_C_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(CCACHE ccache)
if(CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_C_COMPILER_LAUNCHER ${CCACHE})
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

add_library(nuv64_options INTERFACE)
# Results are fixed to the last bit: no contraction, no fast-math, on any compiler.
target_compile_options(nuv64_options INTERFACE -ffp-contract=off -fno-math-errno)
# No program puts functions of its own into the place of exports: a source may inline its own ones.
target_compile_options(nuv64_options INTERFACE -fno-semantic-interposition)
target_compile_options(nuv64_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion
    $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor>)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # GCC 12 warns inside its own std::string, at text + std::string&& (GCC bug 105651).
    target_compile_options(nuv64_options INTERFACE -Wno-restrict)
endif()
if(NUV64_WERROR)
    target_compile_options(nuv64_options INTERFACE -Werror)
endif()
if(NUV64_SANITIZE)
    target_compile_options(nuv64_options INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(nuv64_options INTERFACE -fsanitize=address,undefined)
endif()
if(NUV64_FUZZ)
    target_compile_options(nuv64_options INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(WIN32)
    target_compile_definitions(nuv64_options INTERFACE UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX
                               _WIN32_WINNT=0x0601)
    target_link_options(nuv64_options INTERFACE -static)
endif()
