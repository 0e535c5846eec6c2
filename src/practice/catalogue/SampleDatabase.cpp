#include "practice/catalogue/SampleDatabase.h"

#include "practice/catalogue/SampleScript.h"

namespace quillon::practice {

namespace {

void AddBatches(std::string_view script, std::vector<std::string>& batches) {
    std::string batch;
    while (!script.empty()) {
        const std::size_t end = script.find('\n');
        const std::string_view line = script.substr(0, end);
        script.remove_prefix(end == std::string_view::npos ? script.size() : end + 1);
        if (line == "GO") {
            batches.push_back(std::move(batch));
            batch.clear();
        } else {
            batch.append(line).append("\r\n");
        }
    }
    if (batch.find_first_not_of("\r\n ") != std::string::npos)
        batches.push_back(std::move(batch));
}

} // namespace

std::vector<std::string> SampleDatabaseBatches() {
    std::vector<std::string> batches;
    AddBatches(sampleDefinitions, batches);
    AddBatches(sampleRows, batches);
    return batches;
}

} // namespace quillon::practice
