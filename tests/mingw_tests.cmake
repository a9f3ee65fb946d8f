# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# Tests of the core as a Windows program, which tools/check_windows.sh runs under Wine.
set(gtest_folder /usr/src/googletest/googletest)  # its sources; Debian has no library of it for Windows
add_library(kavo_gtest STATIC "${gtest_folder}/src/gtest-all.cc" "${gtest_folder}/src/gtest_main.cc")
target_include_directories(kavo_gtest SYSTEM PUBLIC "${gtest_folder}/include" PRIVATE "${gtest_folder}")
target_compile_options(kavo_gtest PRIVATE -w)

file(GLOB core_tests CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/base/*_test.cpp"
    "${CMAKE_CURRENT_SOURCE_DIR}/core/*_test.cpp")
add_executable(kavo_windows_tests
    ${core_tests}
    reports/spreadsheet_export_test.cpp
    ${support_headers}
    support/loaded_folder.cpp
    support/program_folder_fixture.cpp
    support/table_text.cpp)
target_link_libraries(kavo_windows_tests PRIVATE kavo_writers kavo_gtest -static)
target_precompile_headers(kavo_windows_tests PRIVATE ${precompiled})
# Wine shows the whole file system of the host as drive Z.
kavo_places(kavo_windows_tests "Z:${CMAKE_SOURCE_DIR}")
kavo_layer(kavo_windows_tests)
