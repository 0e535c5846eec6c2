// The text of the sample database, batches parted by GO lines. Two parts: what there is, and the rows.
#pragma once

#include <string_view>

namespace quillon::practice {

extern const std::string_view sampleDefinitions;
extern const std::string_view sampleRows;

} // namespace quillon::practice
