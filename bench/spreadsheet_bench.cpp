// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/loading.h"
#include "reports/spreadsheet_export.h"
#include "tests/support/headless_office.h"
#include "tests/support/places.h"
#include "tests/support/program_folder_fixture.h"

#include <chrono>
#include <cstdio>

/// Measures how long an export takes once the office has answered, and beside it how long the office takes to start.
namespace {

using namespace kavo;
using Clock = std::chrono::steady_clock;

constexpr int kExports = 5;

double millisecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

Session demoSession(const test::TemporaryFolder& folder)
{
    test::copyDemo(folder);
    Session session;
    session.programFolder = folder.path();
    test::HostRecord host;
    if (load(session, host, {.user = "Marek", .makesFolders = true}).end != LoadingEnd::Completed)
        throw std::runtime_error("the demo does not load");
    return session;
}

/// Into the office that runs on the folder's profile.
double measuredExport(const test::TemporaryFolder& folder, const Session& session)
{
    Clock::time_point answered;
    ExportExcel(session.table, session.state, session.colours, "20.11.2026", [&](const std::stop_token&) {
        auto sheet = test::headlessOffice(test::officeModule(), folder.path());
        answered = Clock::now();
        return sheet;
    });
    return millisecondsSince(answered);
}

}  // namespace

int main()
{
    const test::TemporaryFolder folder;
    const Session session = demoSession(folder);
    const auto start = Clock::now();
    const auto office = test::headlessOffice(test::officeModule(), folder.path(), folder / "empty.fods");
    std::printf("start of the office with a new profile: %.0f ms\n", millisecondsSince(start));
    office->addWorkbook();
    for (int i = 0; i < kExports; ++i) std::printf("export: %.0f ms\n", measuredExport(folder, session));
    return 0;
}
