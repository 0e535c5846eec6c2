// The settings file: three levels, private, replaced whole, shared by programs, never overwritten when
// damaged.
#include <gtest/gtest.h>

#include <fcntl.h>
#include <filesystem>
#include <sys/wait.h>

#include "adapters/files/ReplacedFile.h"
#include "adapters/settings/FileLock.h"
#include "adapters/settings/FileSettings.h"
#include "platform/FailureNumbers.h"
#include "support/FailureNumberOf.h"
#include "support/TemporaryFolder.h"
#include "support/UnprivilegedUser.h"

namespace quillon::adapters {
namespace {

namespace fs = std::filesystem;
using tests::FailureNumberOf;

class FileSettingsTest : public ::testing::Test {
  protected:
    tests::TemporaryFolder base;
    fs::path folder = base.path() / "config" / "quillon";
    FileSettings store{folder.string(), std::chrono::milliseconds(0)};

    void Write(const std::string& key, const std::string& value) {
        store.Write("Harrowgate", "Quillon", key, value);
    }
    std::optional<std::string> Read(const std::string& key) {
        return store.Read("Harrowgate", "Quillon", key);
    }
    std::string Contents() { return base.Read("config/quillon/settings.json"); }
    void Spoil(const std::string& contents) {
        fs::create_directories(folder);
        base.Write("config/quillon/settings.json", contents);
    }
    std::string ReadFailure() {
        try {
            Read("server");
        } catch (const Failure& failure) {
            return failure.description();
        }
        return {};
    }
};

TEST_F(FileSettingsTest, NothingIsThereUntilItIsWritten) {
    EXPECT_EQ(Read("server"), std::nullopt);
    EXPECT_FALSE(fs::exists(folder));
    Write("server", "");
    EXPECT_EQ(Read("server"), "");
}

TEST_F(FileSettingsTest, ThreeLevelsAndNoRegardToCase) {
    Write("server", "ONE");
    store.Write("Harrowgate", "Servers", "server", "TWO");
    store.Write("Other", "Quillon", "server", "THREE");
    EXPECT_EQ(store.Read("HARROWGATE", "quillon", "SERVER"), "ONE");
    EXPECT_EQ(store.Read("Harrowgate", "Servers", "Server"), "TWO");
    EXPECT_EQ(store.Read("Other", "Quillon", "server"), "THREE");
    EXPECT_EQ(store.Read("Harrowgate", "Quillon", "serve"), std::nullopt);
    store.Write("harrowgate", "QUILLON", "Server", "FOUR");
    EXPECT_EQ(Read("server"), "FOUR");
    EXPECT_EQ(Contents().find("\"Server\""), std::string::npos); // the first spelling stays
}

TEST_F(FileSettingsTest, AnyTextComesBack) {
    for (const std::string& value :
         {std::string("plain"), std::string(" blanks \t"), std::string("quote\" back\\slash {}"),
          std::string("line\r\nend"), std::string("日本 ü"), std::string("nul \0 inside", 12),
          std::string(100'000, 'x')}) {
        Write("Show Tips at Startup", value);
        EXPECT_EQ(FileSettings(folder.string()).Read("Harrowgate", "Quillon", "Show Tips at Startup"), value);
    }
}

TEST_F(FileSettingsTest, FileAndFolderArePrivate) {
    Write("pwd", "secret");
    EXPECT_EQ(fs::status(folder).permissions(), fs::perms(0700));
    EXPECT_EQ(fs::status(store.path()).permissions(), fs::perms(0600));
    EXPECT_EQ(fs::status(store.LockPath()).permissions(), fs::perms(0600));
    fs::permissions(folder, fs::perms(0755));
    fs::permissions(store.path(), fs::perms(0644));
    Write("pwd", "other");
    EXPECT_EQ(fs::status(folder).permissions(), fs::perms(0700));
    EXPECT_EQ(fs::status(store.path()).permissions(), fs::perms(0600));
}

// Reading and writing both fail, the words name file and place but never quote it, and not a byte changes.
TEST_F(FileSettingsTest, ADamagedFileIsAClearFailureAndStaysAsItIs) {
    const char* damaged[] = {
        "{",
        "not json",
        "[]",
        "\"text\"",
        "{\"Harrowgate\": {\"Quillon\": {\"pwd\": \"hunter2\n",
        "{\"Harrowgate\": {\"Quillon\": {\"server\": 5}}}",
        "{\"Harrowgate\": {\"Quillon\": \"hunter2\"}}",
        "{\"Harrowgate\": []}",
        "\xFF\xFE{",
    };
    for (const char* contents : damaged) {
        SCOPED_TRACE(contents);
        Spoil(contents);
        const std::string words = ReadFailure();
        EXPECT_NE(words.find("settings.json could not be read"), std::string::npos) << words;
        EXPECT_EQ(words.find("hunter2"), std::string::npos) << words;
        if (std::string_view(contents).find(": 5") == std::string_view::npos) {
            EXPECT_EQ(FailureNumberOf([&] { Write("server", "x"); }), numbers::PathFileAccess);
        }
        EXPECT_EQ(Contents(), contents);
    }
    const std::string deep = "{\"a\": " + std::string(1000000, '[') + std::string(1000000, ']') + "}";
    Spoil(deep);
    EXPECT_NE(ReadFailure().find("nested too deeply"), std::string::npos) << ReadFailure();
    EXPECT_EQ(FailureNumberOf([&] { Write("server", "x"); }), numbers::PathFileAccess);
    EXPECT_TRUE(Contents() == deep);
    Spoil("{\n\n  broken");
    EXPECT_NE(ReadFailure().find("line 3"), std::string::npos) << ReadFailure();
}

TEST_F(FileSettingsTest, AnEmptyFileHoldsNoSettings) {
    Spoil("");
    EXPECT_EQ(Read("server"), std::nullopt);
    Write("server", "ONE");
    EXPECT_EQ(Read("server"), "ONE");
}

TEST_F(FileSettingsTest, WhatALaterVersionKeepsStays) {
    Spoil("{\"version\": 3, \"Harrowgate\": {\"Quillon\": {\"server\": \"ONE\", \"extra\": {\"a\": [1]}}}}");
    Write("server", "TWO");
    EXPECT_NE(Contents().find("\"version\": 3"), std::string::npos);
    EXPECT_NE(Contents().find("\"extra\""), std::string::npos);
}

TEST_F(FileSettingsTest, AValueThatIsNoTextIsRefused) {
    Write("server", "ONE");
    const std::string former = Contents();
    EXPECT_EQ(FailureNumberOf([&] { Write("server", "\xFF\xFE"); }), numbers::PathFileAccess);
    EXPECT_EQ(Contents(), former);
}

TEST_F(FileSettingsTest, AStoreThatCannotBeHadIsAFailure) {
    base.Write("file", "");
    FileSettings below((base.path() / "file" / "quillon").string());
    EXPECT_EQ(below.Read("a", "b", "c"), std::nullopt); // nothing was ever written there
    EXPECT_EQ(FailureNumberOf([&] { below.Write("a", "b", "c", "d"); }), numbers::PathFileAccess);
    fs::create_directories(fs::path(store.path()));
    EXPECT_EQ(FailureNumberOf([&] { Read("server"); }), numbers::PathFileAccess);
}

TEST_F(FileSettingsTest, AFileOfAnotherUserIsNoEmptyStore) {
    if (geteuid() != 0)
        GTEST_SKIP() << "needs to be two users";
    Write("server", "ONE");
    fs::permissions(base.path(), fs::perms(0755));
    fs::permissions(base.path() / "config", fs::perms(0755));
    const tests::UnprivilegedUser other;
    EXPECT_EQ(FailureNumberOf([&] { Read("server"); }), numbers::PathFileAccess);
    EXPECT_EQ(FailureNumberOf([&] { Write("server", "x"); }), numbers::PathFileAccess);
}

TEST_F(FileSettingsTest, AWriteWaitsForAnotherProgramOnlySoLong) {
    Write("server", "ONE");
    const FileLock lock(store.LockPath(), std::chrono::milliseconds(0));
    EXPECT_EQ(FailureNumberOf([&] { Write("server", "TWO"); }), numbers::PathFileAccess);
    EXPECT_EQ(Read("server"), "ONE"); // reading needs no lock
}

// A program that dies while it holds the lock and has half of a new file written.
TEST_F(FileSettingsTest, ACrashInTheMiddleOfASaveLeavesTheFormerFile) {
    Write("server", "ONE");
    const std::string former = Contents();
    const pid_t child = fork();
    if (child == 0) {
        const FileLock lock(store.LockPath(), std::chrono::milliseconds(0));
        ReplacedFile file(store.path(), true);
        file.Write("{\"Harrowgate\": {");
        _exit(0);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(Contents(), former);
    Write("server", "TWO"); // the lock died with its holder
    EXPECT_EQ(Read("server"), "TWO");
}

TEST_F(FileSettingsTest, ProgramsAtOnceLoseNoWrite) {
    constexpr int Programs = 4;
    constexpr int Writes = 12;
    std::vector<pid_t> children;
    for (int program = 0; program < Programs; ++program) {
        const pid_t child = fork();
        if (child == 0) {
            FileSettings own(folder.string(), std::chrono::minutes(2));
            try {
                for (int i = 0; i < Writes; ++i)
                    own.Write("Harrowgate", "Quillon", std::to_string(program) + "." + std::to_string(i),
                              "x");
            } catch (...) {
                _exit(1);
            }
            _exit(0);
        }
        children.push_back(child);
    }
    for (const pid_t child : children) {
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0);
    }
    for (int program = 0; program < Programs; ++program)
        for (int i = 0; i < Writes; ++i)
            EXPECT_EQ(Read(std::to_string(program) + "." + std::to_string(i)), "x");
}

} // namespace
} // namespace quillon::adapters
