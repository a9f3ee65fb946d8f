#include "cli/loaded_results.h"

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

}  // namespace

ExitStatus LoadedResults::status() const
{
    return result.end == LoadingEnd::Completed ? kDone : kEndedEarly;
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
    for (const std::string& message : loaded.messages) messages.tell(message);
    if (!loaded.result.error.empty()) messages.tell(loaded.result.error);
}

}  // namespace kavo
