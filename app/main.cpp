// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/application.h"
#include "app/program.h"
#include "app/program_options.h"
#include "base/code_page.h"
#include "base/run_time_error.h"
#include "core/program_folder.h"
#include "core/version.h"
#include "forms/event_guard.h"
#include "forms/screen_text.h"

#include <QCommandLineParser>
#include <QTimer>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <exception>
#include <optional>
#include <string_view>

namespace {

QString textOf(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QCommandLineOption optionOf(const kavo::ProgramOption& option)
{
    QStringList names(textOf(option.name));
    if (!option.shortName.empty()) names.prepend(textOf(option.shortName));
    return {names, textOf(option.help), textOf(option.valueName)};
}

struct Options
{
    QCommandLineParser parser;
    QCommandLineOption quitAfterFirstPaint{"quit-after-first-paint"};

    Options()
    {
        quitAfterFirstPaint.setFlags(QCommandLineOption::HiddenFromHelp);  // for timing the start
        parser.setApplicationDescription("Grades and compares the best times of the game's levels.");
        for (const auto& option : kavo::kProgramOptions) parser.addOption(optionOf(option));
        parser.addOption(quitAfterFirstPaint);
    }

    [[nodiscard]] bool isSet(const kavo::ProgramOption& option) const { return parser.isSet(textOf(option.name)); }
    [[nodiscard]] QString value(const kavo::ProgramOption& option) const { return parser.value(textOf(option.name)); }
};

/// The help, also when there is no application yet that knows its own name.
QString helpOf(const QCommandLineParser& parser)
{
    return parser.helpText().replace("<executable_name>", "kavo-timing");
}

constexpr int kUsageError = 2;

int refuse(const QCommandLineParser& parser, const QString& reason)
{
    static_cast<void>(std::fprintf(stderr, "%s\n%s", qPrintable(reason), qPrintable(helpOf(parser))));
    return kUsageError;
}

/// The exit status when the arguments leave nothing to start.
std::optional<int> answerAtOnce(Options& options, const QStringList& arguments)
{
    if (!options.parser.parse(arguments) || !options.parser.positionalArguments().isEmpty())
        return refuse(options.parser,
                      options.parser.errorText().isEmpty() ? "Unexpected argument." : options.parser.errorText());
    if (options.isSet(kavo::kVersionOption)) {
        std::printf("%s\n", std::string(kavo::kProductVersion).c_str());
        return 0;
    }
    if (options.isSet(kavo::kHelpOption)) {
        std::printf("%s", qPrintable(helpOf(options.parser)));
        return 0;
    }
    return std::nullopt;
}

QStringList argumentsOf(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i) arguments << QString::fromLocal8Bit(argv[i]);
    return arguments;
}

/// Whether the call only asks for the help or the version.
bool asksOnly(int argc, char** argv)
{
    return std::any_of(argv + 1, argv + argc, [](std::string_view argument) {
        return argument == "--help" || argument == "-h" || argument == "--version";
    });
}

/// As the user names it, the option before the environment.
std::string recordsHost(const Options& options)
{
    const QString named = options.value(kavo::kRecordsHostOption);
    return kavo::fromScreen(named.isEmpty() ? qEnvironmentVariable("KAVO_RECORDS_HOST") : named);
}

/// The value of an option; nothing where it is not given.
std::optional<std::string> valueOf(const Options& options, const kavo::ProgramOption& option)
{
    if (!options.isSet(option)) return std::nullopt;
    return kavo::fromScreen(options.value(option));
}

int runProgram(kavo::Application& application, const Options& options)
{
    const auto folder = kavo::programFolderSources(valueOf(options, kavo::kProgramFolderOption));
    kavo::Program program(kavo::findProgramFolder(folder), application.prompts());
    program.useRecordsHost(recordsHost(options));
    const kavo::HistorySources history = kavo::historySources();
    if (!options.isSet(kavo::kNoHistoryOption) && kavo::isHistoryWanted(history)) program.rememberResults(history);
    if (options.parser.isSet(options.quitAfterFirstPaint))
        QObject::connect(&program.mainWindow(), &Form1::painted, &application, &QCoreApplication::quit);
    QTimer::singleShot(0, &program, [&program] { kavo::guarded([&program] { program.start(); }); });
    return kavo::Application::exec();
}

int run(int argc, char** argv)
{
    Options options;
    if (asksOnly(argc, argv))  // answered without a display
        if (const auto status = answerAtOnce(options, argumentsOf(argc, argv))) return *status;
    kavo::Application application(argc, argv);  // takes Qt's own options out
    if (const auto status = answerAtOnce(options, kavo::Application::arguments())) return *status;
    std::optional<kavo::CodePageInForce> codePage;  // to the end: reports of errors are texts, too
    try {
        codePage.emplace(kavo::chosenCodePage(valueOf(options, kavo::kCodePageOption)));
        return runProgram(application, options);
    } catch (const kavo::UnknownCodePage& error) {
        return refuse(options.parser, kavo::toScreen(error.what()) + ".");
    } catch (const std::exception& error) {
        kavo::reportError(error);
        return 1;
    }
}

}  // namespace

int main(int argc, char** argv)
{
#ifndef _WIN32
    // Whoever reads a report from a pipe and goes away ends that report, not the program.
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
#endif
    try {
        return run(argc, argv);
    } catch (const std::exception& error) {
        static_cast<void>(std::fprintf(stderr, "kavo-timing: %s\n", kavo::inWords(error).c_str()));
        return 1;
    }
}
