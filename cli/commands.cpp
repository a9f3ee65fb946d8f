#include "cli/commands.h"

#include "base/file_name.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "base/text_file.h"
#include "cli/report_json.h"
#include "cli/table_print.h"
#include "core/filters.h"
#include "core/program_folder.h"
#include "core/users.h"
#include "core/version.h"
#include "reports/html_export.h"
#include "reports/text_export.h"
#include "updater/records_page.h"

#include <CLI/CLI.hpp>

#include <functional>
#include <istream>
#include <iterator>
#include <optional>
#include <ostream>

namespace kavo {

namespace {

/// Keeps the messages of a loading; a script has no dialog to open.
class RecordingHost final : public LoadingHost
{
public:
    void showMessage(const Message& message) override { m_messages.push_back(message.text); }
    AfterOptions openOptions() override { return AfterOptions::GoOn; }
    void applyLayout(const std::vector<double>&) override {}
    void layoutLoaded() override {}

    [[nodiscard]] const std::vector<std::string>& messages() const { return m_messages; }

private:
    std::vector<std::string> m_messages;
};

/// What the user asked for.
struct Request
{
    std::optional<std::string> programFolder;
    std::optional<std::string> user;
    bool json = false;
    std::optional<std::string> filter1;
    std::optional<std::string> filter2;
    std::string page;
    std::string reportFile;
    std::string templateFile;
};

/// A loading run for a command, with what it left.
struct Loaded
{
    Session session;
    RecordingHost host;
    LoadingResult result;
};

void runLoading(Loaded& loaded, const Request& request)
{
    loaded.session.programFolder = findProgramFolder(programFolderSources(request.programFolder));
    loaded.result = load(loaded.session, loaded.host, {.user = request.user, .makesFolders = false});
}

int statusOf(const LoadingResult& result)
{
    return result.end == LoadingEnd::Completed ? kDone : kEndedEarly;
}

void printMessages(const Loaded& loaded, std::ostream& error)
{
    for (const std::string& message : loaded.host.messages()) error << toUtf8(message) << '\n';
    if (!loaded.result.error.empty()) error << toUtf8(loaded.result.error) << '\n';
}

int show(const Request& request, const CommandStreams& streams)
{
    Loaded loaded;
    runLoading(loaded, request);
    if (request.filter1) applyFilter(loaded.session.table, FilterSide::Player1, *request.filter1);
    if (request.filter2) applyFilter(loaded.session.table, FilterSide::Player2, *request.filter2);
    printMessages(loaded, streams.error);
    if (request.json)
        streams.out << formatJson({loaded.session, loaded.result, loaded.host.messages()});
    else
        streams.out << formatTable(loaded.session, streams.isColoured ? Colouring::Terminal : Colouring::None);
    return statusOf(loaded.result);
}

int users(const Request& request, const CommandStreams& streams)
{
    const auto folder = findProgramFolder(programFolderSources(request.programFolder));
    for (const std::string& nick : readUsers(folder)) streams.out << nick << '\n';
    return kDone;
}

std::string readAll(std::istream& in)
{
    return {std::istreambuf_iterator<char>(in), {}};
}

int updateTargets(const Request& request, const CommandStreams& streams)
{
    const auto folder = findProgramFolder(programFolderSources(request.programFolder));
    const std::string page = request.page == "-" ? readAll(streams.in) : readFile(locate(pathOf(request.page)));
    rewriteTargets(folder, worldRecords(cutRecordTimes(page)));
    return kDone;
}

std::vector<std::string> filterNames()
{
    std::vector<std::string> names;
    for (const Grade& grade : grades()) names.insert(names.begin(), std::string(grade.name));
    names.emplace_back(kVictories);
    return names;
}

constexpr std::string_view kStandardOutput = "-";

class StreamLines final : public ReportLines
{
public:
    explicit StreamLines(std::ostream& out) : m_out(out) {}
    void write(std::string_view text) override { m_out << text << kLineEnd; }

private:
    std::ostream& m_out;
};

/// Runs the loading and, when it went through to its end, an export of what it left.
int exportLoaded(const Request& request, const CommandStreams& streams,
                 const std::function<void(Session&)>& exportSession)
{
    Loaded loaded;
    runLoading(loaded, request);
    printMessages(loaded, streams.error);
    if (statusOf(loaded.result) == kDone) exportSession(loaded.session);
    return statusOf(loaded.result);
}

int exportTextReport(const Request& request, const CommandStreams& streams)
{
    return exportLoaded(request, streams, [&](const Session& session) {
        StreamLines standardOutput(streams.out);
        if (request.reportFile == kStandardOutput)
            writeTextReport(session, standardOutput);
        else
            exportText(session, locate(pathOf(request.reportFile)));
    });
}

int exportHtmlReport(const Request& request, const CommandStreams& streams)
{
    const auto templatePath = locate(pathOf(request.templateFile));
    if (!fileExists(templatePath)) throw RunTimeError(Failure::FileNotFound, templatePath);
    const TemplateSections sections = loadTemplateFile({}, templatePath);
    return exportLoaded(request, streams, [&](Session& session) {
        StreamLines standardOutput(streams.out);
        if (request.reportFile == kStandardOutput)
            writeHtmlReport(session, sections, datesOf(streams.now()), standardOutput);
        else
            exportHtml(session, sections, streams.now(), locate(pathOf(request.reportFile)));
    });
}

using Command = std::function<int(const Request&, const CommandStreams&)>;

void addShow(CLI::App& app, Request& request, Command& chosen)
{
    CLI::App* command = app.add_subcommand("show", "Run the loading and print the results table");
    command->add_flag("--json", request.json, "Print everything as one JSON object");
    auto* filter1 = command->add_option("--filter1", request.filter1, "Keep the rows of one grade of player 1");
    auto* filter2 = command->add_option("--filter2", request.filter2, "Keep the rows of one grade of player 2");
    filter1->check(CLI::IsMember(filterNames()));
    filter2->check(CLI::IsMember(filterNames()))->excludes(filter1);
    command->callback([&chosen] { chosen = show; });
}

void addUsers(CLI::App& app, Command& chosen)
{
    app.add_subcommand("users", "Print the nicks, one a line")->callback([&chosen] { chosen = users; });
}

void addExports(CLI::App& app, Request& request, Command& chosen)
{
    constexpr const char* kFile = "The report, which is replaced; - is standard output";
    CLI::App* text = app.add_subcommand("export-text", "Write the results as a text report");
    text->add_option("FILE", request.reportFile, kFile)->required();
    text->callback([&chosen] { chosen = exportTextReport; });
    CLI::App* html = app.add_subcommand("export-html", "Write the results in the form of a template");
    html->add_option("--template", request.templateFile, "The template (.ett)")->required();
    html->add_option("FILE", request.reportFile, kFile)->required();
    html->callback([&chosen] { chosen = exportHtmlReport; });
}

void addUpdateTargets(CLI::App& app, Request& request, Command& chosen)
{
    CLI::App* command = app.add_subcommand("update-targets", "Rewrite targets.txt from a downloaded records page");
    command->add_option("--page", request.page, "The page; - reads standard input")->required();
    command->callback([&chosen] { chosen = updateTargets; });
}

}  // namespace

int runCommandLine(int argc, const char* const* argv, const CommandStreams& streams)
{
    CLI::App app("The results of Kavo Timing without a window.", "kavo-timing-cli");
    Request request;
    Command chosen;
    app.set_version_flag("--version", std::string(kProductVersion));
    app.add_option("--program-folder", request.programFolder,
                   "Folder with users, targets and settings (environment: KAVO_PROGRAM_FOLDER)");
    app.add_option("--user", request.user, "The user to load; by default who logged in last");
    app.require_subcommand(1);
    app.fallthrough();  // the common options may stand behind the command, too
    addShow(app, request, chosen);
    addExports(app, request, chosen);
    addUpdateTargets(app, request, chosen);
    addUsers(app, chosen);
    try {
        app.parse(argc, argv);
        const int status = chosen(request, streams);
        streams.out.flush();
        return streams.out ? status : throw RunTimeError(Failure::DiskFull);
    } catch (const CLI::ParseError& error) {
        return app.exit(error, streams.out, streams.error) == 0 ? kDone : kUsageError;
    } catch (const RunTimeError& error) {
        streams.error << toUtf8(error.what()) << '\n';
        return kEndedEarly;
    }
}

}  // namespace kavo
