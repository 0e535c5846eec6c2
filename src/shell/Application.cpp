#include "shell/Application.h"

namespace quillon {

const Application& TheApplication() {
    static const Application application{"Quillon", QUILLON_VERSION_MAJOR, QUILLON_VERSION_MINOR};
    return application;
}

} // namespace quillon
