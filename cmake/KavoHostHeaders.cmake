# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# kavo_host_headers(TARGET HEADER): the imported target of a library that consists of headers, which a build for
# another system takes from this one. Only its own folder gets onto the search path: beside it lie the headers of
# this system's C library.
function(kavo_host_headers target header)
    cmake_path(GET header PARENT_PATH folder)
    string(MAKE_C_IDENTIFIER "KAVO_HOST_${folder}" found)
    find_path(${found} "${header}" REQUIRED NO_CMAKE_FIND_ROOT_PATH)
    mark_as_advanced(${found})
    set(include_root "${CMAKE_BINARY_DIR}/include/host")
    file(MAKE_DIRECTORY "${include_root}")
    file(CREATE_LINK "${${found}}/${folder}" "${include_root}/${folder}" SYMBOLIC)
    add_library(${target} INTERFACE IMPORTED GLOBAL)
    target_include_directories(${target} SYSTEM INTERFACE "${include_root}")
endfunction()
