// Fails when an include breaks a rule of tools/dependencies.txt or closes a circle between files.
#include <gtest/gtest.h>

#include <fstream>

#include "house/Rules.h"
#include "house/SourceTree.h"

namespace quillon::tests {
namespace {

namespace fs = std::filesystem;

const fs::path Source = QUILLON_SOURCE_DIR;

struct Violation {
    std::string file, header;
    bool operator<(const Violation& other) const {
        return std::tie(file, header) < std::tie(other.file, other.header);
    }
};

std::set<Violation> Violations(const SourceTree& tree, const Rules& rules) {
    std::set<Violation> found;
    for (const auto& [file, headers] : tree.includes) {
        const auto room = rules.RoomOf(file);
        if (!room) {
            found.insert({file, "(its folder has no rule)"});
            continue;
        }
        for (const auto& header : headers) {
            const bool angle = header[0] == '<';
            const auto other = angle ? std::nullopt : rules.RoomOf(header);
            const bool allowed =
                angle ? rules.MayUse(*room, header.substr(1)) : other && rules.MayInclude(*room, *other);
            if (!allowed)
                found.insert({file, header});
        }
    }
    return found;
}

// Follows includes of headers and their .cpp files: a .cpp stands for its header, so that two classes whose
// bodies need each other are seen as well.
class CircleSearch {
  public:
    explicit CircleSearch(const SourceTree& tree)
        : m_tree(tree) {}

    std::vector<std::string> Find() {
        for (const auto& [file, headers] : m_tree.includes)
            if (Visit(file))
                return {std::ranges::find(m_path, m_path.back()), m_path.end()};
        return {};
    }

  private:
    bool Visit(const std::string& file) {
        if (m_done.contains(file) || !m_tree.includes.contains(file))
            return false;
        m_path.push_back(file);
        if (!m_open.insert(file).second)
            return true;
        for (const auto& header : m_tree.includes.at(file))
            if (Visit(header))
                return true;
        m_open.erase(file);
        m_done.insert(file);
        m_path.pop_back();
        return false;
    }

    const SourceTree& m_tree;
    std::set<std::string> m_done, m_open;
    std::vector<std::string> m_path;
};

TEST(Dependencies, IncludesKeepTheRules) {
    const auto tree = SourceTree::Read(Source / "src");
    const auto rules = Rules::Read(Source / "tools/dependencies.txt");
    ASSERT_GT(tree.includes.size(), 20u);

    auto unused = rules.exceptions;
    for (const auto& [file, header] : Violations(tree, rules))
        if (unused.erase({file, header}) == 0)
            ADD_FAILURE() << "src/" << file << " may not include " << header;
    for (const auto& [file, header] : unused)
        ADD_FAILURE() << "no longer needed: except " << file << " -> " << header;
}

TEST(Dependencies, NoCircleBetweenFiles) {
    const auto tree = SourceTree::Read(Source / "src");
    std::string circle;
    for (const auto& file : CircleSearch(tree).Find())
        circle += "\n  " + file;
    EXPECT_EQ(circle, "");
}

// The check itself: a tree with one fault of each kind.
TEST(Dependencies, TheCheckSeesFaults) {
    Rules rules;
    rules.rooms = {
        {"platform", {}}, {"model", {{"platform"}, {"odd.h"}}}, {"adapters/*", {{"platform"}, {}}}};
    SourceTree tree;
    tree.includes = {
        {"platform/A.h", {"<vector", "model/B.h", "<QWidget.h"}},
        {"model/B.h", {"platform/A.h", "<odd.h", "<other.h"}},
        {"adapters/x/C.cpp", {"platform/A.h", "model/B.h", "adapters/y/D.h"}},
        {"adapters/y/D.h", {}},
        {"stray/E.h", {}},
    };
    std::set<std::string> found;
    for (const auto& [file, header] : Violations(tree, rules))
        found.insert(file + " " + header);
    EXPECT_EQ(found, (std::set<std::string>{"platform/A.h model/B.h", "platform/A.h <QWidget.h",
                                            "model/B.h <other.h", "adapters/x/C.cpp model/B.h",
                                            "adapters/x/C.cpp adapters/y/D.h",
                                            "stray/E.h (its folder has no rule)"}));
    EXPECT_EQ(CircleSearch(tree).Find().size(), 3u);
}

} // namespace
} // namespace quillon::tests
