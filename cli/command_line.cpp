// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/command_line.h"

#include "base/code_page.h"
#include "base/run_time_error.h"
#include "cli/call.h"
#include "cli/help.h"
#include "cli/option_parser.h"
#include "core/version.h"

#include <algorithm>

namespace kavo {

namespace {

ExitStatus give(Answer answer, const Call& call, Output& out)
{
    if (answer == Answer::Version)
        out.write(std::string(kProductVersion) + "\n");
    else
        out.write(call.command != nullptr ? helpOf(*call.command) : generalHelp());
    return kDone;
}

std::string whereHelpIs(const Call& call)
{
    std::string text = "; for help: kavo-timing-cli ";
    if (call.command != nullptr) text.append(call.command->name).append(" ");
    return text + "--help";
}

/// What a call needs from its first word to its last message.
struct Run
{
    const CommandStreams& streams;
    Output out{streams.out};
    Messages messages{streams.error};
    std::optional<CodePageInForce> codePage = {};
};

ExitStatus runCall(const std::vector<std::string>& arguments, Run& run)
{
    CommonOptions common;
    std::vector<Option> options = common.options();
    const Call call = findCall(arguments, options);
    std::unique_ptr<Command> command;
    if (call.command != nullptr) {
        command = call.command->make();
        for (Option& option : command->options()) options.push_back(std::move(option));
    }
    const Answer answer = parseArguments(options, call.arguments, whereHelpIs(call));
    if (answer != Answer::None) return give(answer, call, run.out);
    if (!command) {
        // No table comes from such a call, so a script that waits for one must see it fail.
        run.messages.show(generalHelp());
        return kUsageError;
    }
    run.codePage.emplace(chosenCodePage(common.codePage));
    return command->run({.programFolderOption = common.programFolder,
                         .user = common.user,
                         .in = run.streams.in,
                         .out = run.out,
                         .messages = run.messages,
                         .terminal = terminalOf(run.streams.output, common.colour.value_or(std::string(kColourAuto))),
                         .now = run.streams.now,
                         .startWaiting = run.streams.startWaiting,
                         .openDocument = run.streams.openDocument});
}

}  // namespace

int runCommandLine(int argc, const char* const* argv, const CommandStreams& streams)
{
    Run run{streams};
    try {
        const ExitStatus status = runCall({argv + std::min(argc, 1), argv + argc}, run);
        run.out.flush();
        return status;
    } catch (const OutputClosed&) {
        return kEndedEarly;
    } catch (const UsageError& error) {
        run.messages.tell(error.what());
        return kUsageError;
    } catch (const UnknownCodePage& error) {
        run.messages.tell(error.what());
        return kUsageError;
    } catch (const std::exception& error) {
        run.messages.tell(inFull(error));
        return kEndedEarly;
    }
}

}  // namespace kavo
