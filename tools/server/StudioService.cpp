#include "tools/server/StudioService.h"

#include <fmt/format.h>
#include <sys/random.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <filesystem>
#include <new>
#include <nlohmann/json.hpp>
#include <span>
#include <utility>

#include "tools/host/AtomicFile.h"
#include "tools/server/WatchedFile.h"
#include "tools/support/Hash.h"
#include "tools/vocabulary/JsonParts.h"

namespace customstyle_tool {
namespace {

using Json = nlohmann::ordered_json;
namespace fs = std::filesystem;

constexpr char kStyleTopic[] = "style";
constexpr char kMappingTopic[] = "mapping";
constexpr char kTokenHeader[] = "X-Studio-Token";

// The page's own policy, and that no site may show it in a frame.
constexpr char kPolicy[] =
    "default-src 'none'; script-src 'self' 'wasm-unsafe-eval'; worker-src 'self' blob:; style-src 'self'; "
    "img-src 'self' blob: data:; font-src 'self'; connect-src 'self'; base-uri 'none'; form-action 'none'; "
    "frame-ancestors 'none'";

// The headers of every answer.
const std::array<std::pair<std::string, std::string>, 6> kGuards{{{"Content-Security-Policy", kPolicy},
                                                                  {"Cross-Origin-Opener-Policy", "same-origin"},
                                                                  {"Cross-Origin-Resource-Policy", "same-origin"},
                                                                  {"Referrer-Policy", "no-referrer"},
                                                                  {"X-Content-Type-Options", "nosniff"},
                                                                  {"X-Frame-Options", "DENY"}}};

HttpAnswer jsonAnswer(unsigned int status, const Json& json) {
    return {.status = status,
            .headers = {{"Content-Type", "application/json"}, {"Cache-Control", "no-store"}},
            .body = jsonText(json)};
}

HttpAnswer failure(unsigned int status, const std::string& why) {
    return jsonAnswer(status, {{"error", why}});
}

// A file for the page. The key tells files of the same name apart.
Json fileJson(const std::string& path, const FileState& state) {
    std::error_code error;
    const fs::path absolute = fs::absolute(path, error);
    Json json{{"name", fs::path(path).filename().string()},
              {"key", fmt::format("{:016x}", hashOf(absolute.string()))},
              {"text", nullptr},
              {"version", state.version}};
    if (state.text) json["text"] = *state.text;
    if (!state.problem.empty()) json["problem"] = state.problem;
    if (!state.isThere) json["missing"] = true;
    return json;
}

std::string newToken() {
    std::array<unsigned char, 16> bytes{};
    if (getrandom(bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size())) throw std::bad_alloc();
    std::string token;
    for (const unsigned char each : bytes) token += fmt::format("{:02x}", each);
    return token;
}

// Takes as long for a text that is nearly right as for any other.
bool isSameSecret(std::string_view left, std::string_view right) {
    if (left.size() != right.size()) return false;
    unsigned int difference = 0;
    for (std::size_t i = 0; i < left.size(); ++i) difference |= static_cast<unsigned char>(left[i] ^ right[i]);
    return difference == 0;
}

bool isOneOf(const std::string* value, std::initializer_list<std::string_view> words) {
    return value != nullptr && std::ranges::find(words, *value) != words.end();
}

bool hasBody(const HttpRequest& request) {
    const std::string* const length = request.header("Content-Length");
    return request.header("Transfer-Encoding") != nullptr || (length != nullptr && *length != "0");
}

}  // namespace

// Answers requests. Has no state except what it was constructed with, so any thread may use it.
class StudioService::Routes {
public:
    explicit Routes(StudioFiles files) : m_files(std::move(files)) {}

    const StudioFiles& files() const { return m_files; }
    std::uint16_t port() const { return m_port; }
    void setPort(std::uint16_t port) { m_port = port; }

    std::optional<HttpAnswer> refuse(const HttpRequest& request) const {
        std::optional<HttpAnswer> refusal = refusalOf(request);
        if (refusal) guard(*refusal);
        return refusal;
    }

    HttpAnswer answer(const HttpRequest& request) const {
        HttpAnswer made = routed(request);
        guard(made);
        return made;
    }

private:
    struct Route {
        std::string_view path;
        HttpAnswer (Routes::*get)() const;
        HttpAnswer (Routes::*put)(const HttpRequest& request) const;
    };
    static std::span<const Route> routes() {
        static constexpr std::array kRoutes{
            Route{"/api/style", &Routes::style, &Routes::save}, Route{"/api/mapping", &Routes::mapping, nullptr},
            Route{"/api/events", &Routes::events, nullptr}, Route{"/api/token", &Routes::token, nullptr}};
        return kRoutes;
    }

    static const Route* routeOf(const HttpRequest& request) {
        const auto found = std::ranges::find(routes(), request.path, &Route::path);
        return found == routes().end() ? nullptr : &*found;
    }

    static bool isReading(const HttpRequest& request) { return request.method == "GET" || request.method == "HEAD"; }

    static bool isSaving(const HttpRequest& request) {
        const Route* const route = routeOf(request);
        return request.method == "PUT" && route != nullptr && route->put != nullptr;
    }

    static void guard(HttpAnswer& answer) {
        answer.headers.insert(answer.headers.end(), kGuards.begin(), kGuards.end());
    }

    std::optional<HttpAnswer> refusalOf(const HttpRequest& request) const {
        if (!isForUs(request)) return failure(403, "this server answers to 127.0.0.1 and localhost with its port only");
        if (!isFromUs(request)) return failure(403, "this server answers to its own page only");
        if (isSaving(request)) return refusalOfSaving(request);
        if (!isReading(request)) return otherMethod(request);
        return hasBody(request) ? std::optional(failure(400, "this request takes no body")) : std::nullopt;
    }

    // Other sites can point a name of theirs at this machine; they cannot make the browser name ours.
    bool isForUs(const HttpRequest& request) const {
        const std::string* const host = request.header("Host");
        return isOneOf(host, {fmt::format("127.0.0.1:{}", m_port), fmt::format("localhost:{}", m_port)}) ||
               (m_port == 80 && isOneOf(host, {"127.0.0.1", "localhost"}));
    }

    // Browsers say which site asks. A link from elsewhere may lead to the page, but no part of it may be embedded.
    bool isFromUs(const HttpRequest& request) const {
        const std::string* const origin = request.header("Origin");
        if (origin != nullptr && *origin != "http://" + *request.header("Host")) return false;
        const std::string* const site = request.header("Sec-Fetch-Site");
        if (site == nullptr || isOneOf(site, {"same-origin", "none"})) return true;
        return routeOf(request) == nullptr && isOneOf(request.header("Sec-Fetch-Dest"), {"document"});
    }

    std::optional<HttpAnswer> refusalOfSaving(const HttpRequest& request) const {
        const std::string* const token = request.header(kTokenHeader);
        if (token == nullptr || !isSameSecret(*token, m_token)) {
            return failure(403, fmt::format("saving needs the token of this server in {}", kTokenHeader));
        }
        const std::string* const type = request.header("Content-Type");
        if (type == nullptr || !type->starts_with("application/json")) return failure(415, "the body has to be JSON");
        return {};
    }

    static HttpAnswer otherMethod(const HttpRequest& request) {
        const Route* const route = routeOf(request);
        HttpAnswer refusal = failure(405, "unknown method");
        refusal.headers.emplace_back("Allow",
                                     route != nullptr && route->put != nullptr ? "GET, HEAD, PUT" : "GET, HEAD");
        return refusal;
    }

    HttpAnswer routed(const HttpRequest& request) const {
        const Route* const route = routeOf(request);
        if (route == nullptr) return pageFile(request.path);
        return isReading(request) ? (this->*route->get)() : (this->*route->put)(request);
    }

    HttpAnswer pageFile(const std::string& path) const {
        std::optional<PageFolder::File> found = m_files.page.open(path);
        if (!found) return failure(404, "the page has no such file");
        return {.status = 200,
                .headers = {{"Content-Type", found->type}, {"Cache-Control", "no-cache"}},
                .body = std::move(found->file)};
    }

    HttpAnswer style() const {
        if (!m_files.style) return failure(404, "no style file is edited");
        return jsonAnswer(200, fileJson(*m_files.style, readState(*m_files.style)));
    }

    HttpAnswer mapping() const {
        if (!m_files.mapping) return failure(404, "no mapping is given");
        return jsonAnswer(200, fileJson(*m_files.mapping, readState(*m_files.mapping)));
    }

    HttpAnswer events() const {
        return {.status = 200,
                .headers = {{"Content-Type", "text/event-stream"}, {"Cache-Control", "no-store"}},
                .body = EventStream{}};
    }

    HttpAnswer token() const { return jsonAnswer(200, {{"token", m_token}}); }

    HttpAnswer save(const HttpRequest& request) const {
        if (!m_files.style) return failure(404, "no style file is edited");
        const Json json = Json::parse(request.body, nullptr, false);
        const bool isRead = json.is_object() && json.contains("text") && json["text"].is_string() &&
                            json.contains("version") && json["version"].is_string();
        if (!isRead) return failure(400, R"(the body has to be {"text": "…", "version": "…"})");
        return saved(*m_files.style, json["text"].get<std::string>(), json["version"].get<std::string>());
    }

    // Writes the file unless it has changed since the page read it.
    static HttpAnswer saved(const std::string& path, const std::string& text, const std::string& version) {
        if (text.size() > kLargestWatched) {
            return failure(413, fmt::format("a style may have {} MB at most", kLargestWatched >> 20));
        }
        FileState now;
        const auto isKnown = [&] {
            now = readState(path);
            return now.version == version;
        };
        if (!isKnown()) return jsonAnswer(409, fileJson(path, now));
        const std::optional<std::string> problem = writeWhole(path, text, isKnown);
        if (problem && now.version != version) return jsonAnswer(409, fileJson(path, now));
        if (problem) return failure(500, *problem);
        return jsonAnswer(200, {{"version", versionOf(text)}});
    }

    const StudioFiles m_files;
    const std::string m_token = newToken();
    std::atomic<std::uint16_t> m_port = 0;
};

// Looks at the files.
class StudioService::News {
public:
    explicit News(const StudioFiles& files) {
        if (files.style) m_topics.push_back({kStyleTopic, WatchedFile(*files.style)});
        if (files.mapping) m_topics.push_back({kMappingTopic, WatchedFile(*files.mapping)});
    }

    void publishAll(HttpServer& server) const {
        for (const Topic& each : m_topics) publish(server, each);
    }

    void publishNew(HttpServer& server) {
        for (Topic& each : m_topics) {
            if (each.file.poll()) publish(server, each);
        }
    }

private:
    struct Topic {
        std::string name;
        WatchedFile file;
    };

    static void publish(HttpServer& server, const Topic& topic) {
        server.publish(topic.name, jsonText(fileJson(topic.file.path(), topic.file.state())));
    }

    std::vector<Topic> m_topics;
};

StudioService::StudioService(std::unique_ptr<Routes> routes, std::unique_ptr<News> news)
    : m_routes(std::move(routes)), m_news(std::move(news)) {}

StudioService::~StudioService() = default;

std::variant<std::unique_ptr<StudioService>, int> StudioService::start(StudioFiles files, std::uint16_t port,
                                                                       const HttpLimits& limits) {
    auto news = std::make_unique<News>(files);
    std::unique_ptr<StudioService> service(
        new StudioService(std::make_unique<Routes>(std::move(files)), std::move(news)));
    Routes& routes = *service->m_routes;
    const HttpHandlers handlers{.refuse = [&](const HttpRequest& request) { return routes.refuse(request); },
                                .answer = [&](const HttpRequest& request) { return routes.answer(request); }};
    auto listening = HttpServer::listen(port, handlers, limits);
    if (const int* error = std::get_if<int>(&listening)) return *error;
    service->m_server = std::move(std::get<0>(listening));
    routes.setPort(service->m_server->port());
    service->m_news->publishAll(*service->m_server);
    return service;
}

std::string StudioService::address() const {
    return fmt::format("http://127.0.0.1:{}/", m_routes->port());
}

void StudioService::tick() {
    m_news->publishNew(*m_server);
    m_server->tick();
}

}  // namespace customstyle_tool
