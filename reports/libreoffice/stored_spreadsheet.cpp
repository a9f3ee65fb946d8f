// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/libreoffice/stored_spreadsheet.h"

#include "reports/libreoffice/office_values.h"

#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/frame/XStorable.hpp>
#include <com/sun/star/util/XCloseable.hpp>

#include <utility>

using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

namespace kavo {

namespace {

constexpr auto kLongestEnd = std::chrono::seconds(20);

}  // namespace

StoredSpreadsheet::StoredSpreadsheet(const OfficeChoice& choice, std::string storeUrl, const std::stop_token& stop)
    : LibreOfficeSpreadsheet(choice, stop), m_storeUrl(std::move(storeUrl))
{
}

StoredSpreadsheet::~StoredSpreadsheet()
{
    try {
        store();
    } catch (const css::uno::Exception&) {
        // The test finds no file then.
    }
    terminate();
    // Its profile is the test's, which deletes it next.
    static_cast<void>(connection().waitForEnd(kLongestEnd));
}

void StoredSpreadsheet::store()
{
    const Any filter(rtl::OUString("OpenDocument Spreadsheet Flat XML"));
    Reference<css::frame::XStorable>(workbook(), UNO_QUERY_THROW)
        ->storeToURL(officeText(m_storeUrl), onlyProperty("FilterName", filter));
    Reference<css::util::XCloseable>(workbook(), UNO_QUERY_THROW)->close(sal_True);
}

void StoredSpreadsheet::terminate()
{
    try {
        css::frame::Desktop::create(connection().office())->terminate();
    } catch (const css::uno::Exception&) {
        // It may end faster than it answers.
    }
}

}  // namespace kavo
