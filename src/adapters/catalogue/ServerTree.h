// A server of the catalogue's declarations: a login and the databases behind it.
#pragma once

#include <deque>
#include <memory>

#include "adapters/catalogue/ServerDatabase.h"

namespace quillon::adapters {

class ServerTree : public catalogue::Server {
  public:
    // `roundTrips` counts what is sent to the server.
    explicit ServerTree(std::shared_ptr<std::size_t> roundTrips)
        : m_roundTrips(std::move(roundTrips)) {}

    void SetLoginSecure(bool integrated) override { m_integrated = integrated; }
    void SetOption(bool) override {}
    // Raises the driver's failure; 3705 when it is connected already.
    void Connect(const std::string& server, const std::string& user, const std::string& password) override;
    void DisConnect() override;
    std::string Name() const override { return m_name; }
    std::size_t DatabaseCount() override;
    catalogue::Database& DatabaseAt(std::size_t index) override;
    catalogue::Database& DatabaseNamed(const std::string& name) override;
    quillon::JobServer& Jobs() override;

  private:
    void RequireDatabases();

    std::shared_ptr<std::size_t> m_roundTrips;
    bool m_integrated = false;
    std::string m_name;
    std::unique_ptr<CatalogueLink> m_link;
    bool m_hasDatabases = false;
    std::deque<ServerDatabase> m_databases;
    NameIndex<ServerDatabase> m_byName;
};

} // namespace quillon::adapters
