// The shape that the model's collections share: elements in order of adding, found by position or key.
//
// A collection owns its elements together with whoever holds one: a script that keeps an element past its
// removal, or past the model's replacement, keeps the element alive with its last values.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "model/KeyIndex.h"
#include "model/ModelObject.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon {

template <class T>
class ModelCollection : public ModelObject {
  public:
    using Element = std::shared_ptr<T>;

    // By 1-based position or by key, as KeyIndex tells; nothing for a number greater than Count.
    Element Item(const Value& indexKey) const {
        const auto position = m_keys.LocateOrNone(indexKey);
        return position ? m_elements[*position] : nullptr;
    }

    // For code of the system. At raises 91 where Item gives nothing. Named takes any text as a key, also one
    // of digits alone, which a column may well be called; it raises 5 for an unknown one.
    const Element& At(std::int32_t position) const {
        if (position > Count())
            throw Failure(numbers::ObjectNotSet);
        return m_elements[m_keys.Locate(position)];
    }
    const Element& Named(std::string_view key) const {
        const auto position = m_keys.Find(key);
        if (!position)
            throw Failure(numbers::InvalidCall);
        return m_elements[*position];
    }

    std::int32_t Count() const noexcept { return static_cast<std::int32_t>(m_elements.size()); }

    // Raises 9 or 5 when there is no such element.
    void Remove(const Value& indexKey) { TakeOut(indexKey); }

    auto begin() const noexcept { return m_elements.begin(); }
    auto end() const noexcept { return m_elements.end(); }

  protected:
    ~ModelCollection() = default;

    // An instance that scripts can look at; no member of the collection.
    const Element& Scratch() {
        if (!m_scratch)
            m_scratch = std::make_shared<T>();
        return m_scratch;
    }

    // Raises 457 for a key in use; the element is then not added.
    void Append(Element element, const InternedText& key) {
        m_keys.Add(key);
        m_elements.push_back(std::move(element));
    }

    // None for an unknown key.
    const T* WithKey(std::string_view key) const noexcept {
        const auto position = m_keys.Find(key);
        return position ? m_elements[*position].get() : nullptr;
    }

    Element TakeOut(const Value& indexKey) {
        const std::size_t position = m_keys.Locate(indexKey);
        const auto at = m_elements.begin() + static_cast<std::ptrdiff_t>(position);
        Element element = std::move(*at);
        m_elements.erase(at);
        m_keys.Remove(position);
        return element;
    }

    void RemoveAll() noexcept {
        m_elements.clear();
        m_keys = {};
    }

  private:
    std::vector<Element> m_elements;
    KeyIndex m_keys;
    Element m_scratch;
};

} // namespace quillon
