#include "adapters/files/NativePath.h"

#include <algorithm>

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon::adapters {
namespace {

[[noreturn]] void RaiseBadName(std::string_view path, const char* reason) {
    throw Failure(numbers::BadFileNameOrNumber, std::string(FailureText(numbers::BadFileNameOrNumber)) +
                                                    ": \"" + std::string(path.substr(0, path.find('\0'))) +
                                                    "\" " + reason);
}

std::string Exchanged(std::string_view path, char from, char to) {
    std::string result(path);
    std::ranges::replace(result, from, to);
    return result;
}

} // namespace

std::string ToNative(std::string_view path) {
    if (path.empty())
        RaiseBadName(path, "is empty");
    if (path.find('\0') != std::string_view::npos)
        RaiseBadName(path, "is followed by a NUL");
    return Exchanged(path, '\\', '/');
}

std::string FromNative(std::string_view path) {
    if (path.find('\\') != std::string_view::npos)
        RaiseBadName(path, "holds a backslash in a name");
    return Exchanged(path, '/', '\\');
}

} // namespace quillon::adapters
