// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "updater/transfer.h"

#include <utility>

namespace kavo::test {

/// A transfer that has its page already.
class CannedTransfer final : public Transfer
{
    Q_OBJECT

public:
    explicit CannedTransfer(QByteArray page) : m_page(std::move(page)) {}

    void execute(const QUrl&, const QString&) override
    {
        QTimer::singleShot(0, this, [this] { emit stateChanged(TransferState::ResponseCompleted); });
    }
    [[nodiscard]] bool stillExecuting() const override { return false; }
    [[nodiscard]] QByteArray getChunk(qsizetype size) override
    {
        QByteArray chunk = m_page.left(size);
        m_page.remove(0, size);
        return chunk;
    }
    void cancel() override {}

private:
    QByteArray m_page;
};

}  // namespace kavo::test
