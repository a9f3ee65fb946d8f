# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# The tests as Windows programs, which run under Wine (tools/check_windows.sh, packaging/windows/test.sh).
add_compile_options(-O0)  # half of the time that they take to compile
set(gtest_folder /usr/src/googletest/googletest)  # its sources; Debian has no library of it for Windows
add_library(kavo_gtest STATIC "${gtest_folder}/src/gtest-all.cc")
target_include_directories(kavo_gtest SYSTEM PUBLIC "${gtest_folder}/include" PRIVATE "${gtest_folder}")
target_compile_options(kavo_gtest PRIVATE -w)

file(GLOB_RECURSE all_tests CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*_test.cpp")
# Another way to the office serves there.
list(FILTER all_tests EXCLUDE REGEX "/libreoffice|/office_l")
set(window_tests ${all_tests})
list(FILTER window_tests INCLUDE REGEX "_window_test\\.cpp$")
set(plain_tests ${all_tests})
list(FILTER plain_tests EXCLUDE REGEX "_window_test\\.cpp$")
if(NOT KAVO_GUI)
    # The quick build: what differs most between the systems.
    list(FILTER plain_tests INCLUDE REGEX "/(base|core)/|/(report_dates|spreadsheet_export)_test\\.cpp$")
endif()

add_library(kavo_test_support STATIC ${support_headers} ${support_sources})
target_link_libraries(kavo_test_support PUBLIC kavo_writers kavo_gtest)
target_precompile_headers(kavo_test_support PRIVATE ${precompiled})
# Wine shows the whole file system of the host as drive Z.
kavo_places(kavo_test_support "Z:${CMAKE_SOURCE_DIR}")
kavo_layer(kavo_test_support)

add_executable(kavo_windows_tests ${plain_tests} "${gtest_folder}/src/gtest_main.cc")
target_link_libraries(kavo_windows_tests PRIVATE kavo_cli kavo_insight kavo_test_support nlohmann_json::nlohmann_json)
target_precompile_headers(kavo_windows_tests REUSE_FROM kavo_test_support)
kavo_windows_resources(kavo_windows_tests "Tests of Kavo Timing")

if(KAVO_GUI)
    find_package(Qt6 REQUIRED COMPONENTS Test)
    include(window_tests.cmake)
    kavo_windows_resources(kavo_window_tests "Tests of Kavo Timing's windows")
    # Their system's own dialogs would wait for somebody.
    qt_import_plugins(kavo_window_tests INCLUDE Qt6::QOffscreenIntegrationPlugin Qt6::QWindowsIntegrationPlugin)
endif()

# The stand-in for Excel that the tests start through the system.
add_executable(kavo_recording_application WIN32 support/recording_application.cpp)
target_link_libraries(kavo_recording_application PRIVATE ole32 oleaut32 uuid)
kavo_windows_resources(kavo_recording_application "Stand-in for an office")
add_dependencies(kavo_windows_tests kavo_recording_application)
