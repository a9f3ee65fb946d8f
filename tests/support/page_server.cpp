// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/page_server.h"

#include "forms/screen_text.h"
#include "tests/support/program_folder_fixture.h"

#include <QFile>
#include <QProcess>
#include <QSslCertificate>
#include <QSslKey>
#include <QSslServer>
#include <QTimer>

#include <stdexcept>
#include <utility>

#ifdef _WIN32
#include <winsock2.h>
#else
#include <sys/socket.h>
#endif

namespace kavo::test {

PageServer::PageServer(Answer answer)
    : m_scheme("http"), m_answer(std::move(answer)), m_server(std::make_unique<QTcpServer>())
{
    listen();
}

PageServer::PageServer(const QSslConfiguration& tls, Answer answer) : m_scheme("https"), m_answer(std::move(answer))
{
    auto server = std::make_unique<QSslServer>();
    server->setSslConfiguration(tls);
    m_server = std::move(server);
    listen();
}

void PageServer::listen()
{
    if (!m_server->listen(QHostAddress::LocalHost)) throw std::runtime_error("no port to listen on");
    QObject::connect(m_server.get(), &QTcpServer::pendingConnectionAvailable, m_server.get(), [this] { accept(); });
}

void PageServer::accept()
{
    while (QTcpSocket* socket = m_server->nextPendingConnection()) {
        QObject::connect(socket, &QTcpSocket::disconnected, m_server.get(), [this] { ++m_disconnections; });
        const auto answerRequest = [this, socket, head = QByteArray()]() mutable {
            head += socket->readAll();
            if (!head.contains("\r\n\r\n")) return;
            m_requests << QString::fromLatin1(head.left(head.indexOf("\r\n")));
            m_answer(*socket, std::exchange(head, {}));
        };
        QObject::connect(socket, &QTcpSocket::readyRead, m_server.get(), answerRequest);
    }
}

QString PageServer::host() const
{
    return "127.0.0.1:" + QString::number(m_server->serverPort());
}

QUrl PageServer::url(const QString& path) const
{
    return QUrl(m_scheme + "://" + host() + path);
}

QByteArray response(const QByteArray& body, const QByteArray& status, const QByteArray& headers)
{
    return "HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n" + headers + "\r\n" +
           body;
}

PageServer::Answer always(const QByteArray& bytes)
{
    return [bytes](QTcpSocket& socket, const QByteArray&) {
        socket.write(bytes);
        socket.disconnectFromHost();
    };
}

namespace {

/// Ends the connection so that the other side is told of an error.
void reset(QTcpSocket& socket)
{
    linger withoutGoodbye{};
    withoutGoodbye.l_onoff = 1;
    ::setsockopt(static_cast<int>(socket.socketDescriptor()), SOL_SOCKET, SO_LINGER,
                 reinterpret_cast<const char*>(&withoutGoodbye), sizeof withoutGoodbye);
    socket.abort();
}

/// Sends pieces[next] and what follows it.
void sendFrom(QTcpSocket& socket, const QByteArrayList& pieces, qsizetype next, Ending ending)
{
    if (next < pieces.size()) {
        socket.write(pieces.at(next));
        socket.flush();
        QTimer::singleShot(0, &socket, [=, &socket] { sendFrom(socket, pieces, next + 1, ending); });
        return;
    }
    switch (ending) {
    case Ending::Close: socket.disconnectFromHost(); break;
    case Ending::Reset: reset(socket); break;
    case Ending::Stay: break;
    }
}

}  // namespace

PageServer::Answer inPieces(const QByteArrayList& pieces, Ending ending)
{
    return [=](QTcpSocket& socket, const QByteArray&) { sendFrom(socket, pieces, 0, ending); };
}

PageServer::Answer byteByByte(const QByteArray& bytes, Ending ending)
{
    QByteArrayList pieces;
    for (const char byte : bytes) pieces << QByteArray(1, byte);
    return inPieces(pieces, ending);
}

PageServer::Answer repeating(const QByteArray& start, const QByteArray& bytes, std::chrono::milliseconds interval)
{
    constexpr qint64 kEnoughWaiting = 1024 * 1024;
    return [=](QTcpSocket& socket, const QByteArray&) {
        socket.write(start);
        auto* timer = new QTimer(&socket);
        QObject::connect(timer, &QTimer::timeout, &socket, [&socket, bytes] {
            if (socket.bytesToWrite() < kEnoughWaiting) socket.write(bytes);
        });
        timer->start(interval);
    };
}

PageServer::Answer redirecting(const QByteArray& page, const QByteArray& base)
{
    return [=](QTcpSocket& socket, const QByteArray& head) {
        const int left = head.split(' ').at(1).mid(1).toInt();
        const QByteArray next = "Location: " + base + "/" + QByteArray::number(left - 1) + "\r\n";
        socket.write(left == 0 ? response(page) : response("moved", "302 Found", next));
    };
}

QByteArray inChunks(const QByteArray& body, qsizetype size)
{
    QByteArray chunks;
    for (qsizetype at = 0; at < body.size(); at += size) {
        const QByteArray chunk = body.mid(at, size);
        chunks += QByteArray::number(chunk.size(), 16) + "\r\n" + chunk + "\r\n";
    }
    return chunks + "0\r\n\r\n";
}

quint16 closedPort()
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    return server.serverPort();
}

QSslConfiguration selfSignedTls()
{
    const TemporaryFolder folder;
    const QString keyFile = pathToScreen(folder / "key.pem");
    const QString certificateFile = pathToScreen(folder / "certificate.pem");
    QProcess tool;
    tool.start("openssl", {"req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes",
                           "-days", "2", "-subj", "/CN=127.0.0.1", "-addext", "subjectAltName=IP:127.0.0.1", "-keyout",
                           keyFile, "-out", certificateFile});
    if (!tool.waitForFinished() || tool.exitCode() != 0)
        throw std::runtime_error("openssl: " + tool.readAllStandardError().toStdString());
    QFile key(keyFile);
    QFile certificate(certificateFile);
    if (!key.open(QIODevice::ReadOnly) || !certificate.open(QIODevice::ReadOnly))
        throw std::runtime_error("no certificate");
    QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
    tls.setPrivateKey(QSslKey(&key, QSsl::Ec));
    tls.setLocalCertificate(QSslCertificate(&certificate));
    return tls;
}

}  // namespace kavo::test
