#include "model/mdIncludes.h"

namespace quillon {

mdIncludes::Element mdIncludes::Add(std::string file, std::string_view key) {
    const auto isSame = [&](const Element& include) { return include->File() == file; };
    if (std::ranges::any_of(*this, isSame))
        return nullptr;
    auto include = std::make_shared<mdInclude>();
    include->SetFile(std::move(file));
    Append(include, key);
    return include;
}

void mdIncludes::Remove(std::int32_t index) {
    if (Count() > 0 && index != 0)
        TakeOut(index);
}

} // namespace quillon
