// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/sheet_file.h"

#include "base/run_time_error.h"
#include "base/text.h"
#include "base/text_file.h"
#include "insight/xlsx_library.h"
#include "reports/spreadsheet_export.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <tuple>

namespace fs = std::filesystem;

namespace kavo {

namespace {

constexpr const char* kTimeFormat = "[mm]:ss.00";
constexpr double kHundredthsOfADay = 24.0 * 60 * 60 * 100;
constexpr std::size_t kLongestText = 32000;  // characters; a cell takes a little more

/// The whole number that a text is; nothing for any other text.
std::optional<Hundredths> wholeNumber(std::string_view text)
{
    Hundredths number = 0;
    const char* end = text.data() + text.size();
    const auto [stopped, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc{} || stopped != end || text.empty() || text.front() == '-') return std::nullopt;
    return number;
}

/// The text as the file can hold it: what could be read as the escape of a character is no such thing, and two
/// characters that no such file may have are the usual sign for what cannot be shown.
std::string cellText(std::string_view text)
{
    const std::string plain = replaceAll(firstCharacters(text, kLongestText), "_x", "_x005F_x");
    return replaceAll(replaceAll(plain, "\uFFFE", "\uFFFD"), "\uFFFF", "\uFFFD");
}

/// A folder of its own for the library's file, removed with all that is in it.
class TemporaryPlace final
{
public:
    TemporaryPlace()
    {
        std::error_code error;
        std::string name = (fs::temp_directory_path(error) / "kavo-sheet-XXXXXX").string();
        if (error || ::mkdtemp(name.data()) == nullptr) throw RunTimeError(Failure::PathFileAccess, name);
        m_folder = name;
    }

    ~TemporaryPlace()
    {
        std::error_code ignored;
        fs::remove_all(m_folder, ignored);
    }

    TemporaryPlace(const TemporaryPlace&) = delete;
    TemporaryPlace& operator=(const TemporaryPlace&) = delete;

    [[nodiscard]] fs::path file() const { return m_folder / "sheet.xlsx"; }
    [[nodiscard]] const fs::path& folder() const { return m_folder; }

private:
    fs::path m_folder;
};

}  // namespace

/// Puts the cells of a sheet into a file.
class WorkbookWriter final
{
public:
    WorkbookWriter(const fs::path& file, const fs::path& temporaryFolder) : m_folder(temporaryFolder.string())
    {
        lxw_workbook_options options{};
        options.tmpdir = m_folder.data();
        m_workbook = m_library.workbook_new_opt(file.c_str(), &options);
        if (m_workbook == nullptr) throw RunTimeError(Failure::PathFileAccess, file);
        m_worksheet = m_library.workbook_add_worksheet(m_workbook, nullptr);
    }

    ~WorkbookWriter()
    {
        if (m_workbook != nullptr) m_library.lxw_workbook_free(m_workbook);
    }

    WorkbookWriter(const WorkbookWriter&) = delete;
    WorkbookWriter& operator=(const WorkbookWriter&) = delete;

    void write(const SheetFile& sheet)
    {
        for (const auto& [place, cell] : sheet.m_cells) writeCell(place.first, place.second, cell);
        for (int column = sheet.m_fitted.first; column <= sheet.m_fitted.second; ++column) fitColumn(sheet, column);
    }

    void close(std::time_t created)
    {
        lxw_doc_properties properties{};
        properties.created = std::max<std::time_t>(created, 1);  // 0 would stand for the present moment
        m_library.workbook_set_properties(m_workbook, &properties);
        const lxw_error error = m_library.workbook_close(m_workbook);
        m_workbook = nullptr;
        if (error != LXW_NO_ERROR) throw RunTimeError(Failure::DiskFull, m_folder);
    }

private:
    using FormatKey = std::tuple<std::optional<Colour>, bool, bool>;

    void writeCell(int row, int column, const SheetFile::SheetCell& cell)
    {
        const auto at = std::pair(static_cast<lxw_row_t>(row - 1), static_cast<lxw_col_t>(column - 1));
        const bool isTime = std::holds_alternative<SheetFile::Time>(cell.value);
        lxw_format* format = formatFor({cell.colour, cell.bold, isTime});
        if (isTime) {
            const auto value = static_cast<double>(std::get<SheetFile::Time>(cell.value).value) / kHundredthsOfADay;
            m_library.worksheet_write_number(m_worksheet, at.first, at.second, value, format);
        } else if (const auto* number = std::get_if<std::int32_t>(&cell.value)) {
            m_library.worksheet_write_number(m_worksheet, at.first, at.second, *number, format);
        } else if (const auto* text = std::get_if<std::string>(&cell.value)) {
            m_library.worksheet_write_string(m_worksheet, at.first, at.second, text->c_str(), format);
        } else {
            m_library.worksheet_write_blank(m_worksheet, at.first, at.second, format);
        }
    }

    lxw_format* formatFor(const FormatKey& key)
    {
        const auto [colour, isBold, isTime] = key;
        if (!colour && !isBold && !isTime) return nullptr;
        lxw_format*& format = m_formats[key];
        if (format != nullptr) return format;
        format = m_library.workbook_add_format(m_workbook);
        if (colour) m_library.format_set_font_color(format, libraryColour(*colour));
        if (isBold) m_library.format_set_bold(format);
        if (isTime) m_library.format_set_num_format(format, kTimeFormat);
        return format;
    }

    static lxw_color_t libraryColour(Colour colour)
    {
        const auto bits = static_cast<std::uint32_t>(colour);
        const std::uint32_t rgb = (bits & 0xFFU) << 16U | (bits & 0xFF00U) | (bits >> 16U & 0xFFU);
        return rgb == 0 ? static_cast<lxw_color_t>(LXW_COLOR_BLACK) : rgb;  // 0 would stand for no colour
    }

    void fitColumn(const SheetFile& sheet, int column)
    {
        constexpr double kRoom = 1.5;  // for the edges, in characters
        std::size_t longest = 0;
        for (const auto& [place, cell] : sheet.m_cells)
            if (place.second == column) longest = std::max(longest, lengthOf(cell));
        const auto index = static_cast<lxw_col_t>(column - 1);
        if (longest > 0)
            m_library.worksheet_set_column(m_worksheet, index, index, static_cast<double>(longest) + kRoom, nullptr);
    }

    static std::size_t lengthOf(const SheetFile::SheetCell& cell)
    {
        constexpr std::size_t kTimeLength = 8;
        constexpr std::size_t kWidest = 80;  // characters; a name beyond that would hide all other columns
        if (std::holds_alternative<SheetFile::Time>(cell.value)) return kTimeLength;
        if (const auto* number = std::get_if<std::int32_t>(&cell.value)) return std::to_string(*number).size();
        const auto* text = std::get_if<std::string>(&cell.value);
        return text != nullptr ? std::min(countCharacters(*text), kWidest) : 0;
    }

    const XlsxLibrary& m_library = xlsxLibrary();
    std::string m_folder;  ///< kept here because the library only borrows it
    lxw_workbook* m_workbook = nullptr;
    lxw_worksheet* m_worksheet = nullptr;
    std::map<FormatKey, lxw_format*> m_formats;
};

std::optional<Hundredths> spreadsheetTime(std::string_view form)
{
    constexpr std::size_t kMostFields = 3;  // hours, minutes and seconds
    const std::size_t comma = form.find(',');
    const auto hundredths = wholeNumber(comma == std::string_view::npos ? "" : form.substr(comma + 1));
    if (!hundredths || form.size() - comma != 3) return std::nullopt;
    Hundredths seconds = 0;
    std::size_t fields = 0;
    for (std::string_view rest = form.substr(0, comma); ++fields <= kMostFields;) {
        const std::size_t colon = rest.find(':');
        const auto number = wholeNumber(rest.substr(0, colon));
        if (!number) return std::nullopt;
        seconds = seconds * 60 + *number;
        if (colon == std::string_view::npos) break;
        rest.remove_prefix(colon + 1);
    }
    if (fields < 2 || fields > kMostFields) return std::nullopt;
    return seconds * 100 + *hundredths;
}

void SheetFile::setCellValue(int row, int column, const CellValue& value)
{
    SheetCell& cell = m_cells[{row, column}];
    if (const auto* number = std::get_if<std::int32_t>(&value)) {
        cell.value = *number;
    } else if (const auto* plain = std::get_if<PlainText>(&value)) {
        cell.value = cellText(plain->text);
    } else if (const auto* typed = std::get_if<TypedText>(&value)) {
        const auto time = spreadsheetTime(typed->text);
        if (time)
            cell.value = Time{*time};
        else
            cell.value = cellText(typed->text);
    }
}

void SheetFile::setCellFont(int row, int column, const CellFont& font)
{
    SheetCell& cell = m_cells[{row, column}];
    if (font.colour) cell.colour = font.colour;
    if (font.bold) cell.bold = *font.bold;
}

std::string SheetFile::bytes(std::time_t created) const
{
    const TemporaryPlace place;
    {
        WorkbookWriter writer(place.file(), place.folder());
        writer.write(*this);
        writer.close(created);
    }
    return readFile(place.file());
}

std::string sheetFileOf(const Session& session, std::string_view shortDate, std::time_t created)
{
    SheetFile sheet;
    fillSpreadsheet(sheet, session.table, session.state, session.colours, shortDate);
    return sheet.bytes(created);
}

}  // namespace kavo
