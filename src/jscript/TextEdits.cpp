#include "jscript/TextEdits.h"

#include <algorithm>

#include "jscript/Tokens.h"

namespace quillon::jscript {

std::string TextEdits::Apply(std::vector<std::size_t>& lines) {
    std::ranges::stable_sort(m_edits, {}, &Edit::offset);
    lines.assign(1, 0);
    std::string changed;
    std::size_t copied = 0;
    const auto copyTo = [&](std::size_t end) {
        for (std::size_t at = copied; at < end;) {
            const std::size_t lineEnd = LineEndAt(m_text, at);
            at += std::max<std::size_t>(lineEnd, 1);
            if (lineEnd != 0)
                lines.push_back(at);
        }
        changed.append(m_text.substr(copied, end - copied));
    };
    for (const Edit& edit : m_edits) {
        copyTo(edit.offset);
        changed += edit.inserted;
        copied = edit.offset + edit.erased;
        if (edit.inserted.ends_with('\n'))
            lines.push_back(copied);
    }
    copyTo(m_text.size());
    return changed;
}

} // namespace quillon::jscript
