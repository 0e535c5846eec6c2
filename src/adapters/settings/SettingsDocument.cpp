#include "adapters/settings/SettingsDocument.h"

#include <algorithm>
#include <cctype>
#include <stdexcept>

namespace quillon::adapters {
namespace {

using Json = nlohmann::ordered_json;

bool SameName(std::string_view left, std::string_view right) {
    return std::ranges::equal(
        left, right, [](unsigned char a, unsigned char b) { return std::tolower(a) == std::tolower(b); });
}

template <class Group>
auto FindMember(Group& group, const std::string& name) {
    auto member = group.begin();
    while (member != group.end() && !SameName(member.key(), name))
        ++member;
    return member;
}

[[noreturn]] void RaiseDamaged(const std::string& name, const char* what) {
    throw std::runtime_error("\"" + name + "\" is no " + what);
}

// The group of this name in a group; none when it is missing.
const Json* FindGroup(const Json& parent, const std::string& name) {
    const auto member = FindMember(parent, name);
    if (member == parent.end())
        return nullptr;
    if (!member->is_object())
        RaiseDamaged(name, "group of settings");
    return &*member;
}

Json& MakeGroup(Json& parent, const std::string& name) {
    const auto member = FindMember(parent, name);
    if (member == parent.end())
        return parent[name] = Json::object();
    if (!member->is_object())
        RaiseDamaged(name, "group of settings");
    return *member;
}

// Writing a document back goes as deep into the stack as the document is nested.
constexpr int MostNesting = 64;

bool RefuseNesting(int depth, Json::parse_event_t, Json&) {
    if (depth > MostNesting)
        throw std::runtime_error("it is nested too deeply");
    return true;
}

} // namespace

SettingsDocument::SettingsDocument(std::string_view text) {
    if (text.empty())
        return;
    try {
        m_root = Json::parse(text, &RefuseNesting);
    } catch (const Json::parse_error& error) {
        // The parser's own words quote the file, which may be the password.
        const auto line = 1 + std::ranges::count(text.substr(0, error.byte), '\n');
        throw std::runtime_error("line " + std::to_string(line) + " is not valid JSON");
    }
    if (!m_root.is_object())
        throw std::runtime_error("it holds no group of settings");
}

std::optional<std::string> SettingsDocument::Find(const std::string& application, const std::string& section,
                                                  const std::string& key) const {
    const Json* group = FindGroup(m_root, application);
    group = group == nullptr ? nullptr : FindGroup(*group, section);
    if (group == nullptr)
        return std::nullopt;
    const auto member = FindMember(*group, key);
    if (member == group->end())
        return std::nullopt;
    if (!member->is_string())
        RaiseDamaged(key, "text");
    return member->get<std::string>();
}

void SettingsDocument::Set(const std::string& application, const std::string& section, const std::string& key,
                           const std::string& value) {
    Json& group = MakeGroup(MakeGroup(m_root, application), section);
    const auto member = FindMember(group, key);
    if (member == group.end())
        group[key] = value;
    else
        *member = value;
}

std::string SettingsDocument::Text() const {
    return m_root.dump(2) + "\n";
}

} // namespace quillon::adapters
