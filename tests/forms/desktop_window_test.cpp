// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/desktop.h"
#include "forms/screen_text.h"
#include "tests/support/environment.h"
#include "tests/support/program_folder_fixture.h"

#include <QDesktopServices>
#include <QDir>
#include <QUrl>
#include <gtest/gtest.h>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace {

/// Stands in for the programs that the system has for addresses of some kinds.
class AddressHandler final : public QObject
{
    Q_OBJECT

public:
    AddressHandler()
    {
        for (const QString& scheme : schemes()) QDesktopServices::setUrlHandler(scheme, this, "take");
    }

    ~AddressHandler() override
    {
        for (const QString& scheme : schemes()) QDesktopServices::unsetUrlHandler(scheme);
    }

    QStringList taken;

public slots:
    void take(const QUrl& url) { taken << url.toString(QUrl::FullyEncoded); }

private:
    /// Also of the kinds that must never get here.
    static QStringList schemes()
    {
        return {"http", "https", "mailto", "file", "ftp", "javascript", "data", "smb", "tel", "c", ""};
    }
};

class SystemDesktopTest : public testing::Test
{
protected:
    kavo::test::TemporaryFolder folder;
    AddressHandler handler;
    kavo::SystemDesktop desktop;
};

TEST_F(SystemDesktopTest, HandsWebAndMailAddressesOn)
{
    EXPECT_TRUE(desktop.open("http://club.example/page?a=b#c"));
    EXPECT_TRUE(desktop.open("https://club.example/"));
    EXPECT_TRUE(desktop.open("HTTPS://club.example/"));
    EXPECT_TRUE(desktop.open("mailto:rider@example.org"));
    EXPECT_EQ(handler.taken, QStringList({"http://club.example/page?a=b#c", "https://club.example/",
                                          "https://club.example/", "mailto:rider@example.org"}));
}

TEST_F(SystemDesktopTest, HandsNothingElseOn)
{
    const QStringList others = {"",
                                " ",
                                "-",
                                "--help",
                                "-evil.txt",
                                "club.example",
                                "www.club.example",
                                "ftp://club.example/",
                                "file:///etc/hostname",
                                "javascript:alert(1)",
                                "data:text/html,hello",
                                "smb://club.example/share",
                                "tel:123",
                                "C:\\tools\\tool.exe",
                                "http:",
                                "http://",
                                "http:relative",
                                "https:///path",
                                " http://club.example/",
                                "http://club.example/a b",
                                "mailto:",
                                "http://club.example/\n--option",
                                QString::fromStdString((folder / "missing.txt").string())};
    for (const QString& other : others) EXPECT_FALSE(desktop.open(other)) << qPrintable(other);
    EXPECT_EQ(handler.taken, QStringList());
}

TEST_F(SystemDesktopTest, HandsExistingFilesOnWithTheirWholePath)
{
    folder.write("report 1.txt", "x");
    folder.write("-n.txt", "x");
    const QString base = kavo::pathToScreen(folder.path());
    EXPECT_TRUE(desktop.open(base + "/report 1.txt"));
    EXPECT_FALSE(desktop.open(base)) << "a folder is no document";
    const QString before = QDir::currentPath();
    QDir::setCurrent(base);
    EXPECT_TRUE(desktop.open("-n.txt"));
    QDir::setCurrent(before);
    const QString address = QUrl::fromLocalFile(base).toString(QUrl::FullyEncoded);
    EXPECT_EQ(handler.taken, QStringList({address + "/report%201.txt", address + "/-n.txt"}));
}

TEST_F(SystemDesktopTest, FindsProgramsOnTheSearchPath)
{
#ifdef Q_OS_WIN
    const std::string program = "hardinfo.exe";
#else
    const std::string program = "hardinfo";
#endif
    folder.write(program, "#!/bin/sh\n");
    std::filesystem::permissions(folder / program, std::filesystem::perms::owner_all);
    const kavo::test::EnvironmentValue searchPath("PATH", folder.path().string());
    EXPECT_EQ(desktop.findProgram("hardinfo"), QString::fromStdString((folder / program).generic_string()));
    EXPECT_EQ(desktop.findProgram("kinfocenter"), "");
}

#ifdef Q_OS_WIN

/// A key of the system's registry with values, as long as this lives.
class RegistryKey final
{
public:
    explicit RegistryKey(const wchar_t* key) { ::RegCreateKeyW(HKEY_LOCAL_MACHINE, key, &m_key); }
    ~RegistryKey()
    {
        ::RegDeleteTreeW(m_key, nullptr);
        ::RegCloseKey(m_key);
    }
    RegistryKey(const RegistryKey&) = delete;
    RegistryKey& operator=(const RegistryKey&) = delete;

    void set(const wchar_t* name, DWORD kind, const void* value, std::size_t size)
    {
        ::RegSetValueExW(m_key, name, 0, kind, static_cast<const BYTE*>(value), static_cast<DWORD>(size));
    }

private:
    HKEY m_key = nullptr;
};

TEST_F(SystemDesktopTest, ReadsTheRegistry)
{
    RegistryKey key(L"SOFTWARE\\Kavo Timing Test");
    const std::wstring program = L"C:\\Программы\\info.exe";
    const DWORD number = 0x8000000F;
    key.set(L"PATH", REG_SZ, program.c_str(), (program.size() + 1) * sizeof(wchar_t));
    key.set(L"NUMBER", REG_DWORD, &number, sizeof number);
    EXPECT_EQ(desktop.registryValue("SOFTWARE\\Kavo Timing Test", "PATH"), QString::fromStdWString(program));
    EXPECT_EQ(desktop.registryValue("SOFTWARE\\Kavo Timing Test", "NUMBER"), QString("&h8000000f"));
    EXPECT_EQ(desktop.registryValue("SOFTWARE\\Kavo Timing Test", "NOTHING"), std::nullopt);
    EXPECT_EQ(desktop.registryValue("SOFTWARE\\Kavo Timing Test\\Nowhere", "PATH"), std::nullopt);
}

#endif

TEST_F(SystemDesktopTest, ProgramThatCannotBeStartedIsReported)
{
    EXPECT_FALSE(desktop.start(kavo::pathToScreen(folder / "missing"), {}));
}

}  // namespace

#include "desktop_window_test.moc"
