#include "architecture/ArchitectureRoads.h"

#include "architecture/basArchitectureUtils.h"
#include "shell/SessionRoads.h"

namespace quillon {

void OpenArchitectureRoads() {
    TheRoads().LoadArchitecture = [](const std::string& path) { basArchitectureUtils::LoadProfile(path); };
}

} // namespace quillon
