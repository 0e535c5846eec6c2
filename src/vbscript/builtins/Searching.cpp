#include "vbscript/builtins/Searching.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "vbscript/machine/Convert.h"
#include "vbscript/machine/Work.h"

namespace quillon::vbscript {
namespace {

// From this length on a text is sought by its hash: comparing at every place would take the product of both
// lengths for texts such as "aaa...ab" among many "a".
constexpr std::size_t LongSought = 32;

Text Folded(std::u16string_view text) {
    Text folded = Text::OfLength(text.size());
    std::ranges::transform(text, folded.Writable(), LowerOf);
    return folded;
}

// The distance from `text` to the first place where `sought` stands, the whole length if it stands nowhere. A
// hash of the characters under the window moves along with it; only where it is that of `sought` are the
// characters compared.
template <class Iterator>
std::size_t RollingFind(Iterator text, std::size_t length, Iterator sought, std::size_t window) {
    constexpr std::uint64_t factor = 0x9E3779B97F4A7C15;
    if (window > length)
        return length;
    std::uint64_t wanted = 0, here = 0, highest = 1;
    for (std::size_t i = 0; i < window; ++i) {
        wanted = wanted * factor + sought[static_cast<std::ptrdiff_t>(i)];
        here = here * factor + text[static_cast<std::ptrdiff_t>(i)];
        highest *= i == 0 ? 1 : factor;
    }
    for (std::size_t at = 0;; ++at) {
        const Iterator place = text + static_cast<std::ptrdiff_t>(at);
        if (here == wanted && std::equal(sought, sought + static_cast<std::ptrdiff_t>(window), place))
            return at;
        if (at + window == length)
            return length;
        here = (here - *place * highest) * factor + place[static_cast<std::ptrdiff_t>(window)];
    }
}

} // namespace

Search::Search(std::u16string_view text, std::u16string_view sought, bool ignoreCase)
    : m_foldedText(ignoreCase ? Folded(text) : Text())
    , m_foldedSought(ignoreCase ? Folded(sought) : Text())
    , m_text(ignoreCase ? m_foldedText.View() : text)
    , m_sought(ignoreCase ? m_foldedSought.View() : sought) {}

std::size_t Search::Next(std::size_t from) const {
    if (m_sought.size() < LongSought || from >= m_text.size()) {
        const std::size_t place = m_text.find(m_sought, from);
        Work::Done(16 + std::min(place, m_text.size()) - std::min(from, m_text.size()));
        return place;
    }
    const std::size_t length = m_text.size() - from;
    const std::size_t distance = RollingFind(m_text.data() + from, length, m_sought.data(), m_sought.size());
    Work::Done(distance + m_sought.size());
    return distance == length ? None : from + distance;
}

std::size_t Search::Last(std::size_t from) const {
    Work::Done(std::min(from, m_text.size()));
    if (m_sought.size() < LongSought || m_sought.size() > m_text.size())
        return m_text.rfind(m_sought, from);
    const std::size_t length = std::min(from, m_text.size() - m_sought.size()) + m_sought.size();
    const std::size_t distance =
        RollingFind(std::make_reverse_iterator(m_text.data() + length), length,
                    std::make_reverse_iterator(m_sought.data() + m_sought.size()), m_sought.size());
    return distance == length ? None : length - distance - m_sought.size();
}

} // namespace quillon::vbscript
