#include "practice/functions/NameParts.h"

namespace quillon::practice {

std::optional<std::vector<std::string>> SplitName(std::string_view name) {
    std::vector<std::string> parts(1);
    char closing = '\0';
    for (std::size_t at = 0; at < name.size(); ++at) {
        const char c = name[at];
        if (closing != '\0') {
            if (c == closing && at + 1 < name.size() && name[at + 1] == closing)
                parts.back().push_back(name[++at]);
            else if (c == closing)
                closing = '\0';
            else
                parts.back().push_back(c);
        } else if ((c == '[' || c == '"') && parts.back().empty()) {
            closing = c == '[' ? ']' : '"';
        } else if (c == '.') {
            parts.emplace_back();
        } else {
            parts.back().push_back(c);
        }
    }
    if (closing != '\0' || parts.size() > 4)
        return {};
    return parts;
}

} // namespace quillon::practice
