// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// The pictures of the user guide show the windows as they are.

#include "base/text_file.h"
#include "forms/screen_text.h"
#include "tests/support/pictures.h"
#include "tests/support/places.h"

#include <QImageReader>
#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <set>
#include <string>

namespace {

namespace fs = std::filesystem;

constexpr const char* kHowToRenew = "\nTake the pictures anew: tools/screenshots.sh";

fs::path images()
{
    return kavo::test::sourceFolder() / "docs/images";
}

/// The text beside a picture; its first line is the size.
QString described(const QString& name)
{
    return QString::fromStdString(
        kavo::readFileIfThere(images() / (name + ".txt").toStdString()).value_or("no such file\n"));
}

QString sizeLine(const QString& description)
{
    return description.section('\n', 0, 0);
}

QString texts(const QString& description)
{
    return description.section('\n', 1);
}

/// Names that a page of the guide links to.
std::set<std::string> linkedPictures()
{
    std::set<std::string> names;
    const std::regex link(R"(images/([a-z0-9-]+)\.png)");
    for (const auto& entry : fs::recursive_directory_iterator(kavo::test::sourceFolder() / "docs")) {
        if (entry.path().extension() != ".md") continue;
        const std::string page = kavo::readFile(entry.path());
        for (std::sregex_iterator at(page.begin(), page.end(), link), end; at != end; ++at) names.insert((*at)[1]);
    }
    return names;
}

TEST(Pictures, ShowTheWindowsAsTheyAre)
{
    // Sizes depend on fonts and screen, so they are compared where those are the same as for the pictures.
    const bool isComparable = described("surroundings").trimmed() == kavo::test::surroundings();
    std::set<QString> seen;
    EXPECT_TRUE(kavo::test::showPictures([&](const QString& name, QWidget& window) {
        seen.insert(name);
        const QString now = kavo::test::describe(window);
        EXPECT_EQ(texts(now).toStdString(), texts(described(name)).toStdString()) << qPrintable(name) << kHowToRenew;
        if (!isComparable) return;
        EXPECT_EQ(sizeLine(now).toStdString(), sizeLine(described(name)).toStdString())
            << qPrintable(name) << kHowToRenew;
    }));
    for (const auto& file : fs::directory_iterator(images())) {
        const QString name = kavo::pathToScreen(file.path().stem());
        if (file.path().extension() != ".txt" || name == "surroundings") continue;
        EXPECT_TRUE(seen.count(name) == 1) << "nothing is shown as " << qPrintable(name);
    }
}

TEST(Pictures, AreAsLargeAsTheTextBesideThemSays)
{
    for (const auto& file : fs::directory_iterator(images())) {
        const QString name = kavo::pathToScreen(file.path().stem());
        if (file.path().extension() != ".txt" || name == "surroundings") continue;
        const QSize size = QImageReader(kavo::pathToScreen(images()) + "/" + name + ".png").size();
        EXPECT_EQ(QString("size %1 x %2").arg(size.width()).arg(size.height()).toStdString(),
                  sizeLine(described(name)).toStdString())
            << qPrintable(name);
    }
}

TEST(Pictures, AreAllThereAndAllUsed)
{
    const std::set<std::string> linked = linkedPictures();
    for (const std::string& name : linked) EXPECT_TRUE(fs::exists(images() / (name + ".png"))) << name;
    for (const auto& file : fs::directory_iterator(images())) {
        if (file.path().extension() != ".png") continue;
        EXPECT_TRUE(linked.count(file.path().stem().string()) == 1) << "no page shows " << file.path().filename();
    }
}

}  // namespace
