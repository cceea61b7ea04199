// A small HTTP server for this machine alone, with a bound for everything that a client can ask for.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace customstyle_tool {

/// Limits for clients. Times are those of one request.
struct HttpLimits {
    unsigned int connections = 128;            ///< at the same time; more wait until one ends
    unsigned int streams = 32;                 ///< of events at the same time; more are refused
    std::size_t body = std::size_t{32} << 20;  ///< bytes
    std::chrono::seconds silence{10};          ///< without a byte in either direction
    std::chrono::seconds request{30};      ///< from a connection's first byte, or its last answer, to the next answer
    std::chrono::milliseconds sign{5000};  ///< between signs of life in a stream
};

struct HttpRequest {
    std::string method;
    std::string path;  ///< decoded; starts with "/"
    std::string body;
    std::vector<std::pair<std::string, std::string>> headers;

    /// The value of a header, looked up regardless of case; null where there is none.
    const std::string* header(std::string_view name) const;
};

/// A file that is open for reading, from its start to its end.
class OpenFile {
public:
    OpenFile(int descriptor, std::uint64_t size) : m_descriptor(descriptor), m_size(size) {}
    OpenFile(OpenFile&& other) noexcept : m_descriptor(std::exchange(other.m_descriptor, -1)), m_size(other.m_size) {}
    OpenFile& operator=(OpenFile&& other) noexcept {
        std::swap(m_descriptor, other.m_descriptor);
        std::swap(m_size, other.m_size);
        return *this;
    }
    ~OpenFile();

    std::uint64_t size() const { return m_size; }
    /// Hands over the descriptor.
    int release() { return std::exchange(m_descriptor, -1); }

private:
    int m_descriptor;
    std::uint64_t m_size;
};

/// All events from now on, each topic's last one first.
struct EventStream {};

struct HttpAnswer {
    unsigned int status = 200;
    std::vector<std::pair<std::string, std::string>> headers{};
    std::variant<std::string, OpenFile, EventStream> body{};
};

/// What the server is for. Both are called in the server's own thread, one at a time.
struct HttpHandlers {
    /// Looks at a request before its body is read. An answer refuses it, and the body is never read.
    std::function<std::optional<HttpAnswer>(const HttpRequest&)> refuse;
    std::function<HttpAnswer(const HttpRequest&)> answer;
};

class HttpServer {
public:
    /// Listens on 127.0.0.1 only.
    /// @param port  0 for any that is free
    /// @return the server, or why it cannot listen: one of errno
    static std::variant<std::unique_ptr<HttpServer>, int> listen(std::uint16_t port, HttpHandlers handlers,
                                                                 const HttpLimits& limits = {});
    /// Ends all connections.
    ~HttpServer();
    HttpServer(const HttpServer&) = delete;
    HttpServer& operator=(const HttpServer&) = delete;

    std::uint16_t port() const;

    /// Sends an event to all streams, and to those that start later until the topic has another one. A stream that is
    /// slow gets the last event of a topic only.
    /// @param data  one line
    void publish(const std::string& topic, const std::string& data);

    /// Ends the connections that take too long, and sends signs of life. To be called a few times a second.
    void tick();

private:
    class Running;
    explicit HttpServer(std::unique_ptr<Running> running);

    std::unique_ptr<Running> m_running;
};

}  // namespace customstyle_tool
