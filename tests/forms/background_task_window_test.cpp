// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/background_task.h"
#include "tests/support/gate.h"
#ifndef _WIN32
#include "tests/support/no_more_threads.h"
#endif
#include "tests/support/wait_until.h"

#include <QCursor>
#include <QGuiApplication>
#include <QSignalSpy>
#include <gtest/gtest.h>

#include <memory>
#include <thread>

namespace {

using kavo::BackgroundTask;
using kavo::test::Gate;
using kavo::test::waitUntil;
using namespace std::chrono_literals;

bool hasWaitCursor()
{
    return QGuiApplication::overrideCursor() != nullptr && QGuiApplication::overrideCursor()->shape() == Qt::WaitCursor;
}

bool hasEnded(const QSignalSpy& ends, int times = 1)
{
    return waitUntil([&] { return ends.size() == times; });
}

TEST(BackgroundTask, RunsOnAnotherThreadUnderTheWaitCursor)
{
    BackgroundTask background;
    const QSignalSpy ends(&background, &BackgroundTask::ended);
    Gate gate;
    std::thread::id thread;
    EXPECT_FALSE(background.isAwaited());
    EXPECT_TRUE(background.start([&](const std::stop_token& stop) {
        thread = std::this_thread::get_id();
        gate.pass(stop);
    }));
    EXPECT_TRUE(background.isAwaited());
    EXPECT_TRUE(hasWaitCursor());
    gate.open();
    ASSERT_TRUE(hasEnded(ends));
    EXPECT_NE(thread, std::this_thread::get_id());
    EXPECT_FALSE(background.isAwaited());
    EXPECT_FALSE(hasWaitCursor());
}

TEST(BackgroundTask, RunsOneTaskAfterTheOther)
{
    BackgroundTask background;
    const QSignalSpy ends(&background, &BackgroundTask::ended);
    Gate gate;
    int runs = 0;
    EXPECT_TRUE(background.start([&](const std::stop_token& stop) {
        gate.pass(stop);
        ++runs;
    }));
    EXPECT_FALSE(background.start([&](const std::stop_token&) { runs += 100; }));
    gate.open();
    ASSERT_TRUE(hasEnded(ends));
    EXPECT_TRUE(background.start([&](const std::stop_token&) { ++runs; }));
    ASSERT_TRUE(hasEnded(ends, 2));
    EXPECT_EQ(runs, 2);
}

TEST(BackgroundTask, CancelStopsTheTaskAndTakesTheCursorBackAtOnce)
{
    BackgroundTask background;
    const QSignalSpy ends(&background, &BackgroundTask::ended);
    Gate gate;
    bool wasStopped = false;
    background.start([&](const std::stop_token& stop) {
        gate.pass();  // does not listen yet
        wasStopped = stop.stop_requested();
    });
    background.cancel();
    EXPECT_FALSE(background.isAwaited());
    EXPECT_FALSE(hasWaitCursor());
    EXPECT_FALSE(background.start([](const std::stop_token&) {})) << "the cancelled task still runs";
    gate.open();
    ASSERT_TRUE(hasEnded(ends));
    EXPECT_TRUE(wasStopped);
    background.cancel();  // nothing to cancel
    EXPECT_FALSE(hasWaitCursor());
}

#ifndef _WIN32  // whose threads take the size of their stacks from the program's file

TEST(BackgroundTask, WithoutAThreadItDoesNotStart)
{
    BackgroundTask background;
    {
        const kavo::test::NoMoreThreads limit;
        EXPECT_FALSE(background.start([](const std::stop_token&) { FAIL() << "without a thread"; }));
    }
    EXPECT_FALSE(background.isAwaited());
    EXPECT_FALSE(hasWaitCursor());
    const QSignalSpy ends(&background, &BackgroundTask::ended);
    EXPECT_TRUE(background.start([](const std::stop_token&) {})) << "the next one has a thread";
    EXPECT_TRUE(hasEnded(ends));
}

#endif

TEST(BackgroundTask, EndsWithItsOwner)
{
    Gate gate;
    bool wasStopped = false;
    {
        BackgroundTask background;
        background.start([&](const std::stop_token& stop) {
            gate.pass(stop);
            wasStopped = stop.stop_requested();
        });
    }
    EXPECT_TRUE(wasStopped);
    EXPECT_FALSE(hasWaitCursor());
}

TEST(BackgroundTask, ThatDoesNotReturnIsLeftToItself)
{
    const auto gate = std::make_shared<Gate>();
    const auto left = std::make_shared<Gate>();
    {
        BackgroundTask background(1ms);
        background.start([gate, left](const std::stop_token&) {
            gate->pass();
            left->open();
        });
    }
    EXPECT_FALSE(hasWaitCursor());
    gate->open();
    left->pass();  // until the task has come to its end, which harms nobody
}

}  // namespace
