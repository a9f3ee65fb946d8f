// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace kavo {

/// What the program asks of the desktop around it.
class Desktop
{
public:
    virtual ~Desktop() = default;

    /// Opens a file or a web address with the program that the system has for it. Only http, https and
    /// mailto addresses and files that exist are handed on; returns false for anything else.
    virtual bool open(const QString& documentOrAddress) = 0;

    /// Starts a program of its own, which outlives this one.
    virtual bool start(const QString& program, const QStringList& arguments) = 0;

    /// A string value of the system registry (HKEY_LOCAL_MACHINE); nothing where there is no registry.
    [[nodiscard]] virtual std::optional<QString> registryValue(const QString& key, const QString& name) = 0;

    /// Full path of a program on the search path; empty when it is not there.
    [[nodiscard]] virtual QString findProgram(const QString& name) = 0;
};

class SystemDesktop final : public Desktop
{
public:
    bool open(const QString& documentOrAddress) override;
    bool start(const QString& program, const QStringList& arguments) override;
    std::optional<QString> registryValue(const QString& key, const QString& name) override;
    QString findProgram(const QString& name) override;
};

}  // namespace kavo
