// The contents of a settings file: parsing, finding and setting a value, and the text again. Names compare
// without regard to case (of the letters A to Z); the first spelling written stays.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <nlohmann/json.hpp>

namespace quillon::adapters {

class SettingsDocument {
  public:
    // Raises std::runtime_error, with the place, for a text that is no settings file; an empty text holds
    // none.
    explicit SettingsDocument(std::string_view text);

    std::optional<std::string> Find(const std::string& application, const std::string& section,
                                    const std::string& key) const;
    // Raises std::runtime_error where a name is taken by something else than text or a group of texts.
    void Set(const std::string& application, const std::string& section, const std::string& key,
             const std::string& value);
    // Raises std::runtime_error for a value that is not UTF-8.
    std::string Text() const;

  private:
    nlohmann::ordered_json m_root = nlohmann::ordered_json::object();
};

} // namespace quillon::adapters
