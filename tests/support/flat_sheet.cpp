// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/flat_sheet.h"

#include "base/text.h"
#include "base/text_file.h"

#include <array>

namespace kavo::test {

namespace {

using Attributes = std::map<std::string, std::string, std::less<>>;

struct Style
{
    Colour colour = 0;
    bool bold = false;
    double columnWidth = 0;
};

std::string unescaped(std::string_view text)
{
    constexpr std::array<std::pair<std::string_view, std::string_view>, 5> kEntities = {
        {{"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&apos;", "'"}, {"&amp;", "&"}}};
    std::string result(text);
    for (const auto& [entity, character] : kEntities) result = replaceAll(result, entity, character);
    return result;
}

/// The next tag of a document, and the text before it.
struct Tag
{
    std::string name;  ///< with a leading "/" when it closes an element
    Attributes attributes;
    std::string textBefore;
};

class TagReader final
{
public:
    explicit TagReader(std::string_view xml) : m_xml(xml) {}

    [[nodiscard]] bool next(Tag& tag)
    {
        const auto start = m_xml.find('<', m_position);
        const auto end = m_xml.find('>', start);
        if (end == std::string_view::npos) return false;
        tag = {{}, {}, unescaped(m_xml.substr(m_position, start - m_position))};
        readTag(tag, m_xml.substr(start + 1, end - start - 1));
        m_position = end + 1;
        return true;
    }

private:
    static void readTag(Tag& tag, std::string_view inside)
    {
        tag.name = inside.substr(0, inside.find_first_of(" /", 1));
        for (auto equals = inside.find("=\""); equals != std::string_view::npos;) {
            const auto name = inside.rfind(' ', equals) + 1;
            const auto close = inside.find('"', equals + 2);
            tag.attributes.emplace(inside.substr(name, equals - name),
                                   unescaped(inside.substr(equals + 2, close - equals - 2)));
            equals = inside.find("=\"", close);
        }
    }

    std::string_view m_xml;
    std::size_t m_position = 0;
};

std::string valueOf(const Attributes& attributes, std::string_view name)
{
    const auto found = attributes.find(name);
    return found != attributes.end() ? found->second : "";
}

/// How many rows or columns an element stands for.
int repeated(const Attributes& attributes, std::string_view name)
{
    const std::string text = valueOf(attributes, name);
    return text.empty() ? 1 : integerOf(text);
}

Colour colourOf(const std::string& hex)
{
    if (hex.size() != 7) return 0;
    const auto part = [&hex](std::size_t at) { return std::stoi(hex.substr(at, 2), nullptr, 16); };
    return rgb(part(1), part(3), part(5));
}

class SheetReader final
{
public:
    FlatSheet read(std::string_view xml)
    {
        TagReader reader(xml);
        for (Tag tag; reader.next(tag);) take(tag);
        return m_sheet;
    }

private:
    void take(const Tag& tag)
    {
        const Attributes& attributes = tag.attributes;
        if (tag.name == "style:style") m_style = &m_styles[valueOf(attributes, "style:name")];
        if (tag.name == "style:text-properties" && m_style != nullptr) takeFont(attributes);
        if (tag.name == "style:table-column-properties" && m_style != nullptr)
            m_style->columnWidth = numberOf(valueOf(attributes, "style:column-width"));
        if (tag.name == "/style:style") m_style = nullptr;
        if (tag.name == "table:table") ++m_sheet.sheets;
        if (m_sheet.sheets != 1) return;
        if (tag.name == "table:table-column") takeColumn(attributes);
        if (tag.name == "table:table-row") startRow(attributes);
        if (tag.name == "/table:table-row") endRow();
        if (tag.name == "table:table-cell") takeCell(attributes);
        if (tag.name == "/text:p") m_sheet.cells[{m_row, m_column}].text += tag.textBefore;
    }

    void takeFont(const Attributes& attributes)
    {
        m_style->colour = colourOf(valueOf(attributes, "fo:color"));
        m_style->bold = valueOf(attributes, "fo:font-weight") == "bold";
    }

    void takeColumn(const Attributes& attributes)
    {
        for (int i = repeated(attributes, "table:number-columns-repeated"); i > 0; --i) {
            const int column = static_cast<int>(m_columnStyles.size()) + 1;
            m_columnStyles[column] = valueOf(attributes, "table:default-cell-style-name");
            m_sheet.columnWidths[column] = m_styles[valueOf(attributes, "table:style-name")].columnWidth;
        }
    }

    void startRow(const Attributes& attributes)
    {
        ++m_row;
        m_column = 0;
        m_rowRepeated = repeated(attributes, "table:number-rows-repeated");
        m_rowStyle = valueOf(attributes, "table:default-cell-style-name");
    }

    void endRow()
    {
        const int written = m_row;
        m_row += m_rowRepeated - 1;
        m_sheet.writtenRows[m_row] = written;
    }

    /// A cell without a style of its own has its row's, and without that its column's.
    void takeCell(const Attributes& attributes)
    {
        for (int i = repeated(attributes, "table:number-columns-repeated"); i > 0; --i) {
            ++m_column;
            std::string style = valueOf(attributes, "table:style-name");
            if (style.empty()) style = m_rowStyle;
            if (style.empty()) style = m_columnStyles[m_column];
            const Style& found = m_styles[style];
            m_sheet.cells[{m_row, m_column}] = {{}, valueOf(attributes, "office:value-type"), found.colour, found.bold};
        }
    }

    FlatSheet m_sheet;
    std::map<std::string, Style> m_styles;
    Style* m_style = nullptr;
    std::map<int, std::string> m_columnStyles;
    std::string m_rowStyle;
    int m_row = 0;
    int m_rowRepeated = 1;
    int m_column = 0;
};

}  // namespace

ShownCell FlatSheet::cell(int row, int column) const
{
    const auto written = writtenRows.lower_bound(row);
    if (written == writtenRows.end() || written->second > row) return {};
    const auto found = cells.find({written->second, column});
    return found != cells.end() ? found->second : ShownCell{};
}

FlatSheet readFlatSheet(const std::filesystem::path& file)
{
    return SheetReader().read(readFile(file));
}

}  // namespace kavo::test
