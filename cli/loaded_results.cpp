// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/loaded_results.h"

#include "base/file_name.h"
#include "base/run_time_error.h"
#include "cli/user_advice.h"
#include "core/targets.h"

namespace kavo {

namespace {

/// Keeps the messages of a loading; a script has no dialog to open.
class RecordingHost final : public LoadingHost
{
public:
    explicit RecordingHost(std::vector<std::string>& messages) : m_messages(messages) {}

    void showMessage(const Message& message) override { m_messages.push_back(message.text); }
    AfterOptions openOptions() override { return AfterOptions::GoOn; }
    void applyLayout(const std::vector<double>&) override {}
    void layoutLoaded() override {}

private:
    std::vector<std::string>& m_messages;
};

constexpr const char* kWhereToChoose = "; the window's Options (F2) choose the file";

/// A loading goes on without a statistics file: the table is empty then.
std::string aboutMissingFile(const Session& session)
{
    const RunTimeError error(Failure::FileNotFound, locateTyped(session.programFolder, session.StatsPath));
    return error.inFull() + kWhereToChoose;
}

/// The texts of boxes stand as they are; behind them comes what they do not say to somebody without a window.
std::string adviceOn(std::string_view message, const LoadedResults& loaded)
{
    if (message == messages::kWrongFile)
        return " (" + textOf(loaded.result.wrongFile) + " is no statistics file of the game" + kWhereToChoose + ")";
    if (message == messages::kMissingTargets)
        return " (" + textOf(targetsFile(loaded.session.programFolder)) +
               "; without a window: kavo-timing-cli update-targets --page FILE)";
    return {};
}

}  // namespace

ExitStatus LoadedResults::status() const
{
    return result.end == LoadingEnd::Completed ? kDone : kEndedEarly;
}

bool LoadedResults::hasTable() const
{
    return status() == kDone || session.table.rowCount() > 0;
}

LoadedResults loadResults(const CommandContext& context)
{
    LoadedResults loaded;
    loaded.session.programFolder = context.programFolder();
    RecordingHost host(loaded.messages);
    loaded.result = load(loaded.session, host, {.user = context.user, .makesFolders = false});
    return loaded;
}

void tellMessages(const LoadedResults& loaded, Messages& messages)
{
    for (const std::string& message : loaded.messages) messages.tell(message + adviceOn(message, loaded));
    const LoadingResult& result = loaded.result;
    if (!result.error.empty()) messages.tell(result.errorInFull + adviceOnUser(loaded.session));
    if (result.end == LoadingEnd::Completed && loaded.session.table.rowCount() == 0)
        messages.tell(aboutMissingFile(loaded.session));
}

}  // namespace kavo
