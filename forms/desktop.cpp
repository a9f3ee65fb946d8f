// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/desktop.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QProcess>
#include <QSettings>
#include <QStandardPaths>
#include <QUrl>

namespace kavo {

namespace {

bool isAddress(const QUrl& url)
{
    if (!url.isValid()) return false;
    if (url.scheme() == "mailto") return !url.path().isEmpty();
    return (url.scheme() == "http" || url.scheme() == "https") && !url.host().isEmpty();
}

}  // namespace

bool SystemDesktop::open(const QString& documentOrAddress)
{
    // As an address with a whole path, no name of a file can be taken for an option of the handler.
    const QFileInfo file(documentOrAddress);
    if (file.isFile()) return QDesktopServices::openUrl(QUrl::fromLocalFile(file.absoluteFilePath()));
    const QUrl url(documentOrAddress, QUrl::StrictMode);
    return isAddress(url) && QDesktopServices::openUrl(url);
}

bool SystemDesktop::start(const QString& program, const QStringList& arguments)
{
    return QProcess::startDetached(program, arguments);
}

std::optional<QString> SystemDesktop::registryValue([[maybe_unused]] const QString& key,
                                                    [[maybe_unused]] const QString& name)
{
#ifdef Q_OS_WIN
    const QSettings registry("HKEY_LOCAL_MACHINE\\" + key, QSettings::NativeFormat);
    const QVariant value = registry.value(name);
    if (!value.isValid()) return std::nullopt;
    // Numbers are shown the way the registry's own tools of the time did.
    return value.typeId() == QMetaType::QString ? value.toString() : "&h" + QString::number(value.toUInt(), 16);
#else
    return std::nullopt;
#endif
}

QString SystemDesktop::findProgram(const QString& name)
{
    return QStandardPaths::findExecutable(name);
}

}  // namespace kavo
