// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/application.h"
#include "base/text_file.h"
#include "tests/support/window_fixture.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

/// Measures how long a step of a resize keeps the window's thread (at most 2 ms is what we want): the step
/// itself, without the painting, and within it the rewriting of view.dat. The folder lies in TMPDIR.
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kSteps = 1000;

struct Durations
{
    double sum = 0;
    double longest = 0;
    int count = 0;

    template <typename Action>
    void add(Action action)
    {
        const auto start = Clock::now();
        action();
        const double taken = std::chrono::duration<double, std::milli>(Clock::now() - start).count();
        sum += taken;
        longest = std::max(longest, taken);
        ++count;
    }

    void print(const char* what) const
    {
        std::printf("%s: mean %.2f ms, longest %.2f ms\n", what, sum / count, longest);
    }
};

class Resize final : public kavo::test::ProgramTest
{
public:
    void TestBody() override
    {
        startLoggedIn();
        QCoreApplication::processEvents();
        Durations steps;
        Durations saves;
        for (int step = 0; step < kSteps; ++step) {
            steps.add([&] { mainWindow().resize(600 + step % 200, 400 + step % 100); });
            QCoreApplication::processEvents();
            saves.add([&] {
                kavo::replaceFile(folder / "Marek/copy.dat", folder.read("Marek/view.dat"), kavo::Flush::Later);
            });
        }
        steps.print("a step of a resize");
        saves.print("rewriting a file of that size, without a flush");
    }
};

}  // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    kavo::Application application(argc, argv);
    Resize().TestBody();
    return 0;
}
