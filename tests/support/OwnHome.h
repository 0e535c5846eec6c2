// Files and settings of one test alone; made before the program looks for them.
#pragma once

#include <cstdlib>

#include "support/TemporaryFolder.h"

namespace quillon::tests {

class OwnHome {
  public:
    OwnHome() {
        setenv("QUILLON_HOME", (folder.path() / "app").c_str(), 1);
        setenv("XDG_CONFIG_HOME", (folder.path() / "config").c_str(), 1);
        setenv("XDG_DATA_HOME", (folder.path() / "data").c_str(), 1);
    }
    TemporaryFolder folder;
};

} // namespace quillon::tests
