# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# kavo_layer(TARGET): gives the target an include root of its own. Whoever links the target may include the
# headers among its sources by their full path from the project's root ("core/session.h"); nobody else can,
# because the root itself is on no include path. Each header there only includes the real one: that works
# where links need a privilege, too, and lets two layers share a folder.
function(kavo_layer target)
    set(include_root "${CMAKE_BINARY_DIR}/include/${target}")
    get_target_property(sources ${target} SOURCES)
    get_target_property(source_folder ${target} SOURCE_DIR)
    list(FILTER sources INCLUDE REGEX "\\.h$")
    foreach(header IN LISTS sources)
        cmake_path(ABSOLUTE_PATH header BASE_DIRECTORY "${source_folder}" NORMALIZE)
        cmake_path(RELATIVE_PATH header BASE_DIRECTORY "${CMAKE_SOURCE_DIR}" OUTPUT_VARIABLE name)
        set(forwarding "${include_root}/${name}")
        cmake_path(GET forwarding PARENT_PATH folder)
        cmake_path(RELATIVE_PATH header BASE_DIRECTORY "${folder}" OUTPUT_VARIABLE target_of_include)
        if(NOT target_of_include)  # another drive
            set(target_of_include "${header}")
        endif()
        file(CONFIGURE OUTPUT "${forwarding}" CONTENT "#include \"${target_of_include}\"\n" @ONLY)
    endforeach()
    target_include_directories(${target} PUBLIC "${include_root}")
endfunction()
