// The edge between the system's paths and the operating system's; the folders of user and program.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "adapters/files/DiskFiles.h"
#include "adapters/files/NativePath.h"
#include "adapters/files/UserFolders.h"
#include "platform/FailureNumbers.h"
#include "support/FailureNumberOf.h"
#include "support/TemporaryFolder.h"
#include "support/UnprivilegedUser.h"

namespace quillon::adapters {
namespace {

using tests::FailureNumberOf;
using tests::TemporaryFolder;

TEST(NativePath, GoesThereAndBack) {
    for (const auto& [system, native] :
         {std::pair("\\home\\ann\\x.qlnx", "/home/ann/x.qlnx"),
          {"x.qlnx", "x.qlnx"},
          {"\\", "/"},
          {"\\home\\ann\\Prüfung \xE6\x97\xA5.qlnx", "/home/ann/Prüfung \xE6\x97\xA5.qlnx"},
          {"\\a\\\xFF\xFE", "/a/\xFF\xFE"},
          {"..\\x", "../x"}}) {
        EXPECT_EQ(ToNative(system), native);
        EXPECT_EQ(FromNative(native), system);
    }
    EXPECT_EQ(ToNative("/home/ann/x"), "/home/ann/x");
}

TEST(NativePath, RefusesNamesThatNobodyCouldMean) {
    EXPECT_EQ(FailureNumberOf([] { ToNative(""); }), numbers::BadFileNameOrNumber);
    EXPECT_EQ(FailureNumberOf([] { ToNative(std::string_view("a\0b", 3)); }), numbers::BadFileNameOrNumber);
    EXPECT_EQ(FailureNumberOf([] { FromNative("/home/a\\b"); }), numbers::BadFileNameOrNumber);
}

class Variable {
  public:
    Variable(const char* name, const char* value)
        : m_name(name)
        , m_former(std::getenv(name) == nullptr ? "" : std::getenv(name))
        , m_was(std::getenv(name) != nullptr) {
        setenv(name, value, 1);
    }
    ~Variable() {
        if (m_was)
            setenv(m_name, m_former.c_str(), 1);
        else
            unsetenv(m_name);
    }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

  private:
    const char* m_name;
    std::string m_former;
    bool m_was;
};

TEST(UserFolders, FollowTheBaseDirectories) {
    const Variable home("HOME", "/home/ann");
    {
        const Variable config("XDG_CONFIG_HOME", "/cfg");
        const Variable data("XDG_DATA_HOME", "/data");
        EXPECT_EQ(UserConfigFolder(), "/cfg/quillon");
        EXPECT_EQ(UserDataFolder(), "/data/quillon");
    }
    const Variable config("XDG_CONFIG_HOME", "relative");
    const Variable data("XDG_DATA_HOME", "");
    EXPECT_EQ(UserConfigFolder(), "/home/ann/.config/quillon");
    EXPECT_EQ(UserDataFolder(), "/home/ann/.local/share/quillon");
    EXPECT_TRUE(std::filesystem::equivalent(ExecutableFolder(),
                                            std::filesystem::canonical("/proc/self/exe").parent_path()));
}

TEST(ApplicationFolder, IsThatOfTheExecutableWhenItCanBeWritten) {
    const TemporaryFolder folder;
    const DiskFiles files(folder.path().string(), (folder.path() / "data").string());
    EXPECT_EQ(files.ApplicationFolder(), folder.SystemPath("").substr(0, folder.SystemPath("").size() - 1));
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "data"));
}

TEST(ApplicationFolder, AnInstalledProgramHasAPrivateOneOfTheUser) {
    const TemporaryFolder folder;
    const auto program = folder.path() / "bin";
    std::filesystem::create_directory(program);
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0777));
    std::filesystem::permissions(program, std::filesystem::perms(0555));
    const tests::UnprivilegedUser user;
    const DiskFiles files(program.string(), (folder.path() / "a" / "data").string());
    EXPECT_EQ(files.ApplicationFolder(), folder.SystemPath("a\\data"));
    EXPECT_EQ(std::filesystem::status(folder.path() / "a" / "data").permissions(),
              std::filesystem::perms(0700));
}

TEST(ApplicationFolder, NeitherFolderIsAFailure) {
    const TemporaryFolder folder;
    folder.Write("file", "");
    const std::string missing = (folder.path() / "missing").string();
    EXPECT_EQ(FailureNumberOf([&] { DiskFiles(missing, (folder.path() / "file" / "data").string()); }),
              numbers::PathFileAccess);
}

} // namespace
} // namespace quillon::adapters
