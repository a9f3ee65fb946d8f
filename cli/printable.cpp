#include "cli/printable.h"

#include "base/text.h"

#include <algorithm>

namespace kavo {

namespace {

bool isPlain(char character)
{
    return character >= 0x20 && character < 0x7F;
}

}  // namespace

std::string printable(std::string_view text)
{
    std::string result = toUtf8(text);
    std::replace_if(
        result.begin(), result.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }, ' ');
    return replaceAll(result, "\xC2\x9B", " ");  // the one-character form of "escape ["
}

void makePrintable(std::string& text)
{
    if (!std::all_of(text.begin(), text.end(), isPlain)) text = printable(text);
}

}  // namespace kavo
