// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// A real office that is no longer waited for: at once, while it starts, and while it works.

#include "base/file_name.h"
#include "tests/support/headless_office.h"
#include "tests/support/places.h"
#include "tests/support/processes.h"
#include "tests/support/program_folder_fixture.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <stop_token>
#include <thread>

namespace kavo {
namespace {

using namespace std::chrono_literals;
using test::lookUntil;
using test::processesWith;

constexpr auto kMoment = 2s;  // far less than an office takes that does not answer

/// An office that this test has started is ended with it.
class LibreOfficeStop : public testing::Test
{
protected:
    void SetUp() override
    {
        if (test::officeModule().empty()) GTEST_SKIP() << "built without the module (no LibreOffice SDK was found)";
        if (!fileExists(test::officeFolder() / "program/libsclo.so"))
            GTEST_SKIP() << "LibreOffice Calc is not installed";
    }

    void TearDown() override
    {
        test::signalProcesses(profile(), SIGKILL);
        EXPECT_TRUE(lookUntil([this] { return processesWith(profile()).empty(); }));
    }

    [[nodiscard]] std::string profile() const { return test::fileUrl(folder / "profile"); }

    std::unique_ptr<Spreadsheet> office() const
    {
        return test::headlessOffice(test::officeModule(), folder.path(), {}, stop.get_token());
    }

    /// Runs `work` on a thread of its own until `isTime`, then does something to it, and expects `work` to end by
    /// an exception in a moment.
    template <typename Work, typename IsTime, typename Disturb>
    static void expectEnded(Work work, IsTime isTime, Disturb disturb)
    {
        bool hasThrown = false;
        std::thread worker([&] {
            try {
                work();
            } catch (const std::exception&) {
                hasThrown = true;
            }
        });
        EXPECT_TRUE(lookUntil(isTime));
        const auto start = std::chrono::steady_clock::now();
        disturb();
        worker.join();
        EXPECT_TRUE(hasThrown);
        EXPECT_LT(std::chrono::steady_clock::now() - start, kMoment);
    }

    /// The same of a call that the office does not answer.
    template <typename Call, typename Disturb>
    static void expectCallEnded(Call call, Disturb disturb)
    {
        std::atomic<bool> isCalling = false;
        expectEnded(
            [&] {
                isCalling = true;
                call();
            },
            [&] { return isCalling.load(); }, disturb);
    }

    /// The same of a sheet that is written to an office that has stopped answering.
    template <typename Disturb>
    void expectWritingEnded(Spreadsheet& sheet, Disturb disturb) const
    {
        sheet.addWorkbook();
        sheet.setCellValue(1, 1, PlainText{"late"});
        test::signalProcesses(profile(), SIGSTOP);
        expectCallEnded([&sheet] { sheet.autoFitColumns(1, 8); }, disturb);
    }

    test::TemporaryFolder folder;
    std::stop_source stop;
};

TEST_F(LibreOfficeStop, BeforeTheStartStartsNothing)
{
    stop.request_stop();
    EXPECT_THROW(office(), std::runtime_error);
    EXPECT_TRUE(processesWith(profile()).empty());
}

TEST_F(LibreOfficeStop, WhileItStartsEndsTheOfficeThatNobodyWouldSee)
{
    expectEnded([this] { office(); }, [this] { return !processesWith(profile()).empty(); },
                [this] { stop.request_stop(); });
    EXPECT_TRUE(lookUntil([this] { return processesWith(profile()).empty(); }));
}

TEST_F(LibreOfficeStop, EndsACallThatIsNotAnsweredAndTheOfficeThatShowsNothing)
{
    auto sheet = office();
    test::signalProcesses(profile(), SIGSTOP);
    expectCallEnded([&] { sheet->addWorkbook(); }, [this] { stop.request_stop(); });
    sheet.reset();
    test::signalProcesses(profile(), SIGCONT);
    EXPECT_TRUE(lookUntil([this] { return processesWith(profile()).empty(); }));
}

TEST_F(LibreOfficeStop, LeavesAnOfficeWithAWorkbookToTheUser)
{
    std::stop_source ofTheFirst;
    auto sheet = test::headlessOffice(test::officeModule(), folder.path(), {}, ofTheFirst.get_token());
    sheet->addWorkbook();
    ofTheFirst.request_stop();
    EXPECT_THROW(sheet->setCellValue(1, 1, PlainText{"late"}), std::runtime_error);
    sheet.reset();

    sheet = office();  // the same one, which is the user's now
    test::signalProcesses(profile(), SIGSTOP);
    expectCallEnded([&] { sheet->addWorkbook(); }, [this] { stop.request_stop(); });
    sheet.reset();
    test::signalProcesses(profile(), SIGCONT);
    sheet = test::headlessOffice(test::officeModule(), folder.path());
    EXPECT_NO_THROW(sheet->addWorkbook());
}

TEST_F(LibreOfficeStop, EndsTheWritingOfASheet)
{
    auto sheet = office();
    expectWritingEnded(*sheet, [this] { stop.request_stop(); });
    sheet.reset();
    test::signalProcesses(profile(), SIGCONT);
}

TEST_F(LibreOfficeStop, OfficeThatIsKilledEndsTheWritingOfASheet)
{
    const auto sheet = office();
    expectWritingEnded(*sheet, [this] { test::signalProcesses(profile(), SIGKILL); });
}

TEST_F(LibreOfficeStop, OfficeThatIsKilledEndsTheCall)
{
    const auto sheet = office();
    test::signalProcesses(profile(), SIGSTOP);
    expectCallEnded([&] { sheet->addWorkbook(); }, [this] { test::signalProcesses(profile(), SIGKILL); });
}

}  // namespace
}  // namespace kavo
