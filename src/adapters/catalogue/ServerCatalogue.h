// The catalogue over servers (platform/Catalogue.h), through the same driver that data connections use.
//
// Servers 2008 to 2022; documented catalogue views alone. A database is loaded on demand in a handful of
// round trips, however many tables it has.
#pragma once

#include <memory>

#include "adapters/catalogue/ServerBrowser.h"
#include "platform/Catalogue.h"

namespace quillon::adapters {

class ServerCatalogue : public catalogue::Library {
  public:
    explicit ServerCatalogue(BrowserSearch search = {})
        : m_search(std::move(search)) {}
    std::shared_ptr<catalogue::Server> NewServer() override;
    std::vector<std::string> ListAvailableSQLServers() override { return FindServers(m_search); }

    // Questions that the servers of this library were sent so far.
    std::size_t RoundTrips() const noexcept { return *m_roundTrips; }

  private:
    BrowserSearch m_search;
    std::shared_ptr<std::size_t> m_roundTrips = std::make_shared<std::size_t>(0);
};

} // namespace quillon::adapters
