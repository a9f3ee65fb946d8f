// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// Runs operations of the desktop program on a program folder, without a display and without a user:
//
//     kavo-operations [--program-folder DIR] [--report FILE] [--page FILE] OPERATION...
//
// Prints every box that the user would have seen. Tests kill it, or let its system calls fail.

#include "app/application.h"
#include "base/file_name.h"
#include "core/program_folder.h"
#include "tests/faults/operations.h"

#include <QCommandLineParser>

namespace {

constexpr int kUsageError = 2;

using kavo::fromScreen;

void runAll(kavo::Program& program, kavo::test::Operations& operations, const QStringList& names)
{
    kavo::guarded([&program] { program.start(); });
    for (const QString& name : names)
        if (!operations.run(fromScreen(name))) kavo::test::say("unknown", name);
    program.mainWindow().close();
    QCoreApplication::quit();
}

int runProgram(kavo::test::RecordingPrompts& prompts, const QCommandLineParser& options)
{
    std::optional<std::string> folder;
    if (options.isSet("program-folder")) folder = fromScreen(options.value("program-folder"));
    const auto programFolder = kavo::findProgramFolder(kavo::programFolderSources(folder));
    kavo::Program program(programFolder, prompts);
    kavo::test::Operations operations(program, prompts,
                                      {.programFolder = programFolder,
                                       .report = options.value("report"),
                                       .page = kavo::pathOf(fromScreen(options.value("page")))});
    QTimer::singleShot(0, &program, [&] { runAll(program, operations, options.positionalArguments()); });
    return kavo::Application::exec();
}

}  // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    kavo::Application application(argc, argv);
    QCommandLineParser options;
    for (const QString& name : {QString("program-folder"), QString("report"), QString("page")})
        options.addOption({name, name, "PATH"});
    if (!options.parse(kavo::Application::arguments())) return kUsageError;
    kavo::test::RecordingPrompts prompts;
    application.setPrompts(prompts);
    try {
        return runProgram(prompts, options);
    } catch (const std::exception& error) {
        application.report(error);
        return 1;
    }
}
