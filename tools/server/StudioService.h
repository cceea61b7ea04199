// What the studio's page asks of its server: its own files, the style that is edited, and news of it.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <variant>

#include "tools/server/HttpServer.h"
#include "tools/server/PageFolder.h"

namespace customstyle_tool {

struct StudioFiles {
    PageFolder page;
    std::optional<std::string> style{};    ///< path of the file that is edited
    std::optional<std::string> mapping{};  ///< path of the mapping file
};

class StudioService {
public:
    /// Listens on 127.0.0.1.
    /// @param port  0 for any that is free
    /// @return the service, or one of errno
    static std::variant<std::unique_ptr<StudioService>, int> start(StudioFiles files, std::uint16_t port,
                                                                   const HttpLimits& limits = {});
    ~StudioService();
    StudioService(const StudioService&) = delete;
    StudioService& operator=(const StudioService&) = delete;

    /// "http://127.0.0.1:8380/".
    std::string address() const;

    /// Looks at the files, and reports to the pages what is new. To be called a few times a second.
    void tick();

private:
    class Routes;
    class News;
    StudioService(std::unique_ptr<Routes> routes, std::unique_ptr<News> news);

    std::unique_ptr<Routes> m_routes;
    std::unique_ptr<News> m_news;
    std::unique_ptr<HttpServer> m_server;
};

}  // namespace customstyle_tool
