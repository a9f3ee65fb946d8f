// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/run_time_error.h"
#include "forms/event_guard.h"
#include "tests/support/window_fixture.h"

#include <new>
#include <stdexcept>

namespace {

using kavo::MessageIcon;

class EventGuard : public testing::Test
{
protected:
    EventGuard() { application().setPrompts(prompts); }
    ~EventGuard() override { application().restorePrompts(); }

    static kavo::Application& application() { return *static_cast<kavo::Application*>(qApp); }

    kavo::test::ScriptedPrompts prompts;
};

TEST_F(EventGuard, TellsEveryErrorInWords)
{
    prompts.expectMessage({.text = "Disk full: a.txt", .icon = MessageIcon::Critical});
    kavo::guarded([] { throw kavo::RunTimeError(kavo::Failure::DiskFull, "a.txt"); });
    prompts.expectMessage({.text = "Out of memory", .icon = MessageIcon::Critical});
    kavo::guarded([] { throw std::bad_alloc(); });
    prompts.expectMessage({.text = "anything else", .icon = MessageIcon::Critical});
    kavo::guarded([] { throw std::runtime_error("anything else"); });
}

TEST_F(EventGuard, LetsNothingThroughAlsoWhenTheBoxFails)
{
    prompts.expectMessage({.text = "first", .icon = MessageIcon::Critical}, [] { throw std::bad_alloc(); });
    testing::internal::CaptureStderr();
    EXPECT_NO_THROW(kavo::guarded([] { throw std::runtime_error("first"); }));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "kavo-timing: first\n");
}

}  // namespace
