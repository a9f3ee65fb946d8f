# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# kavo_qt_rules(TARGET): bytes become text where a source says how (forms/screen_text.h), never by themselves; only
# literals may.
function(kavo_qt_rules target)
    target_compile_definitions(${target} PRIVATE
        QT_RESTRICTED_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_URL_CAST_FROM_STRING
        QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_DISABLE_DEPRECATED_BEFORE=0x060400)
endfunction()

# kavo_window_layer(TARGET): a layer (KavoLayer.cmake) with windows in it. The first one compiles Qt's headers, which
# are most of what the compiler reads for a window; the others use what it has made.
function(kavo_window_layer target)
    kavo_qt_rules(${target})
    if(target STREQUAL "kavo_forms")
        target_precompile_headers(kavo_forms PRIVATE
            <QApplication> <QComboBox> <QDialog> <QGridLayout> <QGroupBox> <QHeaderView> <QKeyEvent> <QLabel>
            <QLineEdit> <QMenu> <QPainter> <QPushButton> <QTimer> <QTreeView>
            <algorithm> <filesystem> <functional> <memory> <optional> <string> <string_view> <vector>)
    else()
        target_precompile_headers(${target} REUSE_FROM kavo_forms)
    endif()
    kavo_layer(${target})
endfunction()
