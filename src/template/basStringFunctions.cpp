#include "template/basStringFunctions.h"

#include "shell/Trace.h"
#include "template/TextCase.h"

namespace quillon::basStringFunctions {

std::string ReverseString(std::string_view text) {
    return g_objTrace->Procedure("basStringFunctions.ReverseString", [&] {
        std::string reversed(text.size(), '\0');
        std::size_t end = text.size();
        for (std::size_t offset = 0; offset < text.size();) {
            const std::size_t size = CharacterSize(text, offset);
            end -= size;
            text.copy(reversed.data() + end, size, offset);
            offset += size;
        }
        return reversed;
    });
}

void SplitString(std::string_view source, std::string& left, std::string& right, std::string_view delimiter,
                 bool trim, bool caseSensitive) {
    g_objTrace->Procedure("basStringFunctions.SplitString", [&] {
        if (source.empty())
            return;
        const std::size_t at = caseSensitive ? source.find(delimiter) : FindFolded(source, delimiter);
        const bool found = at != std::string_view::npos;
        std::string_view before = found ? source.substr(0, at) : source;
        std::string_view behind = found ? source.substr(at + delimiter.size()) : std::string_view{};
        if (trim) {
            before = Trim(before);
            behind = Trim(behind);
        }
        // The source may be one of the two results.
        std::string newLeft(before);
        std::string newRight(behind);
        left = std::move(newLeft);
        right = std::move(newRight);
    });
}

std::string JustFileName(std::string_view path) {
    return g_objTrace->Procedure("basStringFunctions.JustFileName", [&] {
        std::string name;
        std::string folder;
        SplitString(ReverseString(path), name, folder, "\\");
        return ReverseString(name);
    });
}

std::string JustFilePath(std::string_view path) {
    return g_objTrace->Procedure("basStringFunctions.JustFilePath", [&] {
        const std::string name = JustFileName(path);
        std::string folder(path);
        if (name.empty())
            return folder;
        const std::string removed = "\\" + name;
        for (std::size_t at = 0; (at = folder.find(removed, at)) != std::string::npos;)
            folder.erase(at, removed.size());
        return folder;
    });
}

std::string_view Trim(std::string_view text) noexcept {
    text = LeftTrim(text);
    const std::size_t last = text.find_last_not_of(' ');
    return text.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

std::string_view LeftTrim(std::string_view text) noexcept {
    const std::size_t first = text.find_first_not_of(' ');
    return text.substr(first == std::string_view::npos ? text.size() : first);
}

} // namespace quillon::basStringFunctions
