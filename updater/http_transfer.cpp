// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updater/http_transfer.h"

#include "base/text.h"

#include <QNetworkProxy>
#include <QSslSocket>

#include <algorithm>
#include <array>
#include <utility>

namespace kavo {

namespace {

constexpr quint16 kHttpPort = 80;
constexpr quint16 kHttpsPort = 443;
constexpr std::array kRedirects = {301, 302, 303, 307, 308};
constexpr std::array kWithoutDocument = {204, 205, 206};  // no content, and a part that nobody has asked for

template <std::size_t size>
bool isOneOf(const std::array<int, size>& numbers, int number)
{
    return std::find(numbers.begin(), numbers.end(), number) != numbers.end();
}

bool isSecure(const QUrl& url)
{
    return url.scheme() == "https";
}

bool isWebAddress(const QUrl& url)
{
    return url.isValid() && (url.scheme() == "http" || isSecure(url)) && !url.host().isEmpty();
}

/// The proxy that the system is set up with for an address, or none.
QNetworkProxy proxyFor(const QUrl& url)
{
    return QNetworkProxyFactory::proxyForQuery(QNetworkProxyQuery(url)).value(0, QNetworkProxy::NoProxy);
}

/// Whether the proxy takes whole requests. The others only make a connection, for anything that runs over one.
bool takesRequests(const QNetworkProxy& proxy, const QUrl& url)
{
    return !isSecure(url) && proxy.capabilities().testFlag(QNetworkProxy::CachingCapability);
}

QByteArray passwordField(const char* name, const QString& user, const QString& password)
{
    if (user.isEmpty()) return {};
    return QByteArray("\r\n") + name + ": Basic " + (user + ":" + password).toUtf8().toBase64();
}

/// `proxy` takes the request; it may be none.
QByteArray requestText(const QUrl& url, const QNetworkProxy& proxy)
{
    const QByteArray host = url.adjusted(QUrl::RemoveUserInfo).authority(QUrl::FullyEncoded).toLatin1();
    const QString path = url.path(QUrl::FullyEncoded);
    QByteArray text = "GET ";
    if (takesRequests(proxy, url)) text += "http://" + host;
    text += path.isEmpty() ? "/" : path.toLatin1();
    if (url.hasQuery()) text += "?" + url.query(QUrl::FullyEncoded).toLatin1();
    text += " HTTP/1.1\r\nHost: " + host;
    text += passwordField("Authorization", url.userName(QUrl::FullyDecoded), url.password(QUrl::FullyDecoded));
    if (takesRequests(proxy, url)) text += passwordField("Proxy-Authorization", proxy.user(), proxy.password());
    // The size limit is for what arrives: nothing small may unpack into something large.
    return text +
           "\r\nAccept-Encoding: identity\r\nCache-Control: no-cache\r\nPragma: no-cache"
           "\r\nUser-Agent: Mozilla/5.0\r\nConnection: close\r\n\r\n";
}

}  // namespace

HttpTransfer::HttpTransfer(IsWhole isWhole, const TransferLimits& limits)
    : m_isWhole(std::move(isWhole)), m_limits(limits), m_response(limits.bodySize)
{
    for (QTimer* timer : {&m_whole, &m_silence, &m_start}) timer->setSingleShot(true);
    for (const QTimer* timer : {&m_whole, &m_silence})
        connect(timer, &QTimer::timeout, this, [this] { end(TransferState::Error); });
    connect(&m_start, &QTimer::timeout, this, &HttpTransfer::connectToServer);
}

HttpTransfer::~HttpTransfer()
{
    cancel();
}

void HttpTransfer::execute(const QUrl& url, [[maybe_unused]] const QString& operation)
{
    Q_ASSERT(operation.startsWith("GET"));
    cancel();
    m_body.clear();
    m_taken = 0;
    m_state = 0;
    m_redirects = 0;
    m_isExecuting = true;
    m_whole.start(m_limits.whole);
    request(url);
}

void HttpTransfer::request(const QUrl& url)
{
    dropSocket();
    m_url = url;
    m_response = HttpResponse(m_limits.bodySize);
    m_start.start(0);
}

/// A host's addresses are tried one after the other, each for the 30 seconds that Qt gives it.
void HttpTransfer::connectToServer()
{
    if (!isWebAddress(m_url)) {
        end(TransferState::Error);
        return;
    }
    m_proxy = proxyFor(m_url);
    auto* tls = isSecure(m_url) ? new QSslSocket : nullptr;
    m_socket.reset(tls != nullptr ? tls : new QTcpSocket);
    connect(m_socket.get(), &QTcpSocket::connected, this, [this] { m_silence.start(m_limits.silence); });
    connect(m_socket.get(), &QTcpSocket::readyRead, this, &HttpTransfer::receive);
    connect(m_socket.get(), &QTcpSocket::errorOccurred, this, &HttpTransfer::receiveEnd);
    const bool isProxyAsked = takesRequests(m_proxy, m_url);
    m_socket->setProxy(isProxyAsked ? QNetworkProxy::NoProxy : m_proxy);
    const QString host = isProxyAsked ? m_proxy.hostName() : m_url.host(QUrl::FullyEncoded);
    if (tls != nullptr) {
        connect(tls, &QSslSocket::encrypted, this, &HttpTransfer::send);
        tls->connectToHostEncrypted(host, static_cast<quint16>(m_url.port(kHttpsPort)));
    } else {
        const int port = isProxyAsked ? m_proxy.port() : m_url.port(kHttpPort);
        connect(m_socket.get(), &QTcpSocket::connected, this, &HttpTransfer::send);
        m_socket->connectToHost(host, static_cast<quint16>(port));
    }
}

void HttpTransfer::send()
{
    m_socket->write(requestText(m_url, m_proxy));
    reach(TransferState::RequestSent);
}

void HttpTransfer::receive()
{
    const QByteArray bytes = m_socket->readAll();
    m_response.take({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    judge();
}

/// The connection has ended, or never came about.
void HttpTransfer::receiveEnd()
{
    const QByteArray bytes = m_socket->readAll();
    m_response.take({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    m_response.takeEnd();
    judge();
}

/// What the response has come to with its latest bytes.
void HttpTransfer::judge()
{
    if (m_response.hasHead()) reach(TransferState::ResponseReceived);
    if (!m_isExecuting) return;  // cancelled by who has heard of it
    const HttpResponse::Stage stage = m_response.stage();
    if (stage == HttpResponse::Stage::Head) return;
    m_silence.start(m_limits.silence);
    if (stage != HttpResponse::Stage::Broken && isOneOf(kRedirects, m_response.status()))
        follow();
    else if (stage == HttpResponse::Stage::Broken || !isDocument())
        end(TransferState::Error);
    else if (stage == HttpResponse::Stage::Complete)
        end(isWhole() ? TransferState::ResponseCompleted : TransferState::Error);
}

void HttpTransfer::follow()
{
    const QByteArray location = QByteArray::fromStdString(m_response.field("location").value_or(""));
    const QUrl target = m_url.resolved(QUrl::fromEncoded(location));
    const bool isLessSafe = isSecure(m_url) && !isSecure(target);
    if (location.isEmpty() || !isWebAddress(target) || isLessSafe || m_redirects == m_limits.redirects) {
        end(TransferState::Error);
        return;
    }
    ++m_redirects;
    request(target);
}

bool HttpTransfer::isDocument() const
{
    const std::string coding = m_response.field("content-encoding").value_or("identity");
    return m_response.status() / 100 == 2 && !isOneOf(kWithoutDocument, m_response.status()) &&
           equalIgnoringCase(coding, "identity");
}

bool HttpTransfer::isWhole() const
{
    // That the connection has ended proves nothing: Qt tells one that was reset as one that was closed.
    const std::string& body = m_response.body();
    return !body.empty() && (m_response.hasMarkedEnd() || m_isWhole(body));
}

/// A redirect sends another request and brings another response: each state is reported once.
void HttpTransfer::reach(int state)
{
    if (state <= m_state) return;
    m_state = state;
    emit stateChanged(state);
}

void HttpTransfer::end(int state)
{
    if (state == TransferState::ResponseCompleted) m_body = QByteArray::fromStdString(m_response.body());
    stop();
    // Whoever hears of the end may start the next request, or close the window that owns this object.
    reach(state);
}

void HttpTransfer::stop()
{
    m_isExecuting = false;
    m_whole.stop();
    dropSocket();
}

void HttpTransfer::dropSocket()
{
    m_start.stop();
    m_silence.stop();
    if (const auto socket = std::exchange(m_socket, nullptr)) {
        socket->disconnect(this);
        socket->abort();
    }
}

QByteArray HttpTransfer::getChunk(qsizetype size)
{
    QByteArray chunk = m_body.mid(m_taken, size);
    m_taken += chunk.size();
    return chunk;
}

void HttpTransfer::cancel()
{
    if (m_isExecuting) stop();
}

}  // namespace kavo
