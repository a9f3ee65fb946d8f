// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/text_file.h"
#include "core/program_folder.h"
#include "reports/spreadsheet_application.h"
#include "reports/spreadsheet_export.h"
#include "tests/support/export_season.h"
#include "tests/support/program_folder_fixture.h"
#include "tests/support/recording_spreadsheet.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <map>
#include <sstream>
#include <string>
#include <utility>
#include <vector>
#include <windows.h>

namespace kavo::test {

/// Whether the tests have a Windows of their own.
inline bool isThisWine()
{
    return ::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

/// The default value of a key among the classes of this Windows, as long as this lives. (Wine knows no classes of a
/// user.)
class ClassValue final
{
public:
    ClassValue(const std::wstring& key, const std::wstring& value) : m_key(L"Software\\Classes\\" + key)
    {
        ::RegSetKeyValueW(HKEY_LOCAL_MACHINE, m_key.c_str(), nullptr, REG_SZ, value.c_str(),
                          static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
    }
    ~ClassValue() { ::RegDeleteTreeW(HKEY_LOCAL_MACHINE, m_key.c_str()); }
    ClassValue(const ClassValue&) = delete;
    ClassValue& operator=(const ClassValue&) = delete;

private:
    std::wstring m_key;
};

using Lines = std::vector<std::string>;

/// An office as Windows knows it: by a name, and by the number that stands for it.
struct OfficeClass
{
    std::wstring name;
    std::wstring number;
};

/// Numbers of our own: the real ones would reach somebody's own office.
inline OfficeClass excelClass()
{
    return {L"Excel.Application", L"{6B1D5A0E-7C0B-4F0B-9A51-3C7E5D2F8A01}"};
}

inline OfficeClass calcClass()
{
    return {L"com.sun.star.ServiceManager", L"{6B1D5A0E-7C0B-4F0B-9A51-3C7E5D2F8A02}"};
}

/// A stand-in of our own that is registered under the name of an office, as long as this lives. It notes down what it
/// is asked for.
class RecordedOffice final
{
public:
    /// `order`: what it does when it is asked for a member ("refuse Color", "die Color").
    explicit RecordedOffice(const OfficeClass& office, const std::wstring& order = L"")
        : m_number(office.name + L"\\CLSID", office.number),
          m_server(L"CLSID\\" + office.number + L"\\LocalServer32",
                   L"\"" + (executableFolder() / "kavo_recording_application.exe").wstring() + L"\" " + office.number +
                       L" \"" + (m_folder / "log.txt").wstring() + L"\" " + order)
    {
    }

    /// Line by line; nothing where it was never started.
    [[nodiscard]] Lines log() const
    {
        Lines lines;
        std::istringstream text(readFileIfThere(m_folder / "log.txt").value_or(""));
        for (std::string line; std::getline(text, line);) lines.push_back(line);
        return lines;
    }

private:
    TemporaryFolder m_folder;
    ClassValue m_number;
    ClassValue m_server;
};

/// Exports a season to an office, in the Windows of the tests.
class RecordedExport : public testing::Test
{
protected:
    explicit RecordedExport(OfficeClass office) : m_office(std::move(office)) {}

    void SetUp() override
    {
        if (!isThisWine()) GTEST_SKIP() << "would start somebody's own office";
        m_season.load("2", "bob.txt");
    }

    /// What the office was asked for; with an order, where it refuses something or dies.
    Lines exported(const std::wstring& order = L"")
    {
        const RecordedOffice office(m_office, order);
        exportSeason();
        return office.log();
    }

    void expectSilenceWhereRefused(std::initializer_list<std::wstring> members)
    {
        for (const std::wstring& member : members) {
            const Lines log = exported(L"refuse " + member);
            ASSERT_FALSE(log.empty());
            EXPECT_EQ(log.back(), "released");
        }
    }

    void expectSilenceWhereItDies(const std::wstring& member)
    {
        const Lines log = exported(L"die " + member);
        ASSERT_GT(log.size(), 5U);
        EXPECT_NE(log.back(), "released");
    }

    /// To whatever is registered.
    void exportSeason(const CreateSpreadsheet& create = openSpreadsheetApplication)
    {
        ExportExcel(m_season.session.table, m_season.session.state, m_season.session.colours, "20.11.2026", create);
    }

    /// The same export, as the recording application of all systems has it.
    SheetRecord expected()
    {
        SheetRecord record;
        exportSeason(recordingSpreadsheet(record));
        return record;
    }

private:
    OfficeClass m_office;
    ExportSeason m_season;
};

/// Something of each cell, by "row column".
using CellTexts = std::map<std::string, std::string>;

inline std::string placeText(int row, int column)
{
    return std::to_string(row) + " " + std::to_string(column);
}

/// A line for each cell, of which a failing test shows those that differ.
inline std::string linesOf(const CellTexts& texts)
{
    std::string lines;
    for (const auto& [place, text] : texts) lines.append(place).append(": ").append(text).append("\n");
    return lines;
}

/// The values of all tables in a log.
inline CellTexts tablesOf(const Lines& log)
{
    CellTexts texts;
    for (const std::string& line : log) {
        if (!line.starts_with("cell ")) continue;
        const std::size_t text = line.find(' ', line.find(' ', 5) + 1);
        texts[line.substr(5, text - 5)] = line.substr(text + 1);
    }
    return texts;
}

/// What the lines with `before`, a list of ranges ("B3:B9,D4"), `between`, and a value say of each cell.
inline CellTexts rangesOf(const Lines& log, const std::string& before, const std::string& between)
{
    CellTexts texts;
    for (const std::string& line : log) {
        const std::size_t start = line.find(before);
        const std::size_t end = line.find(between);
        if (start == std::string::npos || end == std::string::npos) continue;
        const std::size_t first = start + before.size();
        std::istringstream ranges(line.substr(first, end - first));
        for (std::string range; std::getline(ranges, range, ',');) {
            const std::size_t colon = range.find(':');
            const int top = std::stoi(range.substr(1));
            const int bottom = colon == std::string::npos ? top : std::stoi(range.substr(colon + 2));
            for (int row = top; row <= bottom; ++row)
                texts[placeText(row, range[0] - 'A' + 1)] = line.substr(end + between.size());
        }
    }
    return texts;
}

/// How often the application was called: every object that is asked for is one, too.
inline int callsIn(const Lines& log)
{
    int calls = 0;
    for (const std::string& line : log)
        calls += static_cast<int>(line.starts_with("get ") || line.starts_with("set ") || line.starts_with("call "));
    return calls;
}

}  // namespace kavo::test
