// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// Takes the pictures of the user guide: screenshots FOLDER saves one of every window, and beside it what it
// shows in words; screenshots --sheet FILE.png saves all windows side by side in one picture.

#include "app/application.h"
#include "tests/support/fixed_fonts.h"
#include "tests/support/pictures.h"

#include <QFile>
#include <QPainter>

#include <cstdio>
#include <vector>

namespace {

bool write(const QString& path, const QString& text)
{
    QFile file(path);
    return file.open(QFile::WriteOnly) && file.write(text.toUtf8()) >= 0;
}

/// Says which file could not be written.
bool told(bool isWritten, const QString& path)
{
    if (!isWritten) static_cast<void>(std::fprintf(stderr, "Cannot write %s\n", qPrintable(path)));
    return isWritten;
}

bool savePictures(const QString& folder)
{
    bool isSaved =
        told(write(folder + "/surroundings.txt", kavo::test::surroundings() + '\n'), folder + "/surroundings.txt");
    const bool haveAllCome = kavo::test::showPictures([&](const QString& name, QWidget& window) {
        const QString path = folder + '/' + name;
        isSaved = told(window.grab().save(path + ".png"), path + ".png") && isSaved;
        isSaved = told(write(path + ".txt", kavo::test::describe(window)), path + ".txt") && isSaved;
    });
    return haveAllCome && isSaved;
}

/// Rows of pictures from the left to the right, as many as fit the width.
QImage arranged(const std::vector<QImage>& pictures, int width, int gap)
{
    std::vector<QRect> places;
    QPoint at(gap, gap);
    int bottom = 0;
    for (const QImage& picture : pictures) {
        if (at.x() > gap && at.x() + picture.width() + gap > width) at = {gap, bottom + gap};
        places.emplace_back(at, picture.size());
        bottom = std::max(bottom, at.y() + picture.height());
        at.rx() += picture.width() + gap;
    }
    QImage sheet(width, bottom + gap, QImage::Format_RGB32);
    sheet.fill(Qt::gray);
    QPainter painter(&sheet);
    for (std::size_t i = 0; i < pictures.size(); ++i) painter.drawImage(places.at(i), pictures.at(i));
    return sheet;
}

bool saveSheet(const QString& path)
{
    constexpr int kWidth = 1900;
    constexpr int kGap = 12;
    std::vector<QImage> pictures;
    const bool haveAllCome = kavo::test::showPictures([&](const QString& name, QWidget& window) {
        if (name.startsWith("scheme-")) return;  // the main window once more
        QImage picture = window.grab().toImage();
        picture.setDevicePixelRatio(1);
        pictures.push_back(std::move(picture));
    });
    const qreal ratio = qApp->devicePixelRatio();
    const QImage sheet = arranged(pictures, static_cast<int>(kWidth * ratio), static_cast<int>(kGap * ratio));
    // Few colours, and no dots between them, make a small file.
    const QImage reduced = sheet.convertToFormat(QImage::Format_Indexed8, Qt::ThresholdDither | Qt::AvoidDither);
    return told(reduced.save(path), path) && haveAllCome;
}

}  // namespace

int main(int argc, char** argv)
{
    kavo::test::useFixedFonts();
    kavo::Application application(argc, argv);
    const QStringList arguments = kavo::Application::arguments();
    if (arguments.size() == 2 && arguments.at(1) != "--sheet") return savePictures(arguments.at(1)) ? 0 : 1;
    if (arguments.size() == 3 && arguments.at(1) == "--sheet") return saveSheet(arguments.at(2)) ? 0 : 1;
    static_cast<void>(std::fprintf(stderr, "Usage: %s FOLDER | --sheet FILE.png\n", argv[0]));
    return 2;
}
