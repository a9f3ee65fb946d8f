# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# Flags that every target of the project is built with.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Wshadow)
if(KAVO_WERROR)
    add_compile_options(-Werror)
endif()
# GCC 12 reports "literal" + std::string at -O3 as overlapping memory, which it is not (its bug 105651).
add_compile_options($<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
# No message and no debug information tells in which folder something was built.
add_compile_options("-ffile-prefix-map=${CMAKE_SOURCE_DIR}/=")

# Compilers started by ccache share what checkouts and build folders have in common, precompiled headers included.
find_program(KAVO_CCACHE ccache DOC "Starts the compiler where it is; OFF: nothing does")
if(KAVO_CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env "CCACHE_BASEDIR=${CMAKE_SOURCE_DIR}" CCACHE_NOHASHDIR=1
        CCACHE_SLOPPINESS=pch_defines,time_macros "${KAVO_CCACHE}")
endif()

if(KAVO_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

# kavo_measured(TARGET): a layer of which every line has to be tested.
function(kavo_measured target)
    if(KAVO_COVERAGE)
        target_compile_options(${target} PRIVATE --coverage -fprofile-update=atomic -O0)  # several threads count
        target_link_options(${target} PUBLIC --coverage)
    endif()
endfunction()

if(KAVO_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

# What is given away checks its buffers, its stack and the standard library's preconditions while it runs.
if(NOT KAVO_SANITIZE AND NOT KAVO_COVERAGE AND NOT KAVO_FUZZ)
    set(release "$<CONFIG:Release,RelWithDebInfo,MinSizeRel>")
    add_compile_options("$<${release}:-D_GLIBCXX_ASSERTIONS>")
    if(NOT WIN32)
        include(CheckPIESupported)
        check_pie_supported(LANGUAGES CXX)
        set(CMAKE_POSITION_INDEPENDENT_CODE ON)
        add_compile_options("$<${release}:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=3;-fstack-protector-strong;-fstack-clash-protection>")
        if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64|i.86")
            add_compile_options("$<${release}:-fcf-protection>")
        endif()
        add_link_options("$<${release}:LINKER:-z,relro,-z,now,-z,noexecstack>")
    endif()
endif()
