#include "adapters/catalogue/ServerCatalogue.h"

#include "adapters/catalogue/ServerTree.h"

namespace quillon::adapters {

std::shared_ptr<catalogue::Server> ServerCatalogue::NewServer() {
    return std::make_shared<ServerTree>(m_roundTrips);
}

} // namespace quillon::adapters
