// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "forms/desktop.h"

#include <QMap>

namespace kavo::test {

/// Notes what the windows ask of the desktop. Its registry and its programs are what the test puts in.
class RecordingDesktop final : public Desktop
{
public:
    QStringList opened;
    QStringList started;
    QMap<QString, QString> registry;  ///< "key|name" to value
    QMap<QString, QString> programs;  ///< name to path
    bool startsPrograms = true;

    bool open(const QString& documentOrAddress) override
    {
        opened << documentOrAddress;
        return true;
    }

    bool start(const QString& program, const QStringList& arguments) override
    {
        started << (QStringList(program) + arguments).join(' ');
        return startsPrograms;
    }

    std::optional<QString> registryValue(const QString& key, const QString& name) override
    {
        const auto found = registry.constFind(key + "|" + name);
        return found == registry.constEnd() ? std::nullopt : std::optional(*found);
    }

    QString findProgram(const QString& name) override { return programs.value(name); }
};

}  // namespace kavo::test
