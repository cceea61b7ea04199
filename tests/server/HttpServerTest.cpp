#include <arpa/inet.h>
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <ctime>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/OpenFiles.h"
#include "tools/server/HttpServer.h"

namespace {

using customstyle_test::openFiles;
using customstyle_tool::EventStream;
using customstyle_tool::HttpAnswer;
using customstyle_tool::HttpHandlers;
using customstyle_tool::HttpLimits;
using customstyle_tool::HttpRequest;
using customstyle_tool::HttpServer;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto kPatience = 20s;
constexpr char kQuestion[] = "GET /echo HTTP/1.1\r\nHost: here\r\n\r\n";

// One connection, by hand.
class Client {
public:
    explicit Client(std::uint16_t port) : m_descriptor(socket(AF_INET, SOCK_STREAM, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(port);
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        connect(m_descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address);
    }
    ~Client() { close(m_descriptor); }
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;

    /// False once the other end is closed.
    bool send(std::string_view text) const {
        return ::send(m_descriptor, text.data(), text.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(text.size());
    }

    /// Reads until the text has come, or the connection ends, or the time is over.
    std::string readUntil(std::string_view wanted, Clock::duration patience = kPatience) const {
        const Clock::time_point end = Clock::now() + patience;
        std::string text;
        while (text.find(wanted) == text.npos && Clock::now() < end) {
            pollfd waiting{.fd = m_descriptor, .events = POLLIN, .revents = 0};
            if (poll(&waiting, 1, 100) == 0) continue;
            char piece[65536];
            const ssize_t count = recv(m_descriptor, piece, sizeof piece, 0);
            if (count <= 0) return text + "<end>";
            text.append(piece, static_cast<std::size_t>(count));
        }
        return text;
    }

    bool isEndedWithin(Clock::duration patience) const { return readUntil("<never>", patience).ends_with("<end>"); }

private:
    int m_descriptor;
};

HttpAnswer answerTo(const HttpRequest& request) {
    if (request.path == "/events") return {.body = EventStream{}};
    if (request.path == "/large") return {.body = std::string(std::size_t{64} << 20, 'x')};
    return {.body = request.method + " " + request.path + " " + request.body};
}

std::optional<HttpAnswer> refuse(const HttpRequest& request) {
    if (request.path == "/refused") return HttpAnswer{.status = 403, .body = std::string("no")};
    return {};
}

const HttpLimits kShort{.connections = 8, .streams = 3, .body = 1000, .silence = 1s, .request = 3s, .sign = 100ms};

class HttpServerTest : public testing::Test {
protected:
    std::uint16_t port() const { return m_server->port(); }

    std::string saidTo(std::string_view question) const {
        const Client client(port());
        client.send(question);
        return client.readUntil("<never>");
    }

    const std::unique_ptr<HttpServer> m_server =
        std::get<0>(HttpServer::listen(0, HttpHandlers{refuse, answerTo}, kShort));
    std::jthread m_ticking{[this](const std::stop_token& stop) {
        for (; !stop.stop_requested(); std::this_thread::sleep_for(50ms)) m_server->tick();
    }};
};

TEST_F(HttpServerTest, AnswersWithTheDecodedPathAndTheBody) {
    EXPECT_THAT(saidTo("PUT /a%20b?c=d HTTP/1.1\r\nHost: here\r\nContent-Length: 3\r\nConnection: close\r\n\r\nxyz"),
                EndsWith("PUT /a b xyz<end>"));
}

TEST_F(HttpServerTest, DecodesEveryByteOfAPathExceptZero) {
    for (int byte = 1; byte < 256; ++byte) {
        for (const char* format : {"%{:02x}", "%{:02X}"}) {
            const std::string coded = fmt::format(fmt::runtime(format), byte);
            EXPECT_THAT(saidTo(fmt::format("GET /{} HTTP/1.1\r\nHost: here\r\nConnection: close\r\n\r\n", coded)),
                        EndsWith(fmt::format("\r\n\r\nGET /{} <end>", static_cast<char>(byte))))
                << coded;
        }
    }
}

TEST_F(HttpServerTest, RefusesPathsWithBrokenBytes) {
    for (const char* path :
         {"/%", "/%2", "/%2g", "/%g2", "/%2/", "/%/2", "/%2:", "/%2@", "/%2`", "/%2G", "/%00", "/%+2"}) {
        EXPECT_THAT(saidTo(fmt::format("GET {} HTTP/1.1\r\nHost: here\r\nConnection: close\r\n\r\n", path)),
                    StartsWith("HTTP/1.1 400 "))
            << path;
    }
}

TEST_F(HttpServerTest, RefusesBeforeItReadsTheBody) {
    EXPECT_THAT(saidTo("PUT /refused HTTP/1.1\r\nHost: here\r\nContent-Length: 900\r\n\r\n"),
                StartsWith("HTTP/1.1 403 "));
}

TEST_F(HttpServerTest, RefusesLongBodiesWithoutReadingThem) {
    for (const char* name : {"Content-Length", "content-length", "CONTENT-LENGTH"}) {
        EXPECT_THAT(saidTo(fmt::format("PUT /echo HTTP/1.1\r\nHost: here\r\n{}: 1001\r\n\r\n", name)),
                    StartsWith("HTTP/1.1 413 "))
            << name;
    }
}

TEST_F(HttpServerTest, RefusesLongBodiesThatDoNotSayTheirLength) {
    const std::string piece = "190\r\n" + std::string(400, 'x') + "\r\n";
    EXPECT_THAT(saidTo("PUT /echo HTTP/1.1\r\nHost: here\r\nConnection: close\r\nTransfer-Encoding: chunked\r\n\r\n" +
                       piece + piece + piece + "0\r\n\r\n"),
                StartsWith("HTTP/1.1 413 "));
}

TEST_F(HttpServerTest, EndsConnectionsThatSayNothing) {
    EXPECT_TRUE(Client(port()).isEndedWithin(kPatience));
}

TEST_F(HttpServerTest, EndsRequestsThatDripIn) {
    const Client client(port());
    client.send("GET / HTTP/1.1\r\nHost: here\r\nX: ");
    const Clock::time_point end = Clock::now() + kPatience;
    while (client.send("x") && Clock::now() < end) std::this_thread::sleep_for(100ms);
    EXPECT_LT(Clock::now(), end);
}

TEST_F(HttpServerTest, EndsAnswersThatNobodyReads) {
    const Client client(port());
    client.send("GET /large HTTP/1.1\r\nHost: here\r\n\r\n");
    std::this_thread::sleep_for(2500ms);
    EXPECT_TRUE(client.isEndedWithin(kPatience));
    EXPECT_THAT(saidTo(kQuestion), HasSubstr("GET /echo"));
}

TEST_F(HttpServerTest, AnswersAfterMoreSilentConnectionsThanItTakes) {
    std::vector<std::unique_ptr<Client>> silent;
    for (int i = 0; i < 20; ++i) silent.push_back(std::make_unique<Client>(port()));
    const Client client(port());
    client.send(kQuestion);
    EXPECT_THAT(client.readUntil("GET /echo"), HasSubstr("GET /echo"));
}

TEST_F(HttpServerTest, KeepsStreamsOpenThatReadTheSignsOfLife) {
    const Client client(port());
    client.send("GET /events HTTP/1.1\r\nHost: here\r\n\r\n");
    EXPECT_THAT(client.readUntil("<never>", 4s), EndsWith(":\n\n\r\n"));
    m_server->publish("news", "of the day");
    EXPECT_THAT(client.readUntil("of the day"), HasSubstr("event: news\ndata: of the day\n\n"));
}

// Processor time, which other programs cannot make longer.
TEST_F(HttpServerTest, SleepsWhileItsStreamsHaveNoNews) {
    const Client client(port());
    client.send("GET /events HTTP/1.1\r\nHost: here\r\n\r\n");
    client.readUntil(":\n\n");
    const std::clock_t before = std::clock();
    client.readUntil("<never>", 2s);
    EXPECT_LT(std::clock() - before, CLOCKS_PER_SEC / 5);
}

TEST_F(HttpServerTest, GivesLateStreamsTheLastEventOfEachTopic) {
    m_server->publish("a", "old");
    m_server->publish("b", "first");
    m_server->publish("a", "new");
    const Client client(port());
    client.send("GET /events HTTP/1.1\r\nHost: here\r\n\r\n");
    const std::string text = client.readUntil("data: first");
    EXPECT_THAT(text, HasSubstr("data: new\n"));
    EXPECT_EQ(text.find("old"), text.npos);
}

TEST_F(HttpServerTest, GivesThePlaceOfAStreamThatIsGoneToAnother) {
    const auto isTaken = [&] {
        const Client client(port());
        client.send("GET /events HTTP/1.1\r\nHost: here\r\n\r\n");
        return client.readUntil("\r\n").starts_with("HTTP/1.1 200 ");
    };
    {
        const Client first(port()), second(port()), third(port());
        for (const Client* each : {&first, &second, &third}) {
            each->send("GET /events HTTP/1.1\r\nHost: here\r\n\r\n");
            EXPECT_THAT(each->readUntil("\r\n"), StartsWith("HTTP/1.1 200 "));
        }
        EXPECT_FALSE(isTaken());
    }
    const Clock::time_point end = Clock::now() + kPatience;
    bool taken = false;
    while (!(taken = isTaken()) && Clock::now() < end) std::this_thread::sleep_for(50ms);
    EXPECT_TRUE(taken);
}

TEST_F(HttpServerTest, EndsStreamsWhoseClientDoesNotRead) {
    const Client client(port());
    client.send("GET /events HTTP/1.1\r\nHost: here\r\n\r\n");
    m_server->publish("news", std::string(std::size_t{64} << 20, 'x'));
    std::this_thread::sleep_for(2500ms);
    EXPECT_TRUE(client.isEndedWithin(kPatience));
}

TEST(HttpServer, SaysWhenAPortIsTaken) {
    const HttpHandlers handlers{refuse, answerTo};
    const auto first = HttpServer::listen(0, handlers);
    const int before = openFiles();
    EXPECT_EQ(std::get<int>(HttpServer::listen(std::get<0>(first)->port(), handlers)), EADDRINUSE);
    EXPECT_EQ(openFiles(), before);
}

}  // namespace
