// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/command_factories.h"
#include "cli/printable.h"
#include "core/users.h"

namespace kavo {

namespace {

class UsersCommand final : public Command
{
public:
    ExitStatus run(const CommandContext& context) override
    {
        // A script gets the bytes by which --user finds the user.
        for (const std::string& nick : readUsers(context.programFolder()))
            context.out.write((context.terminal.isTerminal ? printable(nick) : nick) + "\n");
        return kDone;
    }
};

}  // namespace

std::unique_ptr<Command> makeUsersCommand()
{
    return std::make_unique<UsersCommand>();
}

}  // namespace kavo
