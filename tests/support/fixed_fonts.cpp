#include "tests/support/fixed_fonts.h"

#include <QFile>
#include <QtGlobal>

namespace kavo::test {

void useFixedFonts()
{
    const bool isInstalled = QFile::exists("/usr/share/fonts/truetype/dejavu/DejaVuSansMono.ttf");
    if (isInstalled) qputenv("FONTCONFIG_FILE", KAVO_SOURCE_FOLDER "/tests/data/fonts.conf");
}

}  // namespace kavo::test
