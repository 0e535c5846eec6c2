// Finds the elements of a collection by "owner.name" or, where that is wanted, by the bare name.
//
// An exact match comes first; without one, ASCII letters compare without regard to case. Of several elements
// that a name could mean, the first one added is found.
#pragma once

#include <string>
#include <unordered_map>

namespace quillon::adapters {

inline std::string LoweredName(std::string name) {
    for (char& c : name)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return name;
}

template <class Element>
class NameIndex {
  public:
    void Add(const std::string& name, Element& element) {
        m_exact.emplace(name, &element);
        m_folded.emplace(LoweredName(name), &element);
    }
    // None if there is no such element.
    Element* Find(const std::string& name) const {
        if (const auto found = m_exact.find(name); found != m_exact.end())
            return found->second;
        const auto found = m_folded.find(LoweredName(name));
        return found == m_folded.end() ? nullptr : found->second;
    }
    void Clear() {
        m_exact.clear();
        m_folded.clear();
    }

  private:
    std::unordered_map<std::string, Element*> m_exact;
    std::unordered_map<std::string, Element*> m_folded;
};

} // namespace quillon::adapters
