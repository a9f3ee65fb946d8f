// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "updater/http_response.h"
#include "updater/transfer.h"

#include <QNetworkProxy>
#include <QTcpSocket>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <string_view>

namespace kavo {

/// What a server may ask of our patience and memory.
struct TransferLimits
{
    /// Of a server that is connected: until the whole head is there, then between pieces of the body.
    std::chrono::milliseconds silence = std::chrono::seconds(30);
    std::chrono::milliseconds whole = std::chrono::seconds(60);  ///< for everything, however it trickles
    std::size_t bodySize = 4 * 1024 * 1024;                      ///< a longer body is an error
    int redirects = 5;                                           ///< followed at most; never from https to http
};

/// Over HTTP or HTTPS, with one connection for each request. Only a document that is whole beyond doubt
/// completes: a status that is no success, a part of a document, an empty or an encoded one, a bad certificate
/// and an end that cannot be trusted are errors.
class HttpTransfer final : public Transfer
{
    Q_OBJECT

public:
    /// Tells from a document itself that nothing of it is missing. Asked only where the server leaves the
    /// end of the document to the end of the connection, as old servers do.
    using IsWhole = std::function<bool(std::string_view)>;

    explicit HttpTransfer(IsWhole isWhole, const TransferLimits& limits = {});
    ~HttpTransfer() override;

    void execute(const QUrl& url, const QString& operation) override;
    [[nodiscard]] bool stillExecuting() const override { return m_isExecuting; }
    QByteArray getChunk(qsizetype size) override;
    void cancel() override;

private:
    struct DeleteLater
    {
        void operator()(QTcpSocket* socket) const { socket->deleteLater(); }
    };

    void request(const QUrl& url);
    void connectToServer();
    void send();
    void receive();
    void receiveEnd();
    void judge();
    void follow();
    [[nodiscard]] bool isDocument() const;
    [[nodiscard]] bool isWhole() const;
    void reach(int state);
    void end(int state);
    void stop();
    void dropSocket();

    IsWhole m_isWhole;
    TransferLimits m_limits;
    bool m_isExecuting = false;
    int m_state = 0;
    QTimer m_whole;
    QTimer m_silence;
    QTimer m_start;  ///< of the next request, out of the event loop
    QUrl m_url;
    QNetworkProxy m_proxy;  ///< on the way there
    int m_redirects = 0;    ///< followed so far
    std::unique_ptr<QTcpSocket, DeleteLater> m_socket;
    HttpResponse m_response;
    QByteArray m_body;
    qsizetype m_taken = 0;  ///< bytes of the body handed over
};

}  // namespace kavo
