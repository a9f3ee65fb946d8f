// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/page/cells.h"

#include "insight/page/page_colours.h"

namespace kavo {

void writeHeading(Markup& page, std::string_view text, Sorting sorting)
{
    Markup::Attributes attributes = {{"scope", "col"}};
    if (sorting == Sorting::None) attributes.push_back({"class", "unsorted"});
    page.element("th", attributes, text);
}

void writeNameHeading(Markup& page, std::string_view name)
{
    page.open("th", {{"scope", "col"}}).name(name).close();
}

void writeRowName(Markup& page, std::string_view name, const std::string& value)
{
    page.open("th", {{"scope", "row"}, {"data-value", value}}).name(name).close();
}

std::string sortValue(std::optional<Hundredths> value)
{
    return value ? std::to_string(*value) : std::string();
}

void openCell(Markup& page, const CellForm& form)
{
    Markup::Attributes attributes = {{"data-label", form.label}};
    if (form.value) attributes.push_back({"data-value", *form.value});
    if (!form.colourClass.empty()) attributes.push_back({"class", form.colourClass});
    page.open("td", attributes);
}

void writeCell(Markup& page, const CellForm& form, std::string_view text)
{
    openCell(page, form);
    page.text(text).close();
}

void writeGradeCell(Markup& page, const std::string& label, const std::string& grade)
{
    CellForm form{.label = label, .value = ""};
    if (const auto category = categoryNamed(grade)) {
        form.value = std::to_string(static_cast<int>(*category));
        form.colourClass = gradeClass(*category);
    }
    writeCell(page, form, grade);
}

}  // namespace kavo
