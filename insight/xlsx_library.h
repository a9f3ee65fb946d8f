// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <xlsxwriter.h>

namespace kavo {

/// The functions of libxlsxwriter that the sheet file needs, under the library's own names. The library is found when
/// the first sheet is written and not at each start: with the cryptography behind it that took a third of the time of
/// a `show` (2.5 instead of 1.5 ms).
struct XlsxLibrary
{
    decltype(&::workbook_new_opt) workbook_new_opt;
    decltype(&::workbook_add_worksheet) workbook_add_worksheet;
    decltype(&::workbook_add_format) workbook_add_format;
    decltype(&::workbook_set_properties) workbook_set_properties;
    decltype(&::workbook_close) workbook_close;
    decltype(&::lxw_workbook_free) lxw_workbook_free;
    decltype(&::worksheet_write_number) worksheet_write_number;
    decltype(&::worksheet_write_string) worksheet_write_string;
    decltype(&::worksheet_write_blank) worksheet_write_blank;
    decltype(&::worksheet_set_column) worksheet_set_column;
    decltype(&::format_set_font_color) format_set_font_color;
    decltype(&::format_set_bold) format_set_bold;
    decltype(&::format_set_num_format) format_set_num_format;
};

/// The library of that name, from where the system finds libraries; it stays loaded. Throws std::runtime_error with
/// the system's reason when it cannot be loaded, and with the function's name when it lacks one.
[[nodiscard]] XlsxLibrary loadXlsxLibrary(const char* name);

/// The library that the program was built with, loaded once. Throws as loadXlsxLibrary does.
[[nodiscard]] const XlsxLibrary& xlsxLibrary();

}  // namespace kavo
