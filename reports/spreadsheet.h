// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/colour_set.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <string_view>
#include <variant>

namespace kavo {

/// A text that stays a text, whatever it looks like: a player may be called "=1+1" or "1/2".
struct PlainText
{
    std::string_view text;  ///< UTF-8
};

/// A text as if typed into the cell: the application's own locale decides what it is read as.
struct TypedText
{
    std::string_view text;
};

using CellValue = std::variant<PlainText, TypedText, std::int32_t>;

/// Font marks of a cell. What is not named stays as it is.
struct CellFont
{
    std::optional<Colour> colour = {};
    std::optional<bool> bold = {};
};

/// A running spreadsheet application of the user's, as far as an export needs it. It belongs to the user
/// and outlives this object and the program. Rows and columns are numbered from 1. Every operation
/// throws a std::exception when the application refuses it or is gone, or was asked to stop.
class Spreadsheet
{
public:
    Spreadsheet() = default;
    virtual ~Spreadsheet() = default;
    Spreadsheet(const Spreadsheet&) = delete;
    Spreadsheet& operator=(const Spreadsheet&) = delete;

    virtual void makeVisible() = 0;
    virtual void setSheetsInNewWorkbook(int count) = 0;

    /// The first sheet of the new workbook is the one that the operations below work on.
    virtual void addWorkbook() = 0;

    virtual void setCellValue(int row, int column, const CellValue& value) = 0;
    virtual void setCellFont(int row, int column, const CellFont& font) = 0;

    /// Fits the widths of whole columns, the last one included, to their contents.
    virtual void autoFitColumns(int first, int last) = 0;
};

/// The first operation: creates an instance of the application, which may take long. Never null; throws a
/// std::exception when there is none, and soon after `stop` has been asked for. It, the instance and its end
/// belong to one thread.
using CreateSpreadsheet = std::function<std::unique_ptr<Spreadsheet>(std::stop_token stop)>;

}  // namespace kavo
