// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QSslConfiguration>
#include <QStringList>
#include <QTcpServer>
#include <QTcpSocket>
#include <QUrl>

#include <chrono>
#include <functional>
#include <memory>

namespace kavo::test {

/// A web server on 127.0.0.1 for one test, whose answers are as good or as bad as the test wants.
class PageServer final
{
public:
    /// Called with the connection and the head of each request.
    using Answer = std::function<void(QTcpSocket&, const QByteArray& head)>;

    explicit PageServer(Answer answer);
    /// Over TLS.
    PageServer(const QSslConfiguration& tls, Answer answer);

    [[nodiscard]] QString host() const;
    [[nodiscard]] QUrl url(const QString& path = "/records_kavo_wrs.php?mode=text") const;

    /// First lines of the requests so far.
    [[nodiscard]] const QStringList& requests() const { return m_requests; }
    /// Connections that the other side has ended.
    [[nodiscard]] int disconnections() const { return m_disconnections; }

private:
    void listen();
    void accept();

    QString m_scheme;
    Answer m_answer;
    QStringList m_requests;
    int m_disconnections = 0;
    std::unique_ptr<QTcpServer> m_server;
};

/// A complete response with this body.
[[nodiscard]] QByteArray response(const QByteArray& body, const QByteArray& status = "200 OK",
                                  const QByteArray& headers = "");

/// Answers every request with the same bytes and ends the connection.
[[nodiscard]] PageServer::Answer always(const QByteArray& bytes);

/// How a connection goes on when everything is sent.
enum class Ending { Close, Reset, Stay };

/// Sends one piece after the other, each with a turn of the event loop for itself.
[[nodiscard]] PageServer::Answer inPieces(const QByteArrayList& pieces, Ending ending);

/// The same, byte by byte.
[[nodiscard]] PageServer::Answer byteByByte(const QByteArray& bytes, Ending ending);

/// Sends `start`, and then `bytes` again every `interval` as long as the connection lasts.
[[nodiscard]] PageServer::Answer repeating(const QByteArray& start, const QByteArray& bytes,
                                           std::chrono::milliseconds interval);

/// Redirects "/N" to "/N-1" below `base`, and answers "/0" with `page`.
[[nodiscard]] PageServer::Answer redirecting(const QByteArray& page, const QByteArray& base = "");

/// A body in chunks of this many bytes, the last chunk and the empty line behind it included.
[[nodiscard]] QByteArray inChunks(const QByteArray& body, qsizetype size = 1000);

/// A port of 127.0.0.1 that nobody listens on.
[[nodiscard]] quint16 closedPort();

/// A certificate for 127.0.0.1 that nobody but itself has signed, with its key, made for this run.
[[nodiscard]] QSslConfiguration selfSignedTls();

}  // namespace kavo::test
