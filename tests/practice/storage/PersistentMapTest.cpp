#include "practice/storage/PersistentMap.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

namespace quillon::practice {
namespace {

using Map = PersistentMap<int, int>;
using Model = std::map<int, int>;

void ExpectSame(const Map& map, const Model& model) {
    ASSERT_EQ(map.Size(), model.size());
    auto wanted = model.begin();
    for (const auto& [key, value] : map) {
        ASSERT_EQ(key, wanted->first);
        ASSERT_EQ(value, wanted->second);
        ASSERT_EQ(*map.Find(key), value);
        ++wanted;
    }
}

// Every copy that was ever taken stays as it was, whatever is put into and taken out of the others.
TEST(PersistentMap, CopiesNeverSeeEachOthersChanges) {
    std::mt19937 chance(7);
    Map map;
    Model model;
    std::vector<std::pair<Map, Model>> kept;
    for (int step = 0; step < 4000; ++step) {
        const int key = static_cast<int>(chance() % 300);
        if (chance() % 3 == 0) {
            map.Erase(key);
            model.erase(key);
        } else {
            map.Put(key, step);
            model[key] = step;
        }
        ASSERT_EQ(map.Find(key) != nullptr, model.contains(key));
        if (step % 100 == 0)
            kept.emplace_back(map, model);
    }
    for (const auto& [copy, asItWas] : kept)
        ExpectSame(copy, asItWas);
    ExpectSame(map, model);
}

} // namespace
} // namespace quillon::practice
