#include "model/InternedText.h"

#include <unordered_map>

namespace quillon {
namespace {

struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const noexcept {
        return std::hash<std::string_view>{}(text);
    }
};

using Pool = std::unordered_map<std::string, std::uint32_t, TextHash, std::equal_to<>>;

// Handles can live in process-wide objects, so the pool is never destroyed.
Pool& ThePool() {
    static auto& pool = *std::make_unique<Pool>().release();
    return pool;
}

} // namespace

InternedText::InternedText(std::string_view text) {
    if (text.empty())
        return;
    Pool& pool = ThePool();
    auto found = pool.find(text);
    if (found == pool.end())
        found = pool.emplace(text, 0).first;
    m_entry = &*found;
    ++m_entry->second;
}

void InternedText::Forget() noexcept {
    Pool& pool = ThePool();
    pool.erase(pool.find(m_entry->first));
}

const std::string& InternedText::str() const noexcept {
    static const std::string empty;
    return m_entry == nullptr ? empty : m_entry->first;
}

std::size_t InternedText::PoolSize() noexcept {
    return ThePool().size();
}

} // namespace quillon
