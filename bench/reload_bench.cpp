// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/application.h"
#include "tests/support/window_fixture.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <unistd.h>
#include <vector>

/// Measures a reload (F5) beside what filling and painting a table of that size takes by itself, and whether memory
/// grows over a thousand reloads and a hundred openings of each window. Prints "name value" lines.
namespace {

using kavo::test::ProgramTest;

constexpr int kTimes = 50;
constexpr int kReloads = 1000;
constexpr int kOpenings = 100;
constexpr int kUntilFlat = 100;

double processorMilliseconds()
{
    timespec now{};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

template <typename Action>
double medianMilliseconds(Action action)
{
    std::vector<double> taken;
    for (int i = 0; i < kTimes; ++i) {
        const double start = processorMilliseconds();
        action();
        taken.push_back(processorMilliseconds() - start);
    }
    std::nth_element(taken.begin(), taken.begin() + kTimes / 2, taken.end());
    return taken[kTimes / 2];
}

double residentMegabytes()
{
    std::ifstream statm("/proc/self/statm");
    double all = 0;
    double resident = 0;
    statm >> all >> resident;
    return resident * static_cast<double>(::sysconf(_SC_PAGESIZE)) / 1e6;
}

/// Does something again and again; the growth behind the first hundred times.
template <typename Action>
double growthMegabytes(int times, int until, Action action)
{
    double first = 0;
    for (int i = 0; i < times; ++i) {
        action();
        if (i + 1 == until) first = residentMegabytes();
    }
    return residentMegabytes() - first;
}

class Reload final : public ProgramTest
{
public:
    void TestBody() override
    {
        startLoggedIn();
        QCoreApplication::processEvents();
        const auto press = [this] {
            QTest::keyClick(&list(), Qt::Key_F5);
            QCoreApplication::processEvents();
        };
        const auto fillAndPaint = [this] {
            list().reset();
            list().viewport()->repaint();
            QCoreApplication::processEvents();
        };
        press();
        std::printf("reload %.3f\n", medianMilliseconds(press));
        std::printf("fill-and-paint %.3f\n", medianMilliseconds(fillAndPaint));
        std::printf("growth-reloads %.2f\n", growthMegabytes(kReloads, kUntilFlat, press));
        const auto openAll = [this] {
            for (const auto& row : kavo::test::allWindows()) kavo::test::withWindow(mainWindow(), row, [](QWidget&) {});
            QCoreApplication::processEvents();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        };
        std::printf("growth-windows %.2f\n", growthMegabytes(2 * kOpenings, kUntilFlat, openAll));
    }
};

}  // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    kavo::Application application(argc, argv);
    Reload().TestBody();
    return 0;
}
