// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/page_server.h"
#include "tests/support/wait_until.h"
#include "tests/support/window_fixture.h"

#include <QPushButton>

namespace {

class RecordsHost : public kavo::test::ProgramTest
{
};

TEST_F(RecordsHost, OfTheProgramIsWhereTheUpdaterAsks)
{
    const kavo::test::PageServer server(kavo::test::always(kavo::test::response("no page", "404 Not Found")));
    startLoggedIn();
    program->useRecordsHost(server.host().toStdString());
    prompts.expectMessage({std::string(kavo::messages::kTransferError)});
    withKey("Form7", Qt::CTRL | Qt::Key_R, [&](QWidget& window) {
        click(control<QPushButton>(window, "Command2"));
        EXPECT_TRUE(kavo::test::waitUntil([this] { return prompts.isDone(); }));
    });
    EXPECT_EQ(server.requests(), (QStringList{"GET /records_kavo_wrs.php?mode=text HTTP/1.1"}));
}

}  // namespace
