// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/fixed_fonts.h"

#include "tests/support/places.h"

#include <QFile>
#include <QtGlobal>

namespace kavo::test {

void useFixedFonts()
{
    const bool isInstalled = QFile::exists("/usr/share/fonts/truetype/dejavu/DejaVuSansMono.ttf");
    if (isInstalled) qputenv("FONTCONFIG_FILE", (sourceFolder() / "tests/data/fonts.conf").string().c_str());
}

}  // namespace kavo::test
