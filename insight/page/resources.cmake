# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# Builds the style sheet and the script of the pages into the program, with the script's hash for the
# content-security policy.

# base64_of_sha256(RESULT TEXT)
function(base64_of_sha256 result text)
    set(alphabet "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/")
    string(SHA256 digest "${text}")
    set(encoded "")
    # 64 digits of 4 bits and two zeros to fill up: three digits are two letters.
    string(REGEX MATCHALL "..." triples "${digest}00")
    foreach(triple IN LISTS triples)
        math(EXPR high "0x${triple} / 64")
        math(EXPR low "0x${triple} % 64")
        string(SUBSTRING "${alphabet}" ${high} 1 first)
        string(SUBSTRING "${alphabet}" ${low} 1 second)
        string(APPEND encoded "${first}${second}")
    endforeach()
    string(SUBSTRING "${encoded}" 0 43 encoded)
    set(${result} "${encoded}=" PARENT_SCOPE)
endfunction()

# page_text(RESULT FILE): with LF at the ends of lines, as browsers hash it, whatever a checkout has made of them.
function(page_text result file)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${file}")
    file(READ "${file}" text)
    string(REPLACE "\r" "" text "${text}")
    set(${result} "${text}" PARENT_SCOPE)
endfunction()

page_text(PAGE_STYLE "${CMAKE_CURRENT_SOURCE_DIR}/page/page.css")
page_text(PAGE_SCRIPT "${CMAKE_CURRENT_SOURCE_DIR}/page/page.js")
base64_of_sha256(PAGE_SCRIPT_HASH "${PAGE_SCRIPT}")
configure_file("${CMAKE_CURRENT_SOURCE_DIR}/page/page_resources.h.in"
    "${CMAKE_BINARY_DIR}/include/kavo_insight/insight/page/page_resources.h" @ONLY)
