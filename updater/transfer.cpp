#include "updater/transfer.h"

#include <QNetworkRequest>

#include <utility>

namespace kavo {

HttpTransfer::HttpTransfer(const TransferLimits& limits) : m_limits(limits)
{
    m_patience.setSingleShot(true);
    connect(&m_patience, &QTimer::timeout, this, &HttpTransfer::abort);
}

HttpTransfer::~HttpTransfer()
{
    cancel();
}

QNetworkRequest HttpTransfer::requestFor(const QUrl& url) const
{
    QNetworkRequest request(url);
    request.setTransferTimeout(static_cast<int>(m_limits.silence.count()));
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(m_limits.redirects);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    // The size limit is for what arrives: nothing small may unpack into something large.
    request.setRawHeader("Accept-Encoding", "identity");
    return request;
}

void HttpTransfer::execute(const QUrl& url, [[maybe_unused]] const QString& operation)
{
    Q_ASSERT(operation.startsWith("GET"));
    cancel();
    m_body.clear();
    m_taken = 0;
    m_state = 0;
    m_reply.reset(m_manager.get(requestFor(url)));
    wireReply();
    m_patience.start(m_limits.whole);
}

void HttpTransfer::wireReply()
{
    connect(m_reply.get(), &QNetworkReply::requestSent, this, [this] { reach(TransferState::RequestSent); });
    connect(m_reply.get(), &QNetworkReply::metaDataChanged, this, [this] { reach(TransferState::ResponseReceived); });
    connect(m_reply.get(), &QIODevice::readyRead, this, &HttpTransfer::readBody);
    connect(m_reply.get(), &QNetworkReply::finished, this, &HttpTransfer::finish);
}

/// A redirect sends another request and brings another response: each state is reported once.
void HttpTransfer::reach(int state)
{
    if (state <= m_state) return;
    m_state = state;
    emit stateChanged(state);
}

void HttpTransfer::readBody()
{
    m_body += m_reply->read(m_limits.bodySize + 1 - m_body.size());
    // Not from within the reply's own signal, which it does not expect.
    if (m_body.size() > m_limits.bodySize) m_patience.start(0);
}

void HttpTransfer::abort()
{
    if (m_reply != nullptr) m_reply->abort();
}

void HttpTransfer::finish()
{
    const auto reply = std::exchange(m_reply, nullptr);
    m_patience.stop();
    reply->disconnect(this);
    const bool isComplete = reply->error() == QNetworkReply::NoError && m_body.size() <= m_limits.bodySize;
    if (!isComplete) m_body.clear();
    // A complete response has been through all states, also when it came too fast for each to be told.
    if (isComplete)
        for (const int passed : {TransferState::RequestSent, TransferState::ResponseReceived}) reach(passed);
    // Whoever hears of the end may start the next request, or close the window that owns this object.
    reach(isComplete ? TransferState::ResponseCompleted : TransferState::Error);
}

QByteArray HttpTransfer::getChunk(qsizetype size)
{
    QByteArray chunk = m_body.mid(m_taken, size);
    m_taken += chunk.size();
    return chunk;
}

void HttpTransfer::cancel()
{
    if (m_reply == nullptr) return;
    const auto reply = std::exchange(m_reply, nullptr);
    reply->disconnect(this);
    reply->abort();
    m_patience.stop();
}

}  // namespace kavo
