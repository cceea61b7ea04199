#include "tools/server/HttpServer.h"

#include <arpa/inet.h>
#include <fmt/format.h>
#include <microhttpd.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <list>
#include <map>
#include <mutex>

namespace customstyle_tool {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kWaitingConnections = 64;
constexpr std::size_t kPieceOfStream = 32768;
constexpr char kSignOfLife[] = ":\n\n";

bool isSameWord(std::string_view left, std::string_view right) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    return std::ranges::equal(left, right, {}, lower, lower);
}

int digitOf(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

// A path with its %XX as bytes. None where one is cut short or means zero.
std::optional<std::string> decodedPath(std::string_view path) {
    std::string decoded;
    for (std::size_t i = 0; i < path.size(); ++i) {
        if (path[i] != '%') {
            decoded += path[i];
            continue;
        }
        if (i + 2 >= path.size()) return {};
        const int high = digitOf(path[i + 1]);
        const int low = digitOf(path[i + 2]);
        if (high < 0 || low < 0 || high + low == 0) return {};
        decoded += static_cast<char>(high * 16 + low);
        i += 2;
    }
    return decoded.starts_with('/') ? std::optional(decoded) : std::nullopt;
}

HttpAnswer plainAnswer(unsigned int status, const char* text) {
    return {.status = status, .headers = {{"Content-Type", "text/plain; charset=utf-8"}}, .body = std::string(text)};
}

// A listening socket, or -1 with errno.
int listeningSocket(std::uint16_t port) {
    const int descriptor = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (descriptor < 0) return -1;
    const int yes = 1;
    setsockopt(descriptor, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (bind(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
        listen(descriptor, kWaitingConnections) == 0) {
        return descriptor;
    }
    const int error = errno;
    close(descriptor);
    errno = error;
    return -1;
}

std::uint16_t portOf(int descriptor) {
    sockaddr_in address{};
    socklen_t size = sizeof address;
    getsockname(descriptor, reinterpret_cast<sockaddr*>(&address), &size);
    return ntohs(address.sin_port);
}

}  // namespace

OpenFile::~OpenFile() {
    if (m_descriptor >= 0) close(m_descriptor);
}

const std::string* HttpRequest::header(std::string_view name) const {
    const auto found = std::ranges::find_if(headers, [&](const auto& each) { return isSameWord(each.first, name); });
    return found == headers.end() ? nullptr : &found->second;
}

// The library's own thread calls the functions that are named "on…"; all others are called by the owner.
class HttpServer::Running {
public:
    Running(HttpHandlers handlers, const HttpLimits& limits) : m_handlers(std::move(handlers)), m_limits(limits) {}

    ~Running() {
        wakeStreams([this] { m_isEnding = true; });
        if (m_daemon != nullptr) MHD_stop_daemon(m_daemon);
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

    /// 0, or one of errno.
    int start(std::uint16_t port) {
        const int descriptor = listeningSocket(port);
        if (descriptor < 0) return errno;
        m_port = portOf(descriptor);
        m_daemon = MHD_start_daemon(
            MHD_USE_AUTO_INTERNAL_THREAD | MHD_ALLOW_SUSPEND_RESUME, 0, nullptr, nullptr, onRequest, this,
            MHD_OPTION_LISTEN_SOCKET, descriptor, MHD_OPTION_CONNECTION_LIMIT, m_limits.connections,
            MHD_OPTION_CONNECTION_TIMEOUT, static_cast<unsigned int>(m_limits.silence.count()),
            MHD_OPTION_UNESCAPE_CALLBACK, onPath, nullptr, MHD_OPTION_NOTIFY_CONNECTION, onConnection, this,
            MHD_OPTION_NOTIFY_COMPLETED, onCompleted, this, MHD_OPTION_STRICT_FOR_CLIENT, 1, MHD_OPTION_END);
        if (m_daemon != nullptr) return 0;
        close(descriptor);
        return ENOMEM;
    }

    std::uint16_t port() const { return m_port; }

    void publish(const std::string& topic, const std::string& data) {
        auto text = std::make_shared<const std::string>(fmt::format("event: {}\ndata: {}\n\n", topic, data));
        wakeStreams([&] { m_topics[topic] = {++m_revision, std::move(text)}; });
    }

    void tick() {
        const Clock::time_point now = Clock::now();
        if (now >= m_nextSign) {
            m_nextSign = now + m_limits.sign;
            wakeStreams([this] { ++m_signs; });
        }
        const std::lock_guard lock(m_mutex);
        for (const Connection& each : m_connections) {
            if (!each.isStream && now - each.since > m_limits.request) shutdown(each.descriptor, SHUT_RDWR);
        }
    }

private:
    struct Topic {
        std::uint64_t revision = 0;
        std::shared_ptr<const std::string> text{};
    };

    struct Connection {
        int descriptor = -1;
        Clock::time_point since{};
        bool isStream = false;
    };

    // One request, from its first line to the end of its answer.
    struct Exchange {
        HttpRequest request{};
        bool isTooLong = false;
    };

    struct Stream {
        Running* server = nullptr;
        MHD_Connection* connection = nullptr;
        std::map<std::string, std::uint64_t> sent{};  // the last revision of each topic
        std::uint64_t signs = 0;
        std::shared_ptr<const std::string> text{};
        std::size_t position = 0;
        bool isSuspended = false;
    };

    // A stream without news is suspended; changes something about them, and wakes them.
    template <typename Change>
    void wakeStreams(Change change) {
        const std::lock_guard lock(m_mutex);
        change();
        for (Stream& each : m_streams) {
            if (std::exchange(each.isSuspended, false)) MHD_resume_connection(each.connection);
        }
    }

    // Whether a stream has something to send, which is in its `text` then.
    bool hasNews(Stream& stream) const {
        if (stream.text && stream.position < stream.text->size()) return true;
        stream.position = 0;
        for (const auto& [topic, last] : m_topics) {
            if (std::exchange(stream.sent[topic], last.revision) == last.revision) continue;
            stream.text = last.text;
            return true;
        }
        stream.text.reset();
        if (stream.signs == m_signs) return false;
        stream.signs = m_signs;
        stream.text = m_signOfLife;
        return true;
    }

    static Connection& connectionOf(MHD_Connection* connection) {
        void* const context = MHD_get_connection_info(connection, MHD_CONNECTION_INFO_SOCKET_CONTEXT)->socket_context;
        return *static_cast<Connection*>(context);
    }

    static ssize_t onStream(void* context, std::uint64_t /*position*/, char* buffer, std::size_t size) {
        Stream& stream = *static_cast<Stream*>(context);
        Running& server = *stream.server;
        const std::lock_guard lock(server.m_mutex);
        if (server.m_isEnding) return MHD_CONTENT_READER_END_OF_STREAM;
        if (!server.hasNews(stream)) {
            stream.isSuspended = true;
            MHD_suspend_connection(stream.connection);
            return 0;
        }
        const std::size_t copied = stream.text->copy(buffer, size, stream.position);
        stream.position += copied;
        return static_cast<ssize_t>(copied);
    }

    static void onStreamEnd(void* context) {
        Stream& stream = *static_cast<Stream*>(context);
        Running& server = *stream.server;
        const std::lock_guard lock(server.m_mutex);
        server.m_streams.remove_if([&](const Stream& each) { return &each == &stream; });
    }

    static std::size_t onPath(void* /*context*/, MHD_Connection* /*connection*/, char* text) {
        return std::strlen(text);  // decoded later, where faults can be answered
    }

    static void onConnection(void* context, MHD_Connection* connection, void** own,
                             MHD_ConnectionNotificationCode code) {
        Running& server = *static_cast<Running*>(context);
        const std::lock_guard lock(server.m_mutex);
        if (code == MHD_CONNECTION_NOTIFY_STARTED) {
            const int descriptor = MHD_get_connection_info(connection, MHD_CONNECTION_INFO_CONNECTION_FD)->connect_fd;
            *own = &server.m_connections.emplace_back(Connection{descriptor, Clock::now()});
        } else {
            server.m_connections.remove_if([&](const Connection& each) { return &each == *own; });
        }
    }

    static void onCompleted(void* context, MHD_Connection* connection, void** exchange,
                            MHD_RequestTerminationCode /*code*/) {
        Running& server = *static_cast<Running*>(context);
        delete static_cast<Exchange*>(*exchange);
        *exchange = nullptr;
        const std::lock_guard lock(server.m_mutex);
        connectionOf(connection).since = Clock::now();
    }

    static MHD_Result onHeader(void* context, MHD_ValueKind /*kind*/, const char* name, const char* value) {
        auto& headers = static_cast<HttpRequest*>(context)->headers;
        headers.emplace_back(name, value == nullptr ? "" : value);
        return MHD_YES;
    }

    static MHD_Result onRequest(void* context, MHD_Connection* connection, const char* url, const char* method,
                                const char* /*version*/, const char* data, std::size_t* size, void** exchange) {
        Running& server = *static_cast<Running*>(context);
        try {
            if (*exchange == nullptr) return server.begin(connection, url, method, exchange);
            Exchange& current = *static_cast<Exchange*>(*exchange);
            return *size == 0 ? server.finish(connection, current) : server.take(current, data, size);
        } catch (const std::exception&) {
            return MHD_NO;  // ends the connection
        }
    }

    MHD_Result begin(MHD_Connection* connection, const char* url, const char* method, void** exchange) {
        auto* const made = new Exchange;
        *exchange = made;
        HttpRequest& request = made->request;
        request.method = method;
        MHD_get_connection_values(connection, MHD_HEADER_KIND, onHeader, &request);
        const std::optional<std::string> path = decodedPath(url);
        if (!path) return send(connection, plainAnswer(400, "This is not a path.\n"));
        request.path = *path;
        if (std::optional<HttpAnswer> refusal = m_handlers.refuse(request))
            return send(connection, std::move(*refusal));
        if (announcedLength(request) > m_limits.body) return send(connection, tooLong());
        return MHD_YES;
    }

    MHD_Result take(Exchange& exchange, const char* data, std::size_t* size) const {
        std::string& body = exchange.request.body;
        exchange.isTooLong = exchange.isTooLong || body.size() + *size > m_limits.body;
        if (exchange.isTooLong) {
            body = {};
        } else {
            body.append(data, *size);
        }
        *size = 0;
        return MHD_YES;
    }

    MHD_Result finish(MHD_Connection* connection, const Exchange& exchange) {
        return send(connection, exchange.isTooLong ? tooLong() : m_handlers.answer(exchange.request));
    }

    static std::size_t announcedLength(const HttpRequest& request) {
        const std::string* const text = request.header("Content-Length");
        std::size_t length = 0;
        if (text != nullptr) std::from_chars(text->data(), text->data() + text->size(), length);
        return length;
    }

    HttpAnswer tooLong() const {
        return plainAnswer(413, fmt::format("At most {} bytes are accepted.\n", m_limits.body).c_str());
    }

    MHD_Result send(MHD_Connection* connection, HttpAnswer answer) {
        if (std::holds_alternative<EventStream>(answer.body) && !hasPlaceForStream()) {
            answer = plainAnswer(503, "Too many streams of events are open.\n");
            answer.headers.emplace_back("Retry-After", "5");
        }
        MHD_Response* const response = std::visit([&](auto& body) { return made(connection, body); }, answer.body);
        if (response == nullptr) return MHD_NO;
        for (const auto& [name, value] : answer.headers) MHD_add_response_header(response, name.c_str(), value.c_str());
        const MHD_Result result = MHD_queue_response(connection, answer.status, response);
        MHD_destroy_response(response);
        return result;
    }

    static MHD_Response* made(MHD_Connection* /*connection*/, std::string& body) {
        return MHD_create_response_from_buffer(body.size(), body.data(), MHD_RESPMEM_MUST_COPY);
    }

    static MHD_Response* made(MHD_Connection* /*connection*/, OpenFile& file) {
        const std::uint64_t size = file.size();
        return MHD_create_response_from_fd64(size, file.release());
    }

    MHD_Response* made(MHD_Connection* connection, EventStream /*events*/) {
        const std::lock_guard lock(m_mutex);
        connectionOf(connection).isStream = true;
        Stream& stream = m_streams.emplace_back(Stream{.server = this, .connection = connection, .signs = m_signs});
        return MHD_create_response_from_callback(MHD_SIZE_UNKNOWN, kPieceOfStream, onStream, &stream, onStreamEnd);
    }

    bool hasPlaceForStream() {
        const std::lock_guard lock(m_mutex);
        return m_streams.size() < m_limits.streams;
    }

    const HttpHandlers m_handlers;
    const HttpLimits m_limits;
    const std::shared_ptr<const std::string> m_signOfLife = std::make_shared<const std::string>(kSignOfLife);
    MHD_Daemon* m_daemon = nullptr;
    std::uint16_t m_port = 0;
    Clock::time_point m_nextSign{};

    std::mutex m_mutex;  // of all below
    std::map<std::string, Topic> m_topics;
    std::uint64_t m_revision = 0;
    std::uint64_t m_signs = 0;
    std::list<Stream> m_streams;
    std::list<Connection> m_connections;
    bool m_isEnding = false;
};

HttpServer::HttpServer(std::unique_ptr<Running> running) : m_running(std::move(running)) {}

HttpServer::~HttpServer() = default;

std::variant<std::unique_ptr<HttpServer>, int> HttpServer::listen(std::uint16_t port, HttpHandlers handlers,
                                                                  const HttpLimits& limits) {
    auto running = std::make_unique<Running>(std::move(handlers), limits);
    if (const int error = running->start(port)) return error;
    return std::unique_ptr<HttpServer>(new HttpServer(std::move(running)));
}

std::uint16_t HttpServer::port() const {
    return m_running->port();
}

void HttpServer::publish(const std::string& topic, const std::string& data) {
    m_running->publish(topic, data);
}

void HttpServer::tick() {
    m_running->tick();
}

}  // namespace customstyle_tool
