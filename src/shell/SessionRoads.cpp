#include "shell/SessionRoads.h"

namespace quillon {

SessionRoads& TheRoads() {
    static SessionRoads roads;
    return roads;
}

} // namespace quillon
