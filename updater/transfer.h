// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QObject>
#include <QUrl>

namespace kavo {

/// States that a request reports, by their numbers. One that succeeds goes through RequestSent,
/// ResponseReceived and ResponseCompleted; one that fails ends with Error instead, wherever it stands.
namespace TransferState {
enum : int { RequestSent = 1, ResponseReceived = 2, Error = 11, ResponseCompleted = 12 };
}

/// Fetches a document in the background, one at a time.
class Transfer : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Starts a request and returns at once. `operation` is the method and what it asks for ("GET /").
    virtual void execute(const QUrl& url, const QString& operation) = 0;

    [[nodiscard]] virtual bool stillExecuting() const = 0;

    /// The next `size` bytes of the body at most; empty when nothing is left, and after an error.
    [[nodiscard]] virtual QByteArray getChunk(qsizetype size) = 0;

    /// Ends a request at once and in silence.
    virtual void cancel() = 0;

signals:
    void stateChanged(int state);
};

}  // namespace kavo
