#include "adapters/files/ReadBytes.h"

#include <fcntl.h>

#include "adapters/files/Descriptor.h"

namespace quillon::adapters {

std::string ReadBytes(const std::string& nativePath) {
    constexpr std::size_t Step = std::size_t{64} * 1024;
    Descriptor file(nativePath, O_RDONLY);
    std::string contents;
    contents.reserve(file.Size() + Step); // a guess: what is read decides
    std::size_t count = 0;
    do {
        const std::size_t size = contents.size();
        contents.resize(size + Step);
        count = file.Read(contents.data() + size, Step);
        contents.resize(size + count);
    } while (count > 0);
    return contents;
}

} // namespace quillon::adapters
