// A catalogue snapshot in place of a server: the same tree, read from a file.
//
// Connecting with the snapshot's server name, or any other, opens it; there is one database. What would
// change a server (enabling, removing a trigger) raises 70, and there are no jobs (445).
#pragma once

#include <memory>

#include "adapters/snapshot/SnapshotFile.h"
#include "platform/Catalogue.h"

namespace quillon::adapters {

class SnapshotLibrary : public catalogue::Library {
  public:
    explicit SnapshotLibrary(Snapshot snapshot);
    ~SnapshotLibrary() override;
    std::shared_ptr<catalogue::Server> NewServer() override;
    std::vector<std::string> ListAvailableSQLServers() override;

  private:
    std::shared_ptr<const Snapshot> m_snapshot;
};

} // namespace quillon::adapters
