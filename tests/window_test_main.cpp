// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/application.h"
#include "tests/support/fixed_fonts.h"

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();  // needs no display
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    kavo::test::useFixedFonts();
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);  // no test can answer those of the system
    kavo::Application application(argc, argv);
    return RUN_ALL_TESTS();
}
