// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/libreoffice/module_entry.h"

#include "reports/libreoffice/stored_spreadsheet.h"

#include <exception>
#include <type_traits>

namespace {

/// Exceptions of the office end here: nothing outside knows them.
template <typename Create>
kavo::Spreadsheet* created(Create create)
{
    try {
        return create();
    } catch (const css::uno::Exception&) {
        return nullptr;
    } catch (const std::exception&) {
        return nullptr;
    }
}

}  // namespace

extern "C" {

[[gnu::visibility("default")]] kavo::Spreadsheet* kavoCreateSpreadsheet(const std::stop_token& stop)
{
    return created([&stop] { return new kavo::LibreOfficeSpreadsheet({}, stop); });
}

[[gnu::visibility("default")]] kavo::Spreadsheet* kavoCreateHeadlessSpreadsheet(const char* profileUrl,
                                                                                const char* storeUrl,
                                                                                const std::stop_token& stop)
{
    const kavo::OfficeChoice choice{.headlessProfileUrl = profileUrl};
    return created([&]() -> kavo::Spreadsheet* {
        if (storeUrl == nullptr) return new kavo::LibreOfficeSpreadsheet(choice, stop);
        return new kavo::StoredSpreadsheet(choice, storeUrl, stop);
    });
}
}

static_assert(std::is_same_v<decltype(&kavoCreateSpreadsheet), kavo::CreateEntry>);
static_assert(std::is_same_v<decltype(&kavoCreateHeadlessSpreadsheet), kavo::CreateHeadlessEntry>);
