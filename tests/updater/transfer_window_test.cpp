#include "tests/support/page_server.h"
#include "tests/support/program_folder_fixture.h"
#include "updater/transfer.h"

#include <QNetworkProxy>
#include <QSignalSpy>
#include <QSslCertificate>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include <vector>

namespace {

using kavo::HttpTransfer;
using kavo::TransferLimits;
using kavo::test::always;
using kavo::test::PageServer;
using kavo::test::response;
using namespace std::chrono_literals;
namespace TransferState = kavo::TransferState;

using States = std::vector<int>;

const States kCompleted = {TransferState::RequestSent, TransferState::ResponseReceived,
                           TransferState::ResponseCompleted};

/// One transfer, with the states it has gone through.
class HttpTransferTest : public testing::Test
{
protected:
    HttpTransferTest()
    {
        QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
        // Long enough for a busy machine; a test of patience sets its own.
        limits.silence = 20s;
        limits.whole = 20s;
    }

    ~HttpTransferTest() override { QSslConfiguration::setDefaultConfiguration(m_tlsBefore); }

    /// Runs a request to its end. Returns its states.
    States run(const QUrl& url)
    {
        transfer = std::make_unique<HttpTransfer>(limits);
        states.clear();
        QObject::connect(transfer.get(), &kavo::Transfer::stateChanged, transfer.get(),
                         [this](int state) { states.push_back(state); });
        transfer->execute(url, "GET /");
        EXPECT_TRUE(states.empty()) << "execute() must return before anything happens";
        EXPECT_TRUE(transfer->stillExecuting());
        EXPECT_TRUE(QTest::qWaitFor([this] { return !transfer->stillExecuting(); }, 15000)) << "no end";
        return states;
    }

    /// Ends in an error, and hands nothing over.
    void expectError(const QUrl& url)
    {
        run(url);
        ASSERT_FALSE(states.empty());
        EXPECT_EQ(states.back(), TransferState::Error);
        EXPECT_EQ(std::count(states.begin(), states.end(), TransferState::ResponseCompleted), 0);
        EXPECT_TRUE(transfer->getChunk(100).isEmpty());
    }

    QByteArray body()
    {
        QByteArray all;
        for (QByteArray chunk = transfer->getChunk(100); !chunk.isEmpty(); chunk = transfer->getChunk(100)) {
            EXPECT_LE(chunk.size(), 100);
            all += chunk;
        }
        return all;
    }

    TransferLimits limits;
    std::unique_ptr<HttpTransfer> transfer;
    States states;

private:
    QSslConfiguration m_tlsBefore = QSslConfiguration::defaultConfiguration();
};

/// Writes `bytes` again every `interval`, as long as the connection lasts.
PageServer::Answer repeating(const QByteArray& start, const QByteArray& bytes, std::chrono::milliseconds interval)
{
    return [=](QTcpSocket& socket, const QByteArray&) {
        socket.write(start);
        auto* timer = new QTimer(&socket);
        QObject::connect(timer, &QTimer::timeout, &socket, [&socket, bytes] {
            if (socket.bytesToWrite() < 1024 * 1024) socket.write(bytes);
        });
        timer->start(interval);
    };
}

/// Redirects "/N" to "/N-1", and answers "/0" with a page.
PageServer::Answer redirecting(const QByteArray& base = "")
{
    return [base](QTcpSocket& socket, const QByteArray& head) {
        const int left = head.split(' ').at(1).mid(1).toInt();
        if (left == 0)
            socket.write(response("page"));
        else
            socket.write(
                response("moved", "302 Found", "Location: " + base + "/" + QByteArray::number(left - 1) + "\r\n"));
    };
}

TEST_F(HttpTransferTest, HandsThePageOverInChunks)
{
    const QByteArray page(250, 'x');
    const PageServer server(always(response(page)));
    EXPECT_EQ(run(server.url()), kCompleted);
    EXPECT_EQ(server.requests(), QStringList("GET /records_kavo_wrs.php?mode=text HTTP/1.1"));
    EXPECT_EQ(transfer->getChunk(100).size(), 100);
    EXPECT_EQ(transfer->getChunk(100).size(), 100);
    EXPECT_EQ(transfer->getChunk(100).size(), 50);
    EXPECT_TRUE(transfer->getChunk(100).isEmpty());
}

TEST_F(HttpTransferTest, FetchesOnePageAfterTheOther)
{
    const PageServer server(always(response("page")));
    EXPECT_EQ(run(server.url()), kCompleted);
    states.clear();
    transfer->execute(server.url(), "GET /");
    EXPECT_TRUE(transfer->getChunk(100).isEmpty()) << "the former body is gone";
    ASSERT_TRUE(QTest::qWaitFor([this] { return !transfer->stillExecuting(); }, 15000));
    EXPECT_EQ(states, kCompleted);
    EXPECT_EQ(body(), "page");
}

TEST_F(HttpTransferTest, EmptyPageCompletes)
{
    const PageServer server(always(response("")));
    EXPECT_EQ(run(server.url()), kCompleted);
    EXPECT_EQ(body(), "");
}

TEST_F(HttpTransferTest, RefusedConnectionIsAnError)
{
    EXPECT_EQ(run(QUrl("http://127.0.0.1:" + QString::number(kavo::test::closedPort()) + "/")),
              States{TransferState::Error});
}

TEST_F(HttpTransferTest, UnknownHostIsAnError)
{
    expectError(QUrl("http://records.invalid/"));
}

TEST_F(HttpTransferTest, AddressThatIsNoneIsAnError)
{
    expectError(QUrl());
    expectError(QUrl("http://two words/"));
    expectError(QUrl("http://:80/"));
    expectError(QUrl("gopher://127.0.0.1/"));
}

TEST_F(HttpTransferTest, SilentServerIsGivenUp)
{
    limits.silence = 200ms;
    const PageServer mute([](QTcpSocket&, const QByteArray&) {});
    EXPECT_EQ(run(mute.url()), States({TransferState::RequestSent, TransferState::Error}));
    const PageServer stops([](QTcpSocket& socket, const QByteArray&) {
        socket.write("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nfirst");
    });
    expectError(stops.url());
}

TEST_F(HttpTransferTest, TrickleIsWaitedFor)
{
    limits.silence = 1s;
    const PageServer server(repeating("HTTP/1.1 200 OK\r\nContent-Length: 30\r\n\r\n", "x", 50ms));
    EXPECT_EQ(run(server.url()), kCompleted);  // 1.5 s, longer than any silence may last
    EXPECT_EQ(body(), QByteArray(30, 'x'));
}

TEST_F(HttpTransferTest, TrickleWithoutEndIsGivenUp)
{
    limits.whole = 400ms;
    const PageServer server(repeating("HTTP/1.1 200 OK\r\n\r\n", "x", 20ms));
    expectError(server.url());
}

TEST_F(HttpTransferTest, CutBodyIsAnError)
{
    const QByteArray start = "HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\nfirst bytes";
    const PageServer closes(always(start));
    expectError(closes.url());
    const PageServer resets([start](QTcpSocket& socket, const QByteArray&) {
        socket.write(start);
        socket.flush();
        QTimer::singleShot(50, &socket, [&socket] { socket.abort(); });
    });
    expectError(resets.url());
    const PageServer chunked(always("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\nff\r\nshort"));
    expectError(chunked.url());
}

TEST_F(HttpTransferTest, ErrorStatusIsAnError)
{
    for (const char* status : {"404 Not Found", "500 Internal Server Error", "401 Unauthorized", "503 Unavailable"}) {
        const PageServer server(always(response("<td align=\"right\">12,34</td>", status)));
        expectError(server.url());
    }
}

TEST_F(HttpTransferTest, FollowsFiveRedirectsAndNoMore)
{
    const PageServer server(redirecting());
    EXPECT_EQ(run(server.url("/5")), kCompleted);
    EXPECT_EQ(body(), "page");
    EXPECT_EQ(server.requests().size(), 6);
    expectError(server.url("/6"));
    EXPECT_EQ(server.requests().size(), 12) << "the sixth redirect is not followed";
}

TEST_F(HttpTransferTest, RedirectLoopIsAnError)
{
    const PageServer server(always(response("", "301 Moved", "Location: /again\r\n")));
    expectError(server.url());
    EXPECT_EQ(server.requests().size(), 6);
}

TEST_F(HttpTransferTest, RedirectToAFileIsAnError)
{
    const kavo::test::TemporaryFolder folder;
    folder.write("secret.txt", "secret");
    const QByteArray file = QUrl::fromLocalFile(QString::fromStdString((folder / "secret.txt").string())).toEncoded();
    const PageServer server(always(response("", "302 Found", "Location: " + file + "\r\n")));
    expectError(server.url());
}

TEST_F(HttpTransferTest, BodyWithoutEndIsStopped)
{
    const PageServer server(repeating("HTTP/1.1 200 OK\r\n\r\n", QByteArray(256 * 1024, 'x'), 1ms));
    expectError(server.url());
}

TEST_F(HttpTransferTest, HeadersWithoutEndCountAsSilence)
{
    limits.silence = 200ms;
    const PageServer lines(repeating("HTTP/1.1 200 OK\r\n", "X-More: " + QByteArray(1000, 'x') + "\r\n", 0ms));
    expectError(lines.url());
    const PageServer oneLine(repeating("HTTP/1.1 200 OK\r\nX-More: ", QByteArray(1000, 'x'), 0ms));
    expectError(oneLine.url());
}

TEST_F(HttpTransferTest, BodyMayHaveTheLargestSizeButNoByteMore)
{
    EXPECT_EQ(limits.bodySize, 4194304);
    limits.bodySize = 5000;
    const PageServer fits(always(response(QByteArray(5000, 'x'))));
    EXPECT_EQ(run(fits.url()), kCompleted);
    EXPECT_EQ(body().size(), 5000);
    const PageServer tooLong(always(response(QByteArray(5001, 'x'))));
    expectError(tooLong.url());
}

TEST_F(HttpTransferTest, BytesArriveAsTheyAre)
{
    QByteArray page;
    for (int i = 0; i < 512; ++i) page.append(static_cast<char>(i));
    const PageServer server(always(response(page, "200 OK", "Content-Type: text/html; charset=utf-16\r\n")));
    EXPECT_EQ(run(server.url()), kCompleted);
    EXPECT_EQ(body(), page);
}

TEST_F(HttpTransferTest, NothingIsUnpacked)
{
    const PageServer server(always(response("no gzip", "200 OK", "Content-Encoding: gzip\r\n")));
    EXPECT_EQ(run(server.url()), kCompleted);
    EXPECT_EQ(body(), "no gzip");
}

TEST_F(HttpTransferTest, AnswerThatIsNoHttpIsAnError)
{
    for (const QByteArray& bytes :
         {QByteArray("hello\r\n\r\n"), QByteArray(3000, '\0'), QByteArray("HTTP/1.1 200 OK\r\nContent-Le")}) {
        const PageServer server(always(bytes));
        expectError(server.url());
    }
}

TEST_F(HttpTransferTest, CertificateMustBeGood)
{
    const QSslConfiguration tls = kavo::test::selfSignedTls();
    const PageServer server(tls, always(response("page")));
    expectError(server.url());
    EXPECT_EQ(server.requests().size(), 0) << "nothing is asked of a server that is not who it says";
    const PageServer plain(always(response("", "302 Found", "Location: " + server.url("/").toEncoded() + "\r\n")));
    expectError(plain.url());

    QSslConfiguration trusting = QSslConfiguration::defaultConfiguration();
    trusting.addCaCertificate(tls.localCertificate());
    QSslConfiguration::setDefaultConfiguration(trusting);
    EXPECT_EQ(run(server.url()), kCompleted);
    EXPECT_EQ(body(), "page");
    EXPECT_EQ(run(plain.url()), kCompleted) << "from http to https is allowed";
}

TEST_F(HttpTransferTest, NeverFollowsFromHttpsToHttp)
{
    const QSslConfiguration tls = kavo::test::selfSignedTls();
    QSslConfiguration trusting = QSslConfiguration::defaultConfiguration();
    trusting.addCaCertificate(tls.localCertificate());
    QSslConfiguration::setDefaultConfiguration(trusting);
    const PageServer plain(always(response("page")));
    const PageServer server(tls, always(response("", "302 Found", "Location: " + plain.url().toEncoded() + "\r\n")));
    expectError(server.url());
    EXPECT_EQ(server.requests().size(), 1);
    EXPECT_EQ(plain.requests().size(), 0);
}

TEST_F(HttpTransferTest, CancelEndsAtOnceAndInSilence)
{
    PageServer server(repeating("HTTP/1.1 200 OK\r\n\r\n", "x", 5ms));
    HttpTransfer cancelled(limits);
    QSignalSpy spy(&cancelled, &kavo::Transfer::stateChanged);
    cancelled.execute(server.url(), "GET /");
    ASSERT_TRUE(QTest::qWaitFor([&spy] { return spy.size() == 2; }, 15000));
    cancelled.cancel();
    EXPECT_FALSE(cancelled.stillExecuting());
    EXPECT_TRUE(QTest::qWaitFor([&server] { return server.disconnections() == 1; }, 15000));
    EXPECT_EQ(spy.size(), 2);
}

TEST_F(HttpTransferTest, MayBeDestroyedAnywhere)
{
    for (const int statesBefore : {0, 1, 2}) {
        PageServer server(repeating("HTTP/1.1 200 OK\r\n\r\n", "x", 5ms));
        auto destroyed = std::make_unique<HttpTransfer>(limits);
        QSignalSpy spy(destroyed.get(), &kavo::Transfer::stateChanged);
        destroyed->execute(server.url(), "GET /");
        ASSERT_TRUE(QTest::qWaitFor([&] { return spy.size() >= statesBefore; }, 15000));
        destroyed.reset();
        QTest::qWait(1);
    }
}

}  // namespace
