// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/window_layout.h"

#include "base/file_name.h"
#include "base/text.h"
#include "base/text_cursor.h"

#include <cmath>

namespace kavo {

std::vector<double> parseLayoutValues(std::string_view text)
{
    std::vector<double> values;
    TextCursor cursor(text);
    while (values.size() < kLayoutValues && !cursor.atEnd()) {
        const std::string_view field = cursor.field();
        if (!isNumeric(field)) break;
        values.push_back(numberOf(field));
    }
    return values;
}

WindowLayout withValues(WindowLayout layout, const std::vector<double>& values)
{
    std::vector<double*> places = {&layout.left, &layout.top, &layout.height, &layout.width};
    for (double& width : layout.columnWidths) places.push_back(&width);
    auto value = values.begin();
    for (double* place : places) {
        if (value == values.end()) break;
        *place = *value++;
    }
    return layout;
}

std::string formatLayout(const WindowLayout& layout)
{
    std::string text;
    const auto add = [&text](double value) { text.append(asLine(printedNumber(value))); };
    add(layout.left);
    add(layout.top);
    add(layout.height);
    add(layout.width);
    for (const double width : layout.columnWidths) add(std::floor(width));
    return text;
}

std::filesystem::path layoutFile(const std::filesystem::path& userFolder)
{
    return locate(userFolder / "view.dat");
}

}  // namespace kavo
