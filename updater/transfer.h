#pragma once

#include <QByteArray>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QObject>
#include <QTimer>
#include <QUrl>

#include <chrono>
#include <memory>

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

/// What a server may ask of our patience and memory.
struct TransferLimits
{
    std::chrono::milliseconds silence = std::chrono::seconds(30);  ///< without a byte from the server
    std::chrono::milliseconds whole = std::chrono::minutes(5);     ///< for everything, however it trickles
    qsizetype bodySize = 4 * 1024 * 1024;                          ///< a longer body is an error
    int redirects = 5;                                             ///< followed at most; never from https to http
};

/// Over HTTP or HTTPS. A status of 400 and above, a bad certificate and an incomplete body are errors.
class HttpTransfer final : public Transfer
{
    Q_OBJECT

public:
    explicit HttpTransfer(const TransferLimits& limits = {});
    ~HttpTransfer() override;

    void execute(const QUrl& url, const QString& operation) override;
    bool stillExecuting() const override { return m_reply != nullptr; }
    QByteArray getChunk(qsizetype size) override;
    void cancel() override;

private:
    struct DeleteLater
    {
        void operator()(QNetworkReply* reply) const { reply->deleteLater(); }
    };

    [[nodiscard]] QNetworkRequest requestFor(const QUrl& url) const;
    void wireReply();
    void reach(int state);
    void readBody();
    void abort();
    void finish();

    TransferLimits m_limits;
    QNetworkAccessManager m_manager;
    std::unique_ptr<QNetworkReply, DeleteLater> m_reply;
    QTimer m_patience;
    QByteArray m_body;
    qsizetype m_taken = 0;  ///< bytes of the body handed over
    int m_state = 0;
};

}  // namespace kavo
