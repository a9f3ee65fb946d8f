// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/file_name.h"
#include "base/run_time_error.h"
#include "base/text_file.h"
#include "cli/command_factories.h"
#include "cli/dashboard_text.h"
#include "cli/loaded_results.h"
#include "cli/option_parser.h"
#include "cli/printable.h"
#include "cli/user_history.h"
#include "core/targets.h"
#include "core/users.h"
#include "insight/history_place.h"
#include "insight/watching.h"
#include "reports/html_export.h"

#include <algorithm>
#include <functional>
#include <set>

namespace fs = std::filesystem;

namespace kavo {

namespace {

using std::chrono::milliseconds;

constexpr double kDefaultInterval = 1;  // second
constexpr double kShortestInterval = 0.1;
constexpr double kLongestInterval = 3600;
constexpr milliseconds kPatience{10'000};  // with a file that is being written

struct WatchOptions
{
    milliseconds interval{};
    std::optional<fs::path> templateFile;
    std::optional<fs::path> output;
    std::optional<fs::path> dashboard;
    bool isOnce = false;
    bool remembers = true;
};

/// A file that is written anew whenever the results have changed.
struct Rendering
{
    std::function<void(Session&)> write;
    bool isDue = false;
};

/// Follows a user's statistics file and does what each of its rests asks for.
class Following final
{
public:
    Following(const CommandContext& context, WatchOptions options)
        : m_context(context), m_options(std::move(options)), m_session(sessionOf(context)), m_file(statsFile())
    {
        addRenderings();
    }

    ExitStatus run()
    {
        const auto waiting = m_context.startWaiting();
        const milliseconds start = waiting->now();
        if (m_options.isOnce)
            startFromLatestState();
        else if (!fileExists(m_file))
            tellOnce("Waiting for " + textOf(m_file));
        for (;;) {
            const milliseconds now = waiting->now();
            look(now);
            if (m_options.isOnce && m_settling.content()) return isRenderDue() ? kEndedEarly : kDone;
            checkPatience(now - start);
            const milliseconds pause =
                m_settling.isMoving(now) ? std::min(m_options.interval, kSettlingTime) : m_options.interval;
            if (!waiting->waitFor(m_options.isOnce ? std::min(pause, kSettlingTime) : pause)) return kDone;
        }
    }

private:
    static Session sessionOf(const CommandContext& context)
    {
        Session session;
        session.programFolder = context.programFolder();
        session.userFolder = folderOfUser(context);
        session.UserName = context.user ? *context.user : readCurrentUser(session.programFolder);
        Init(session);
        return session;
    }

    /// A single look tells what is better than what was remembered last.
    void startFromLatestState()
    {
        const HistoryStore store = historyOf(m_session.userFolder);
        const std::vector<RememberedState> states = store.states();
        if (states.empty()) return;
        const std::string text = store.read(states.back().name);
        if (isWholeStatisticsFile(text)) static_cast<void>(m_improvements.take(text, {}));
    }

    /// A single look ends where there is nothing to be seen; who follows the game is told why nothing happens.
    void checkPatience(milliseconds waited)
    {
        if (m_settling.content()) return;
        const bool isThere = fileExists(m_file);
        if (m_options.isOnce && !isThere) throw RunTimeError(Failure::FileNotFound, m_file);
        if (!isThere || waited < kPatience) return;
        const std::string reason =
            textOf(m_file) + " is not whole, or still being written: kavo-timing-cli doctor tells more";
        if (m_options.isOnce) throw CommandError(reason);
        tellOnce(reason);
    }

    void look(milliseconds now)
    {
        m_file = statsFile();
        const auto content = readIfPossible();
        const bool isAtRest = content ? m_settling.look(*content, now) : m_settling.look(std::nullopt, now);
        if (isAtRest) takeRest(*content);
        if (isRenderDue()) render();
    }

    /// In whatever capital letters it comes back.
    [[nodiscard]] fs::path statsFile() const { return locateTyped(m_session.programFolder, m_session.StatsPath); }

    /// Between two writes of the game the file may be gone, or somebody else's for a moment.
    [[nodiscard]] std::optional<std::string> readIfPossible() const
    {
        try {
            return std::string(readContent(m_file, kLargestState).view());
        } catch (const RunTimeError&) {
            return std::nullopt;
        }
    }

    void takeRest(const std::string& text)
    {
        ResultsState targets;
        try {
            static_cast<void>(LoadTargets(m_session.programFolder, targets));
        } catch (const RunTimeError& error) {
            tellOnce(error.inFull());
        }
        for (const std::string& line : m_improvements.take(text, targets)) m_context.out.write(printable(line) + "\n");
        m_context.out.flush();
        if (m_options.remembers) remember(text);
        for (Rendering& rendering : m_renderings) rendering.isDue = true;
    }

    void remember(const std::string& text)
    {
        try {
            HistoryStore store = historyOf(m_session.userFolder);
            tellRemembering(store.remember(text, m_context.now()), m_file, m_context.messages);
        } catch (const RunTimeError& error) {
            tellOnce(std::string("The results are not remembered: ") + error.inFull());
        }
    }

    /// The game may be writing again already: what fails now is tried at the next look.
    void render()
    {
        LoadedResults loaded = loadResults(m_context);
        if (loaded.status() != kDone) {
            for (const std::string& message : loaded.messages) tellOnce(message);
            if (!loaded.result.error.empty()) tellOnce(loaded.result.error);
            return;
        }
        for (Rendering& rendering : m_renderings) {
            if (!rendering.isDue) continue;
            try {
                rendering.write(loaded.session);
                rendering.isDue = false;
            } catch (const RunTimeError& error) {
                tellOnce(error.what());
            }
        }
    }

    [[nodiscard]] bool isRenderDue() const
    {
        return std::any_of(m_renderings.begin(), m_renderings.end(), [](const Rendering& one) { return one.isDue; });
    }

    void addRenderings()
    {
        if (m_options.output)
            m_renderings.push_back({[this](Session& session) {
                const TemplateSections sections = loadTemplate({}, readFile(*m_options.templateFile));
                exportHtml(session, sections, m_context.now(), *m_options.output);
            }});
        if (m_options.dashboard)
            m_renderings.push_back({[this](Session& session) {
                replaceFile(*m_options.dashboard, dashboardText(session, m_context.now()));
            }});
    }

    void tellOnce(const std::string& text)
    {
        if (m_told.insert(text).second) m_context.messages.tell(text);
    }

    const CommandContext& m_context;
    WatchOptions m_options;
    Session m_session;
    fs::path m_file;
    FileSettling m_settling;
    ImprovementWatch m_improvements;
    std::set<std::string> m_told;
    std::vector<Rendering> m_renderings;
};

class WatchCommand final : public Command
{
public:
    std::vector<Option> options() override
    {
        return {
            option("--interval", {.name = "SECONDS", .kind = ValueKind::Number}, &m_interval,
                   "between two looks at the file; by default 1"),
            option("--template", {.name = "TEMPLATE.ett", .kind = ValueKind::File}, &m_template,
                   "the form of a report that is written anew each time")
                .needing("--output"),
            option("--output", {.name = "FILE", .kind = ValueKind::File}, &m_output, "that report")
                .needing("--template"),
            option("--dashboard", {.name = "FILE", .kind = ValueKind::File}, &m_dashboard,
                   "the page of the command dashboard, written anew each time"),
            flag("--once", m_isOnce, "tell what is better than the latest remembered results, and end"),
            flag("--no-history", m_isHistoryOff, "remember nothing"),
        };
    }

    ExitStatus run(const CommandContext& context) override
    {
        if (!(m_interval >= kShortestInterval && m_interval <= kLongestInterval))
            throw UsageError("--interval is 0.1 to 3600 seconds");
        WatchOptions options;
        options.interval = milliseconds(static_cast<milliseconds::rep>(m_interval * 1000));
        options.isOnce = m_isOnce;
        options.remembers = !m_isHistoryOff && isHistoryWanted(historySources());
        if (m_template) {
            options.templateFile = fileNamed(*m_template);
            if (!fileExists(*options.templateFile)) throw RunTimeError(Failure::FileNotFound, *options.templateFile);
            options.output = fileNamed(*m_output);
        }
        if (m_dashboard) options.dashboard = fileNamed(*m_dashboard);
        return Following(context, std::move(options)).run();
    }

private:
    double m_interval = kDefaultInterval;
    std::optional<std::string> m_template;
    std::optional<std::string> m_output;
    std::optional<std::string> m_dashboard;
    bool m_isOnce = false;
    bool m_isHistoryOff = false;
};

}  // namespace

std::unique_ptr<Command> makeWatchCommand()
{
    return std::make_unique<WatchCommand>();
}

}  // namespace kavo
