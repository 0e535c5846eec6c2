// The program as it names itself.
#pragma once

#include <string>

namespace quillon {

struct Application {
    std::string Title;
    int Major = 0;
    int Minor = 0;

    // "Quillon 0.1"
    std::string TitleAndVersion() const {
        return Title + " " + std::to_string(Major) + "." + std::to_string(Minor);
    }
};

// Where users find help beyond the guide.
inline constexpr const char* SupportPage = "https://quillon.example/support";

// One for the process; its version is the build's.
const Application& TheApplication();

} // namespace quillon
