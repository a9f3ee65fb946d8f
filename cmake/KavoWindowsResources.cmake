# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# kavo_windows_resources(PROGRAM DESCRIPTION): what Windows shows of a program (icon, version) and how it treats it
# (manifest). Nothing elsewhere.
function(kavo_windows_resources program description)
    if(NOT WIN32)
        return()
    endif()
    find_package(Python3 REQUIRED COMPONENTS Interpreter)
    set(sources "${CMAKE_SOURCE_DIR}/packaging/windows")
    set(icon "${CMAKE_CURRENT_BINARY_DIR}/${program}.ico")
    set(manifest "${sources}/program.manifest")
    set(pictures "")
    foreach(size 16 24 32 48 64 128 256)
        list(APPEND pictures "${CMAKE_SOURCE_DIR}/packaging/icons/kavo-timing-${size}.png")
    endforeach()
    add_custom_command(OUTPUT "${icon}"
        COMMAND Python3::Interpreter -B "${sources}/make_icon.py" "${icon}" ${pictures}
        DEPENDS "${sources}/make_icon.py" ${pictures}
        VERBATIM)
    string(REPLACE "." "," numbers "${PROJECT_VERSION}.0")
    set(script "${CMAKE_CURRENT_BINARY_DIR}/${program}.rc")
    configure_file("${sources}/program.rc.in" "${script}" @ONLY)
    # By hand: the project's compiler options, which CMake would hand on, mean nothing to this compiler.
    set(object "${CMAKE_CURRENT_BINARY_DIR}/${program}.res.o")
    add_custom_command(OUTPUT "${object}"
        COMMAND "${CMAKE_RC_COMPILER}" --input-format=rc --output-format=coff "${script}" "${object}"
        DEPENDS "${script}" "${icon}" "${manifest}"
        VERBATIM)
    target_sources(${program} PRIVATE "${object}")
endfunction()
