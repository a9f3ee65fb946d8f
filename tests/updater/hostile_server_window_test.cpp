// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// The updater's window in front of servers of every kind: what the user is told, what the targets become, and
// that the window answers all the time.

#include "tests/support/environment.h"
#include "tests/support/heartbeat.h"
#include "tests/updater/updater_window_fixture.h"

#include <QFileInfo>

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace {

using kavo::test::always;
using kavo::test::byteByByte;
using kavo::test::Ending;
using kavo::test::Heartbeat;
using kavo::test::inChunks;
using kavo::test::inPieces;
using kavo::test::kLongestPause;
using kavo::test::kTransferFailed;
using kavo::test::PageServer;
using kavo::test::repeating;
using kavo::test::response;
using kavo::test::samplePage;
using kavo::test::sampleTargets;
using kavo::test::targetsWithoutTimes;
using kavo::test::waitUntil;
using namespace std::chrono_literals;
namespace TransferState = kavo::TransferState;

using States = std::vector<int>;

const States kCompleted = {TransferState::RequestSent, TransferState::ResponseReceived,
                           TransferState::ResponseCompleted};
const States kNoConnection = {TransferState::Error};
const States kNoHead = {TransferState::RequestSent, TransferState::Error};
const States kNoBody = {TransferState::RequestSent, TransferState::ResponseReceived, TransferState::Error};

constexpr qsizetype kLargestBody = 4 * 1024 * 1024;

const QByteArray kOk = "HTTP/1.1 200 OK\r\n";
const QByteArray kChunked = kOk + "Transfer-Encoding: chunked\r\n\r\n";

QByteArray length(qsizetype bytes)
{
    return "Content-Length: " + QByteArray::number(bytes) + "\r\n";
}

/// The page, filled up to so many bytes.
QByteArray pageOf(qsizetype bytes)
{
    return samplePage().leftJustified(bytes, ' ');
}

/// The first half of the page: some times are there, others are not.
QByteArray halfPage()
{
    return samplePage().left(samplePage().size() / 2);
}

void sayNothing(QTcpSocket&, const QByteArray&) {}

struct Row
{
    const char* name;
    PageServer::Answer answer;
    States states = kCompleted;
};

/// Servers that the page is taken from.
std::vector<Row> goodServers()
{
    const QByteArray page = samplePage();
    const QByteArray good = response(page);
    return {
        {"closes the connection", always(good)},
        {"keeps the connection open", inPieces({good}, Ending::Stay)},
        {"resets the connection behind the page", inPieces({good}, Ending::Reset)},
        {"sends single bytes", byteByByte(good, Ending::Stay)},
        {"sends chunks", always(kChunked + inChunks(page))},
        {"sends chunks of a byte", always(kChunked + inChunks(page, 1))},
        {"keeps the connection open behind chunks", inPieces({kChunked + inChunks(page)}, Ending::Stay)},
        {"sends chunk extensions", always(kChunked + inChunks(page).replace("3e8\r\n", "3e8;a=b;c=\"d\"\r\n"))},
        {"sends a trailer", always(kChunked + inChunks(page).replace("0\r\n\r\n", "0\r\nX-Sum: 1\r\n\r\n"))},
        {"tells to continue first", always("HTTP/1.1 100 Continue\r\n\r\n" + good)},
        {"gives early hints first", always("HTTP/1.1 103 Early Hints\r\nLink: </a>\r\n\r\n" + good)},
        {"speaks HTTP/1.0", always("HTTP/1.0 200 OK\r\n" + length(page.size()) + "\r\n" + page)},
        {"speaks HTTP/1.0 and gives no length", always("HTTP/1.0 200 OK\r\n\r\n" + page)},
        {"gives no length", always(kOk + "\r\n" + page)},
        {"sends bare line feeds",
         always("HTTP/1.1 200 OK\nContent-Length: " + QByteArray::number(page.size()) + "\n\n" + page)},
        {"sends more than it announces", always(good + "<p>more</p>")},
        {"announces the same length twice", always(response(page, "200 OK", length(page.size())))},
        {"says that nothing is encoded", always(response(page, "200 OK", "Content-Encoding: identity\r\n"))},
        {"speaks in another character set", always(response(page, "200 OK",
                                                            "Content-Type: text/html; "
                                                            "charset=utf-16\r\n"))},
        {"sets cookies", always(response(page, "200 OK", "Set-Cookie: a=b\r\nSet-Cookie: c=d\r\n"))},
        {"asks for a reload", always(response(page, "200 OK", "Refresh: 0; url=http://127.0.0.1:9/\r\n"))},
        {"sends NULs and odd bytes", always(response(QByteArray("\0\xFF\xFE\x80", 4) + page + QByteArray(1, '\0')))},
        {"sends the largest page", always(response(pageOf(kLargestBody)))},
        {"answers with another success", always(response(page, "203 Non-Authoritative Information"))},
    };
}

/// Servers that end the connection with an error before the page is there.
std::vector<Row> resettingServers()
{
    const QByteArray good = response(samplePage());
    return {
        {"resets at once", inPieces({}, Ending::Reset), kNoHead},
        {"resets in the head", inPieces({kOk + "Content-Le"}, Ending::Reset), kNoHead},
        {"resets in the page", inPieces({good.chopped(1000)}, Ending::Reset), kNoBody},
        {"resets half a page without a length", inPieces({kOk + "\r\n" + halfPage()}, Ending::Reset), kNoBody},
    };
}

/// Servers whose answer is no page, or is not beyond doubt the whole page.
std::vector<Row> badServers()
{
    const QByteArray page = samplePage();
    const QByteArray good = response(page);
    const auto answers = [&page](const char* status, const QByteArray& headers = "") {
        return always(response(page, status, headers));
    };
    const auto packed = [&page](const char* coding) {
        return always(response(page, "200 OK", "Content-Encoding: " + QByteArray(coding) + "\r\n"));
    };
    return {
        // Nothing, or something else than HTTP
        {"closes at once", always(""), kNoHead},
        {"closes in the head", always(kOk + "Content-Le"), kNoHead},
        {"only tells to continue", always("HTTP/1.1 100 Continue\r\n\r\n"), kNoHead},
        {"sends the page alone", always(page), kNoHead},
        {"sends garbage", always("220 mail ready\r\n\r\n"), kNoHead},
        {"sends NULs", always(QByteArray(3000, '\0')), kNoHead},
        {"speaks HTTP/2", always("HTTP/2 200\r\n" + length(page.size()) + "\r\n" + page), kNoHead},
        {"sends one field without end", repeating(kOk + "X: ", QByteArray(1000, 'x'), 0ms), kNoHead},
        {"sends fields without end", repeating(kOk, "X-More: " + QByteArray(1000, 'x') + "\r\n", 0ms), kNoHead},
        {"changes the protocol", always("HTTP/1.1 101 Switching Protocols\r\n\r\n" + page), kNoBody},

        // Another status
        {"has no content", answers("204 No Content"), kNoBody},
        {"resets the form", answers("205 Reset Content"), kNoBody},
        {"sends a part", answers("206 Partial Content", "Content-Range: bytes 0-999/2000\r\n"), kNoBody},
        {"offers a choice", answers("300 Multiple Choices"), kNoBody},
        {"says that nothing has changed", answers("304 Not Modified"), kNoBody},
        {"asks for a password", answers("401 Unauthorized", "WWW-Authenticate: Basic realm=\"x\"\r\n"), kNoBody},
        {"has no such page", answers("404 Not Found"), kNoBody},
        {"asks for a proxy's password",
         answers("407 Proxy Authentication Required", "Proxy-Authenticate: Basic realm=\"x\"\r\n"), kNoBody},
        {"fails", answers("500 Internal Server Error"), kNoBody},
        {"has a status of its own", answers("999 Whatever"), kNoBody},
        {"has no status", answers("000 Nothing"), kNoBody},

        // Redirects
        {"redirects in a loop", answers("301 Moved Permanently", "Location: /again\r\n"), kNoBody},
        {"redirects to nowhere", answers("302 Found"), kNoBody},
        {"redirects to a file", answers("302 Found", "Location: file:///etc/passwd\r\n"), kNoBody},
        {"redirects to a port that is closed",
         answers("302 Found", "Location: http://127.0.0.1:" + QByteArray::number(kavo::test::closedPort()) + "\r\n"),
         kNoBody},

        // The end of the body
        {"sends an empty page", always(response("")), kNoBody},
        {"closes before the page", always(kOk + "\r\n"), kNoBody},
        {"sends no chunk", always(kChunked + "0\r\n\r\n"), kNoBody},
        {"closes in the page", always(good.chopped(1)), kNoBody},
        {"closes half a page without a length", always(kOk + "\r\n" + halfPage()), kNoBody},
        {"announces two lengths", always(kOk + length(page.size()) + length(100) + "\r\n" + page), kNoBody},
        {"announces no number", always(kOk + "Content-Length: many\r\n\r\n" + page), kNoBody},
        {"announces less than nothing", always(kOk + length(-1) + "\r\n" + page), kNoBody},
        {"breaks a chunk header", always(kChunked + inChunks(page).replace("3e8\r\n", "xyz\r\n")), kNoBody},
        {"breaks the last chunk header", always(kChunked + inChunks(page).replace("0\r\n\r\n", "z\r\n\r\n")), kNoBody},
        {"announces a chunk beyond all numbers",
         always(kChunked + inChunks(page).replace("0\r\n\r\n", "fffffffffffffffff\r\n\r\n")), kNoBody},
        {"announces a chunk of a terabyte",
         always(kChunked + inChunks(page).replace("0\r\n\r\n", "10000000000\r\n\r\n")), kNoBody},
        {"sends a chunk that is too long", always(kChunked + "3e8\r\n" + page + "\r\n0\r\n\r\n"), kNoBody},
        {"leaves out the last chunk", always(kChunked + inChunks(page).chopped(5)), kNoBody},
        {"cuts the last chunk", always(kChunked + inChunks(page).chopped(1)), kNoBody},
        {"cuts a chunk", always(kChunked + inChunks(page).chopped(100)), kNoBody},
        {"sends chunks beside another length",
         always(kOk + length(100) + "Transfer-Encoding: chunked\r\n\r\n" + inChunks(page)), kNoBody},
        {"sends an unknown transfer coding", always(kOk + "Transfer-Encoding: gzip, chunked\r\n\r\n" + inChunks(page)),
         kNoBody},

        // Encoded, or too much
        {"packs with gzip", packed("gzip"), kNoBody},
        {"packs with deflate", packed("deflate"), kNoBody},
        {"packs with br", packed("br"), kNoBody},
        {"announces a byte too many", always(response(pageOf(kLargestBody + 1))), kNoBody},
        {"sends a byte too many", always(kOk + "\r\n" + pageOf(kLargestBody + 1)), kNoBody},
        {"sends a body without end", repeating(kOk + "\r\n", QByteArray(256 * 1024, 'x'), 0ms), kNoBody},
        {"sends chunks without end", repeating(kChunked, "40000\r\n" + QByteArray(256 * 1024, 'x') + "\r\n", 0ms),
         kNoBody},
    };
}

/// Servers that are waited for in vain.
std::vector<Row> slowServers()
{
    return {
        {"accepts and says nothing", sayNothing, kNoHead},
        {"stops in the head", inPieces({kOk}, Ending::Stay), kNoHead},
        {"sends its head byte by byte", repeating(kOk + "X: ", "x", 5ms), kNoHead},
        {"continues without end", repeating("", "HTTP/1.1 100 Continue\r\n\r\n", 5ms), kNoHead},
        {"stops in the page", inPieces({response(samplePage()).chopped(1)}, Ending::Stay), kNoBody},
        {"stops in a chunk header", inPieces({kChunked + "3"}, Ending::Stay), kNoBody},
        {"stops behind the chunks", inPieces({kChunked + inChunks(samplePage()).chopped(5)}, Ending::Stay), kNoBody},
    };
}

TEST(Heartbeat, NotesADeafEventLoop)
{
    Heartbeat heart;
    std::this_thread::sleep_for(20ms);
    EXPECT_GE(heart.longestPause(), 20ms);
}

/// Has temporary folders in memory, where the system has such a place: how long a busy disk takes to write the
/// targets is not the program's doing.
class FoldersInMemory
{
protected:
    FoldersInMemory()
    {
        constexpr const char* kMemory = "/dev/shm";
        if (QFileInfo(QLatin1StringView(kMemory)).isWritable()) m_folder.emplace("TMPDIR", kMemory);
    }

private:
    std::optional<kavo::test::EnvironmentValue> m_folder;
};

class HostileServer : private FoldersInMemory, public kavo::test::UpdaterWindowTest
{
protected:
    /// An update to its end. The window answers all the time, and shows every text of an update.
    void update(const QString& host, const kavo::TransferLimits& limits)
    {
        open(limits);
        Heartbeat heart;
        pressUpdate(host);
        waitForEnd();
        const auto pause = heart.longestPause();
        EXPECT_LT(pause, kLongestPause);
        m_longestPause = std::max(m_longestPause, pause);
        RecordProperty("longest_pause_ms", std::to_string(m_longestPause.count()));
        EXPECT_EQ(
            qPrintable(status->texts().join(" ")),
            std::string("Update process: Connecting... Getting... Disconnecting... Forming file... Copying file... "
                        "Finished!"));
    }

    /// An update that fails: the box comes once, and the former targets are kept beside those of an empty page.
    void expectError(const Row& row, const QString& host, const kavo::TransferLimits& limits = {})
    {
        SCOPED_TRACE(row.name);
        prompts.expectMessage(kTransferFailed);
        update(host, limits);
        EXPECT_TRUE(prompts.isDone());
        EXPECT_EQ(states, row.states);
        EXPECT_EQ(folder.read("targets.txt"), targetsWithoutTimes());
        EXPECT_EQ(folder.read("targets.bak"), formerTargets);
    }

    const std::string formerTargets = folder.read("targets.txt");

private:
    std::chrono::milliseconds m_longestPause{};  ///< of all updates of this test
};

TEST_F(HostileServer, ThatKeepsToTheRulesIsRead)
{
    for (const Row& row : goodServers()) {
        SCOPED_TRACE(row.name);
        folder.write("targets.txt", formerTargets);
        const PageServer server(row.answer);
        update(server.host(), {});
        EXPECT_EQ(states, row.states);
        EXPECT_EQ(folder.read("targets.txt"), sampleTargets());
        EXPECT_EQ(folder.read("targets.bak"), formerTargets);
    }
}

TEST_F(HostileServer, ThatBreaksThemEndsInOneErrorWithTheFormerTargetsKept)
{
    for (const Row& row : badServers()) {
        const PageServer server(row.answer);
        expectError(row, server.host());
    }
}

TEST_F(HostileServer, ThatResetsTheConnectionEndsInOneErrorToo)
{
    for (const Row& row : resettingServers()) {
        const PageServer server(row.answer);
        expectError(row, server.host());
    }
}

TEST_F(HostileServer, ThatIsSilentIsGivenUp)
{
    for (const Row& row : slowServers()) {
        const PageServer server(row.answer);
        expectError(row, server.host(), {.silence = 150ms, .whole = 20s});
    }
}

TEST_F(HostileServer, ThatTricklesIsGivenUpInTheEnd)
{
    const kavo::TransferLimits limits{.silence = 20s, .whole = 300ms};
    const Row row{"sends its page byte by byte", repeating(kOk + "\r\n", "x", 5ms), kNoBody};
    const PageServer server(row.answer);
    expectError(row, server.host(), limits);
    const Row chunks{"sends chunks of a byte", repeating(kChunked, "1\r\nx\r\n", 5ms), kNoBody};
    const PageServer other(chunks.answer);
    expectError(chunks, other.host(), limits);
}

TEST_F(HostileServer, ThatIsNotThereIsAnError)
{
    expectError({"closed port", {}, kNoConnection}, "127.0.0.1:" + QString::number(kavo::test::closedPort()));
    // Longer than a name may be: the system refuses it without asking another machine.
    const QString label(60, 'x');
    expectError({"host without an address", {}, kNoConnection}, QStringList(5, label).join('.'));
    expectError({"host that is none", {}, kNoConnection}, "two words");
    expectError({"port that is none", {}, kNoConnection}, "127.0.0.1:99999");
}

TEST_F(HostileServer, ThatIsNotWhoItSaysIsAnError)
{
    const QSslConfiguration tls = kavo::test::selfSignedTls();
    const PageServer secure(tls, always(response(samplePage())));
    expectError({"unknown certificate", {}, kNoConnection}, secure.url("").toString());
    const PageServer plain(always(response("", "302 Found", "Location: " + secure.url("/").toEncoded() + "\r\n")));
    expectError({"redirect to an unknown certificate", {}, kNoBody}, plain.host());
    const PageServer noTls(always(response(samplePage())));
    expectError({"no TLS at all", {}, kNoConnection}, "https://" + noTls.host(), {.silence = 150ms});
    EXPECT_TRUE(secure.requests().isEmpty()) << "nothing is asked of a server that is not who it says";
}

/// A moment of an update at which the window is closed.
struct Moment
{
    const char* name;
    PageServer::Answer answer;
    std::function<bool()> hasCome;
    QString scheme = "http://";
};

TEST_F(HostileServer, WindowMayBeClosedAtAnyMomentAndLeavesEverythingAsItWas)
{
    const auto hasReported = [this](int state) { return !states.empty() && states.back() == state; };
    const auto hasAsked = [&] { return hasReported(TransferState::RequestSent); };
    const auto hasHead = [&] { return hasReported(TransferState::ResponseReceived); };
    const auto isAboutToParse = [this] { return timer1().isActive(); };
    const std::vector<Moment> moments = {
        {"at once", sayNothing, [] { return true; }},
        {"waiting for the certificate", sayNothing, [this] { return statusText() == "Getting..."; }, "https://"},
        {"waiting for the head", sayNothing, hasAsked},
        {"in the head", inPieces({kOk}, Ending::Stay), hasAsked},
        {"in the body", inPieces({response(samplePage()).chopped(1)}, Ending::Stay), hasHead},
        {"in a body without end", repeating(kOk + "\r\n", "x", 1ms), hasHead},
        {"before the parsing", always(response(samplePage())), isAboutToParse},
    };
    for (const Moment& moment : moments) {
        SCOPED_TRACE(moment.name);
        const PageServer server(moment.answer);
        open();
        timer1().setInterval(60s);
        pressUpdate(moment.scheme + server.host());
        ASSERT_TRUE(waitUntil(moment.hasCome));
        window->close();
        EXPECT_FALSE(transfer->stillExecuting());
        EXPECT_FALSE(timer1().isActive());
        EXPECT_EQ(folder.read("targets.txt"), formerTargets);
        EXPECT_FALSE(folder.has("targets.bak"));
    }
}

TEST_F(HostileServer, WindowThatIsClosedWithItsErrorBoxWritesNothing)
{
    const PageServer server(always("garbage\r\n"));
    open();
    prompts.expectMessage(kTransferFailed, [this] { window->close(); });
    pressUpdate(server);
    ASSERT_TRUE(waitUntil([this] { return prompts.isDone(); }));
    EXPECT_FALSE(timer1().isActive());
    EXPECT_EQ(folder.read("targets.txt"), formerTargets);
}

}  // namespace
