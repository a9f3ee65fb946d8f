// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "fuzz_input.h"
#include "reports/html_export.h"
#include "reports/template_file.h"

namespace {

/// Text that is counted and dropped.
class CountedLines final : public kavo::ReportLines
{
public:
    void write(std::string_view text) override { m_size += text.size(); }
    [[nodiscard]] std::size_t size() const { return m_size; }

private:
    std::size_t m_size = 0;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const kavo::TemplateSections sections = kavo::loadTemplate({}, kavo::fuzz::textOf(data, size));
    kavo::fuzz::require(kavo::loadTemplate({}, kavo::formatTemplate(sections)) == sections);
    static const kavo::Session session;
    CountedLines report;
    kavo::writeHtmlReport(session, sections, {.date = "1", .dateTime = "2", .time = "3"}, report);
    kavo::fuzz::require(report.size() <= kavo::kTotalsRow * (2 * size + 200));
    return 0;
}
