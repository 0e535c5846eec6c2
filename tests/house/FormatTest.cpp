// Every source file is as clang-format would write it.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include <sys/wait.h>

namespace quillon::tests {
namespace {

TEST(SourceText, KeepsTheFormat) {
    const std::string command =
        "cd '" QUILLON_SOURCE_DIR "' && find src tests bench fuzz -name '*.h' -o -name '*.cpp' | "
        "xargs clang-format --dry-run -Werror 2>&1 | grep -E '^[^ ].*: error: |No such file|not found'";
    std::string faults;
    FILE* pipe = popen(command.c_str(), "r");
    ASSERT_NE(pipe, nullptr);
    char buffer[4096];
    while (const std::size_t count = fread(buffer, 1, sizeof buffer, pipe))
        faults.append(buffer, count);
    const int status = pclose(pipe);
    EXPECT_EQ(WEXITSTATUS(status), 1) << "something was found, or could not be run"; // grep found nothing
    EXPECT_EQ(faults, "") << "clang-format -i puts it right";
}

} // namespace
} // namespace quillon::tests
