# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# The program that drives the windows with real keys and clicks, from the files in window_tests.
# Without the names of two folders in every compilation, which nothing here uses.
set_target_properties(Qt6::Test PROPERTIES INTERFACE_COMPILE_DEFINITIONS QT_TESTLIB_LIB)
add_library(kavo_window_test_support STATIC
    support/all_windows.cpp
    support/all_windows.h
    support/fixed_fonts.cpp
    support/fixed_fonts.h
    support/pictures.cpp
    support/pictures.h
    support/recording_desktop.h
    support/report_window_fixture.h
    support/scripted_prompts.cpp
    support/scripted_prompts.h
    support/window_fixture.h)
target_link_libraries(kavo_window_test_support PUBLIC kavo_app kavo_updater kavo_test_support Qt6::Test)
target_precompile_headers(kavo_window_test_support PRIVATE ${precompiled}
    <QApplication> <QCheckBox> <QComboBox> <QDialog> <QGroupBox> <QLabel> <QLineEdit> <QListWidget> <QMenu>
    <QPlainTextEdit> <QProgressBar> <QPushButton> <QRadioButton> <QSignalSpy> <QSpinBox> <QTest> <QTimer>
    <QTreeView>)
kavo_qt_rules(kavo_window_test_support)
kavo_layer(kavo_window_test_support)
add_executable(kavo_window_tests window_test_main.cpp
    support/gate.h
    support/heartbeat.h
    support/page_server.cpp
    support/page_server.h
    support/wait_until.h
    ui/settings/options_window_fixture.h
    ui/settings/view_window_fixture.h
    updater/updater_window_fixture.h
    ${window_tests})
kavo_qt_rules(kavo_window_tests)
kavo_layer(kavo_window_tests)
set_target_properties(kavo_window_tests PROPERTIES AUTOMOC ON)
target_link_libraries(kavo_window_tests PRIVATE kavo_window_test_support kavo_reports)
target_precompile_headers(kavo_window_tests REUSE_FROM kavo_window_test_support)
