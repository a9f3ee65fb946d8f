// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updater/http_response.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kavo {
namespace {

using Stage = HttpResponse::Stage;

constexpr std::size_t kLongest = 1000;

const std::string kOk = "HTTP/1.1 200 OK\r\n";
const std::string kChunked = kOk + "Transfer-Encoding: chunked\r\n\r\n";

struct Row
{
    const char* name;
    std::string bytes;
    Stage stage;     ///< when they have been taken
    Stage afterEnd;  ///< when the connection has ended after them
    std::string body = {};
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.name;
}

class AnyResponse : public testing::TestWithParam<Row>
{
protected:
    static void expectAsInRow(HttpResponse& response)
    {
        EXPECT_EQ(response.stage(), GetParam().stage);
        response.takeEnd();
        EXPECT_EQ(response.stage(), GetParam().afterEnd);
        EXPECT_EQ(response.body(), GetParam().body);
    }
};

TEST_P(AnyResponse, IsReadInOnePieceAndByteByByte)
{
    HttpResponse atOnce(kLongest);
    atOnce.take(GetParam().bytes);
    expectAsInRow(atOnce);
    HttpResponse byteByByte(kLongest);
    for (const char byte : GetParam().bytes) byteByByte.take({&byte, 1});
    expectAsInRow(byteByByte);
}

std::string repeated(const std::string& text, int times)
{
    std::string all;
    for (int i = 0; i < times; ++i) all += text;
    return all;
}

const std::vector<Row> kHeads = {
    {"Nothing", "", Stage::Head, Stage::Broken},
    {"CutStatusLine", "HTTP/1.1 20", Stage::Head, Stage::Broken},
    {"CutField", kOk + "Content-Length: 3", Stage::Head, Stage::Broken},
    {"HeadWithoutEmptyLine", kOk + "Content-Length: 3\r\n", Stage::Head, Stage::Broken},
    {"NoReason", "HTTP/1.1 200\r\nContent-Length: 3\r\n\r\nabc", Stage::Complete, Stage::Complete, "abc"},
    {"OldVersion", "HTTP/1.0 200 OK\r\nContent-Length: 3\r\n\r\nabc", Stage::Complete, Stage::Complete, "abc"},
    {"BareLineFeeds", "HTTP/1.1 200 OK\nContent-Length: 3\n\nabc", Stage::Complete, Stage::Complete, "abc"},
    {"AnyLettersAndBlanks", kOk + "CONTENT-length : \t3 \r\n\r\nabc", Stage::Complete, Stage::Complete, "abc"},
    {"FoldedField", kOk + "Content-Length:\r\n 3\r\n\r\nabc", Stage::Complete, Stage::Complete, "abc"},
    {"LineThatIsNoField", kOk + "nonsense\r\nContent-Length: 3\r\n\r\nabc", Stage::Complete, Stage::Complete, "abc"},
    {"EmptyStatusLine", "\r\n" + kOk + "\r\n", Stage::Broken, Stage::Broken},
    {"NoVersion", "ICY 200 OK\r\n\r\n", Stage::Broken, Stage::Broken},
    {"LaterVersion", "HTTP/2.0 200 OK\r\n\r\n", Stage::Broken, Stage::Broken},
    {"ShortStatus", "HTTP/1.1 20\r\n\r\n", Stage::Broken, Stage::Broken},
    {"LongStatus", "HTTP/1.1 2000 OK\r\n\r\n", Stage::Broken, Stage::Broken},
    {"StatusOfLetters", "HTTP/1.1 abc OK\r\n\r\n", Stage::Broken, Stage::Broken},
    {"BodyAlone", "<html>\n</html>\n", Stage::Broken, Stage::Broken},
    {"InterimResponses",
     "HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 103 Early Hints\r\nContent-Length: 9\r\n\r\n" + kOk +
         "Content-Length: 3\r\n\r\nabc",
     Stage::Complete, Stage::Complete, "abc"},
    {"InterimResponseAlone", "HTTP/1.1 100 Continue\r\n\r\n", Stage::Head, Stage::Broken},
    {"AnotherProtocol", "HTTP/1.1 101 Switching Protocols\r\n\r\nabc", Stage::Broken, Stage::Broken},
    {"LongField", kOk + "X: " + std::string(64 * 1024, 'x'), Stage::Broken, Stage::Broken},
    {"FieldsWithoutEnd", kOk + repeated("X: 1\r\n", 11000), Stage::Broken, Stage::Broken},
    {"InterimResponsesWithoutEnd", repeated("HTTP/1.1 100 Continue\r\n\r\n", 3000), Stage::Broken, Stage::Broken},
};

const std::vector<Row> kSizedBodies = {
    {"WholeBody", kOk + "Content-Length: 3\r\n\r\nabc", Stage::Complete, Stage::Complete, "abc"},
    {"ShortBody", kOk + "Content-Length: 4\r\n\r\nabc", Stage::Body, Stage::Broken, "abc"},
    {"BodyWithMoreBehind", kOk + "Content-Length: 3\r\n\r\nabcdef", Stage::Complete, Stage::Complete, "abc"},
    {"EmptyBody", kOk + "Content-Length: 0\r\n\r\n", Stage::Complete, Stage::Complete},
    {"NoContent", "HTTP/1.1 204 No Content\r\nContent-Length: 3\r\n\r\nabc", Stage::Complete, Stage::Complete},
    {"NotModified", "HTTP/1.1 304 Not Modified\r\nContent-Length: 3\r\n\r\nabc", Stage::Complete, Stage::Complete},
    {"SameLengthTwice", kOk + "Content-Length: 3\r\nContent-Length: 3, 3\r\n\r\nabc", Stage::Complete, Stage::Complete,
     "abc"},
    {"TwoLengths", kOk + "Content-Length: 3\r\nContent-Length: 4\r\n\r\nabcd", Stage::Broken, Stage::Broken},
    {"NegativeLength", kOk + "Content-Length: -3\r\n\r\nabc", Stage::Broken, Stage::Broken},
    {"SignedLength", kOk + "Content-Length: +3\r\n\r\nabc", Stage::Broken, Stage::Broken},
    {"LengthOfLetters", kOk + "Content-Length: three\r\n\r\nabc", Stage::Broken, Stage::Broken},
    {"LengthWithLetters", kOk + "Content-Length: 3x\r\n\r\nabc", Stage::Broken, Stage::Broken},
    {"NoNumberAsLength", kOk + "Content-Length:\r\n\r\nabc", Stage::Broken, Stage::Broken},
    {"LengthBeyondAllNumbers", kOk + "Content-Length: 99999999999999999999\r\n\r\nabc", Stage::Broken, Stage::Broken},
    {"LargestBody", kOk + "Content-Length: 1000\r\n\r\n" + std::string(1000, 'x'), Stage::Complete, Stage::Complete,
     std::string(1000, 'x')},
    {"BodyOfAByteTooMany", kOk + "Content-Length: 1001\r\n\r\nabc", Stage::Broken, Stage::Broken},
};

const std::vector<Row> kChunkedBodies = {
    {"Chunks", kChunked + "3\r\nabc\r\n00A\r\n0123456789\r\n0\r\n\r\n", Stage::Complete, Stage::Complete,
     "abc0123456789"},
    {"AnyLetters", kOk + "transfer-encoding: Chunked\r\n\r\na\r\n0123456789\r\n0\r\n\r\n", Stage::Complete,
     Stage::Complete, "0123456789"},
    {"BareLineFeedsBetweenChunks", kChunked + "3\nabc\n0\n\n", Stage::Complete, Stage::Complete, "abc"},
    {"LineEndsInsideAChunk", kChunked + "6\r\n\r\n0\r\n\n\r\n0\r\n\r\n", Stage::Complete, Stage::Complete,
     "\r\n0\r\n\n"},
    {"ChunkExtensions", kChunked + "3;a=b;c=\"d;e\"\r\nabc\r\n0 ; last\r\n\r\n", Stage::Complete, Stage::Complete,
     "abc"},
    {"Trailers", kChunked + "3\r\nabc\r\n0\r\nX-Sum: 1\r\nContent-Length: 9\r\n\r\n", Stage::Complete, Stage::Complete,
     "abc"},
    {"MoreBehindTheLastChunk", kChunked + "3\r\nabc\r\n0\r\n\r\n3\r\ndef\r\n", Stage::Complete, Stage::Complete, "abc"},
    {"NoLastChunk", kChunked + "3\r\nabc\r\n", Stage::Body, Stage::Broken, "abc"},
    {"CutChunk", kChunked + "3\r\nab", Stage::Body, Stage::Broken, "ab"},
    {"CutLastChunk", kChunked + "3\r\nabc\r\n0\r\n", Stage::Body, Stage::Broken, "abc"},
    {"CutTrailer", kChunked + "3\r\nabc\r\n0\r\nX-Sum: 1\r\n", Stage::Body, Stage::Broken, "abc"},
    {"BrokenChunkHeader", kChunked + "3\r\nabc\r\nxyz\r\nabc\r\n0\r\n\r\n", Stage::Broken, Stage::Broken, "abc"},
    {"EmptyChunkHeader", kChunked + "3\r\nabc\r\n\r\n0\r\n\r\n", Stage::Broken, Stage::Broken, "abc"},
    {"NegativeChunk", kChunked + "-3\r\nabc\r\n0\r\n\r\n", Stage::Broken, Stage::Broken},
    {"ChunkWithPrefix", kChunked + "0x3\r\nabc\r\n0\r\n\r\n", Stage::Broken, Stage::Broken},
    {"ChunkSizeWithMore", kChunked + "3 4\r\nabc\r\n0\r\n\r\n", Stage::Broken, Stage::Broken},
    {"ChunkBeyondAllNumbers", kChunked + "10000000000000003\r\nabc\r\n0\r\n\r\n", Stage::Broken, Stage::Broken},
    {"ChunkBeyondTheLargestBody", kChunked + "3\r\nabc\r\n3e6\r\nabc", Stage::Broken, Stage::Broken, "abc"},
    {"ChunkLongerThanItsSize", kChunked + "3\r\nabcdef\r\n0\r\n\r\n", Stage::Broken, Stage::Broken, "abc"},
    {"ChunkExtensionWithoutEnd", kChunked + "3;" + std::string(64 * 1024, 'x'), Stage::Broken, Stage::Broken},
    {"TrailersWithoutEnd", kChunked + "0\r\n" + repeated("X: 1\r\n", 11000), Stage::Broken, Stage::Broken},
    {"RightLengthBeside", kOk + "Content-Length: 3\r\nTransfer-Encoding: chunked\r\n\r\n3\r\nabc\r\n0\r\n\r\n",
     Stage::Complete, Stage::Complete, "abc"},
    {"WrongLengthBeside", kOk + "Content-Length: 4\r\nTransfer-Encoding: chunked\r\n\r\n3\r\nabc\r\n0\r\n\r\n",
     Stage::Broken, Stage::Broken, "abc"},
    {"OtherCoding", kOk + "Transfer-Encoding: gzip, chunked\r\n\r\n3\r\nabc\r\n0\r\n\r\n", Stage::Broken,
     Stage::Broken},
};

const std::vector<Row> kUnsizedBodies = {
    {"BodyUntilTheEnd", kOk + "\r\nabc", Stage::Body, Stage::Complete, "abc"},
    {"NothingUntilTheEnd", kOk + "\r\n", Stage::Body, Stage::Complete},
    {"LargestBody", kOk + "\r\n" + std::string(1000, 'x'), Stage::Body, Stage::Complete, std::string(1000, 'x')},
};

std::string nameOf(const testing::TestParamInfo<Row>& info)
{
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(Heads, AnyResponse, testing::ValuesIn(kHeads), nameOf);
INSTANTIATE_TEST_SUITE_P(SizedBodies, AnyResponse, testing::ValuesIn(kSizedBodies), nameOf);
INSTANTIATE_TEST_SUITE_P(ChunkedBodies, AnyResponse, testing::ValuesIn(kChunkedBodies), nameOf);
INSTANTIATE_TEST_SUITE_P(UnsizedBodies, AnyResponse, testing::ValuesIn(kUnsizedBodies), nameOf);

TEST(HttpResponse, UnsizedBodyThatIsTooLongIsBroken)
{
    HttpResponse response(kLongest);
    response.take(kOk + "\r\n" + std::string(kLongest, 'x'));
    EXPECT_EQ(response.stage(), Stage::Body);
    response.take("x");
    EXPECT_EQ(response.stage(), Stage::Broken);
}

TEST(HttpResponse, OnlyABodyWithAMarkedEndIsSaidToHaveOne)
{
    const auto hasMarkedEnd = [](const std::string& bytes) {
        HttpResponse response(kLongest);
        response.take(bytes);
        return response.hasMarkedEnd();
    };
    EXPECT_TRUE(hasMarkedEnd(kOk + "Content-Length: 3\r\n\r\nabc"));
    EXPECT_TRUE(hasMarkedEnd(kChunked + "0\r\n\r\n"));
    EXPECT_FALSE(hasMarkedEnd(kOk + "\r\nabc"));
}

TEST(HttpResponse, HeadIsThereAlsoWhenTheRestIsBroken)
{
    HttpResponse response(kLongest);
    EXPECT_FALSE(response.hasHead());
    response.take("HTTP/1.1 404 Not Found\r\nX-Two: 1\r\nContent-Length: -1\r\nx-TWO:2\r\n");
    EXPECT_FALSE(response.hasHead());
    response.take("\r\n");
    EXPECT_TRUE(response.hasHead());
    EXPECT_EQ(response.stage(), Stage::Broken);
    EXPECT_EQ(response.status(), 404);
    EXPECT_EQ(response.field("x-two"), "1, 2");
    EXPECT_EQ(response.field("x-three"), std::nullopt);
}

TEST(HttpResponse, FieldsOfAnInterimResponseAreNoneOfTheResponse)
{
    HttpResponse response(kLongest);
    response.take("HTTP/1.1 103 Early Hints\r\nX-Early: 1\r\n\r\n");
    EXPECT_FALSE(response.hasHead());
    response.take(kOk + "Content-Length: 0\r\n\r\n");
    EXPECT_EQ(response.status(), 200);
    EXPECT_EQ(response.field("x-early"), std::nullopt);
}

}  // namespace
}  // namespace kavo
