// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "reports/libreoffice/module_entry.h"
#include "reports/spreadsheet_application.h"

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>

namespace kavo::test {

[[nodiscard]] inline std::string fileUrl(const std::filesystem::path& path)
{
    return "file://" + path.string();
}

/// An office without windows that has a user profile of its own in `folder`. With `storedAs` it stores
/// its workbook there at the end, and ends.
[[nodiscard]] inline std::unique_ptr<Spreadsheet> headlessOffice(const std::filesystem::path& module,
                                                                 const std::filesystem::path& folder,
                                                                 const std::filesystem::path& storedAs = {},
                                                                 const std::stop_token& stop = {})
{
    const auto create = reinterpret_cast<CreateHeadlessEntry>(moduleEntry(module, kCreateHeadlessEntry));
    const std::string storeUrl = fileUrl(storedAs);
    std::unique_ptr<Spreadsheet> sheet(
        create(fileUrl(folder / "profile").c_str(), storedAs.empty() ? nullptr : storeUrl.c_str(), stop));
    if (!sheet) throw std::runtime_error("the office does not start");
    return sheet;
}

}  // namespace kavo::test
