// Saves a picture of every window, on a copy of the demo folder: screenshots FOLDER [COLOURS.ini]

#include "app/application.h"
#include "app/program.h"
#include "base/text_file.h"
#include "tests/support/all_windows.h"
#include "tests/support/program_folder_fixture.h"

#include <QMenu>

#include <cstdio>

namespace {

constexpr QSize kMainWindow(900, 600);

bool save(QWidget& window, const QString& folder, const QString& name)
{
    QApplication::processEvents();
    const QString path = folder + "/" + name + ".png";
    if (window.grab().save(path)) return true;
    std::fprintf(stderr, "Cannot write %s\n", qPrintable(path));
    return false;
}

bool saveMainWindow(Form1& mainWindow, const QString& folder)
{
    mainWindow.resize(kMainWindow);
    auto& menu = *mainWindow.findChild<QMenu*>("popup");
    menu.popup(mainWindow.pos());
    const bool isMenuSaved = save(menu, folder, "menu");
    menu.close();
    return save(mainWindow, folder, "main-window") && isMenuSaved;
}

bool saveLogin(kavo::Program& program, const QString& folder)
{
    program.showLogin("Marek", false);
    return save(program.loginWindow(), folder, "login");
}

}  // namespace

int main(int argc, char** argv)
{
    kavo::Application application(argc, argv);
    if (argc < 2 || argc > 3) {
        std::fprintf(stderr, "Usage: %s FOLDER [COLOURS.ini]\n", argv[0]);
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    const kavo::test::TemporaryFolder demo;
    kavo::test::copyDemo(demo);
    demo.write("autolog.dat", " 1 \r\n");
    if (argc == 3) demo.write("Marek/colors/colors.ini", kavo::readFile(argv[2]));
    kavo::Program program(demo.path(), application.prompts());
    program.start();
    bool isComplete = saveMainWindow(program.mainWindow(), folder);
    for (const kavo::test::WindowRow& row : kavo::test::allWindows()) {
        bool isSaved = false;
        const bool came = kavo::test::withWindow(program.mainWindow(), row,
                                                 [&](QWidget& window) { isSaved = save(window, folder, row.image); });
        if (!came) std::fprintf(stderr, "%s did not open\n", row.className);
        isComplete = isComplete && isSaved;
    }
    program.mainWindow().hide();
    demo.write("autolog.dat", "0");
    return saveLogin(program, folder) && isComplete ? 0 : 1;
}
