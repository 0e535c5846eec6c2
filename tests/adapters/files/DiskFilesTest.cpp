// Reading by lines, writing, replacing whole, and the numbers of what goes wrong.
#include <gtest/gtest.h>

#include <filesystem>

#include <sys/wait.h>

#include "adapters/clock/SystemClock.h"
#include "adapters/files/DiskFiles.h"
#include "adapters/files/ReplacedFile.h"
#include "platform/Conversion.h"
#include "platform/FailureNumbers.h"
#include "support/FailureNumberOf.h"
#include "support/TemporaryFolder.h"
#include "support/UnprivilegedUser.h"

namespace quillon::adapters {
namespace {

namespace fs = std::filesystem;
using tests::FailureNumberOf;
using Lines = std::vector<std::string>;

class DiskFilesTest : public ::testing::Test {
  protected:
    tests::TemporaryFolder folder;
    DiskFiles files{folder.path().string(), folder.path().string()};

    std::string At(const std::string& name) const { return folder.SystemPath(name); }
    Lines Read(const std::string& name) {
        Lines lines;
        const auto reader = files.OpenInput(At(name));
        for (std::string line; reader->ReadLine(line);)
            lines.push_back(line);
        return lines;
    }
    std::size_t Entries() const {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder.path()), {}));
    }
};

TEST_F(DiskFilesTest, AllThreeLineEndsEndALine) {
    const std::pair<std::string, Lines> cases[] = {
        {"", {}},
        {"one", {"one"}},
        {"one\r\n", {"one"}},
        {"one\r\ntwo\nthree\rfour", {"one", "two", "three", "four"}},
        {"\r\n\n\r", {"", "", ""}},
        {"a\r\r\nb\n\rc", {"a", "", "b", "", "c"}},
        {std::string("nul \0 inside\n", 13), {std::string("nul \0 inside", 12)}},
        {"\xEF\xBB\xBFtext\n", {"\xEF\xBB\xBFtext"}},
    };
    for (const auto& [text, lines] : cases) {
        folder.Write("x.txt", text);
        EXPECT_EQ(Read("x.txt"), lines) << ::testing::PrintToString(text);
    }
}

// Line ends that lie across the edge of the read buffer, and lines longer than it.
TEST_F(DiskFilesTest, LinesDoNotDependOnTheBuffer) {
    constexpr std::size_t Buffer = 64 * 1024;
    for (const std::string end : {"\r\n", "\n", "\r"})
        for (std::size_t length = Buffer - 3; length <= Buffer + 1; ++length) {
            const std::string filler(length, 'x');
            folder.Write("x.txt", filler + end + "second" + end + end + "last");
            EXPECT_EQ(Read("x.txt"), (Lines{filler, "second", "", "last"})) << length;
            folder.Write("x.txt", filler + end);
            EXPECT_EQ(Read("x.txt"), Lines{filler}) << length;
        }
    const std::string longLine(3 * Buffer + 5, 'y');
    folder.Write("x.txt", longLine + "\n" + longLine);
    EXPECT_EQ(Read("x.txt"), (Lines{longLine, longLine}));
}

TEST_F(DiskFilesTest, WritesAppendsAndReadsBack) {
    const std::string large(200'000, 'z');
    const auto writer = files.OpenOutput(At("Prüfung.sql"));
    writer->Write("GO");
    writer->WriteLine("");
    writer->Write(large);
    writer->Close();
    writer->Close();
    EXPECT_EQ(folder.Read("Prüfung.sql"), "GO\r\n" + large);
    EXPECT_EQ(FailureNumberOf([&] { writer->Write("late"); }), numbers::BadFileNameOrNumber);

    files.OpenAppend(At("Prüfung.sql"))->WriteLine("end"); // the destructor closes
    EXPECT_EQ(files.ReadAll(At("Prüfung.sql")), "GO\r\n" + large + "end\r\n");
    files.OpenOutput(At("Prüfung.sql"))->Close();
    EXPECT_EQ(files.ReadAll(At("Prüfung.sql")), "");
    for (const std::string& text : {std::string("shorter"), std::string(70'000, 's'), std::string()}) {
        folder.Write("long.txt", std::string(100'000, 'l'));
        files.OpenOutput(At("long.txt"))->Write(text);
        EXPECT_TRUE(folder.Read("long.txt") == text) << text.size();
    }
    files.OpenAppend(At("new.txt"))->Write("made");
    EXPECT_EQ(folder.Read("new.txt"), "made");
}

TEST_F(DiskFilesTest, KnowsFilesFromFolders) {
    fs::create_directory(folder.path() / "sub");
    folder.Write("x", "");
    EXPECT_TRUE(files.Exists(At("x")));
    EXPECT_FALSE(files.Exists(At("sub")));
    EXPECT_FALSE(files.Exists(At("y")));
    EXPECT_FALSE(files.Exists(""));
    files.Delete(At("x"));
    EXPECT_FALSE(files.Exists(At("x")));
}

TEST_F(DiskFilesTest, TheReadOnlyMarkCountsForEverybody) {
    folder.Write("x", "old");
    EXPECT_FALSE(files.IsReadOnly(At("x")));
    fs::permissions(folder.path() / "x", fs::perms(0444));
    EXPECT_TRUE(files.IsReadOnly(At("x")));
    EXPECT_EQ(FailureNumberOf([&] { files.Replace(At("x"), "new", false); }), numbers::PathFileAccess);
    EXPECT_EQ(folder.Read("x"), "old");
    EXPECT_EQ(FailureNumberOf([&] { (void)files.IsReadOnly(At("missing")); }), numbers::FileNotFound);
}

TEST_F(DiskFilesTest, TheCurrentFolderGoesThroughTheEdge) {
    const fs::path former = fs::current_path();
    fs::create_directory(folder.path() / "sub");
    folder.Write("sub/x", "here");
    files.ChangeFolder(At("sub"));
    EXPECT_EQ(files.CurrentFolder(), At("sub"));
    EXPECT_EQ(files.ReadAll("x"), "here");
    EXPECT_EQ(files.ReadAll("..\\sub\\x"), "here");
    EXPECT_EQ(FailureNumberOf([&] { files.ChangeFolder(At("missing")); }), numbers::PathNotFound);
    fs::current_path(former);
}

TEST_F(DiskFilesTest, WhatGoesWrongHasItsNumberAndNamesTheFile) {
    fs::create_directory(folder.path() / "sub");
    folder.Write("file", "");
    struct Case {
        const char* name;
        std::function<void()> act;
        std::int32_t number;
    };
    const std::string longName(300, 'n');
    const Case cases[] = {
        {"missing file", [&] { files.OpenInput(At("no")); }, numbers::FileNotFound},
        {"missing file, whole", [&] { files.ReadAll(At("no")); }, numbers::FileNotFound},
        {"missing folder", [&] { files.OpenInput(At("no\\x")); }, numbers::PathNotFound},
        {"output below missing folder", [&] { files.OpenOutput(At("no\\x")); }, numbers::PathNotFound},
        {"replace below missing folder", [&] { files.Replace(At("no\\x"), "", false); },
         numbers::PathNotFound},
        {"file as folder", [&] { files.OpenOutput(At("file\\x")); }, numbers::PathNotFound},
        {"folder as file", [&] { files.OpenInput(At("sub")); }, numbers::PathFileAccess},
        {"output on folder", [&] { files.OpenOutput(At("sub")); }, numbers::PathFileAccess},
        {"replace a folder", [&] { files.Replace(At("sub"), "", false); }, numbers::PathFileAccess},
        {"delete a folder", [&] { files.Delete(At("sub")); }, numbers::PathFileAccess},
        {"delete what is missing", [&] { files.Delete(At("no")); }, numbers::FileNotFound},
        {"impossible name", [&] { files.OpenOutput(At(longName)); }, numbers::BadFileNameOrNumber},
        {"empty name", [&] { files.OpenOutput(""); }, numbers::BadFileNameOrNumber},
    };
    for (const Case& c : cases)
        EXPECT_EQ(FailureNumberOf(c.act), c.number) << c.name;
    try {
        files.OpenInput(At("no"));
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.description(), "File not found: " + At("no"));
    }
}

TEST_F(DiskFilesTest, AFullDiskIsNoticedAtTheLatestAtClose) {
    const auto writer = files.OpenOutput("\\dev\\full");
    writer->Write("fits into the buffer");
    EXPECT_EQ(FailureNumberOf([&] { writer->Close(); }), numbers::DiskFull);
}

TEST_F(DiskFilesTest, MissingRightsAreRefused) {
    folder.Write("secret", "x");
    fs::permissions(folder.path() / "secret", fs::perms::none);
    fs::permissions(folder.path(), fs::perms(0555));
    {
        const tests::UnprivilegedUser user;
        EXPECT_EQ(FailureNumberOf([&] { files.OpenInput(At("secret")); }), numbers::PermissionDenied);
        EXPECT_EQ(FailureNumberOf([&] { files.OpenOutput(At("new")); }), numbers::PermissionDenied);
        EXPECT_EQ(FailureNumberOf([&] { files.Replace(At("new"), "", false); }), numbers::PermissionDenied);
        EXPECT_EQ(FailureNumberOf([&] { files.Delete(At("secret")); }), numbers::PermissionDenied);
    }
    fs::permissions(folder.path(), fs::perms(0755));
}

TEST_F(DiskFilesTest, ReplacingKeepsRightsAndLinksUnlessPrivate) {
    folder.Write("x", "old");
    fs::permissions(folder.path() / "x", fs::perms(0664));
    fs::create_symlink(folder.path() / "x", folder.path() / "link");
    files.Replace(At("link"), "new", false);
    EXPECT_TRUE(fs::is_symlink(folder.path() / "link"));
    EXPECT_EQ(folder.Read("x"), "new");
    EXPECT_EQ(fs::status(folder.path() / "x").permissions(), fs::perms(0664));
    files.Replace(At("x"), "private", true);
    EXPECT_EQ(fs::status(folder.path() / "x").permissions(), fs::perms(0600));
    EXPECT_EQ(Entries(), 2u); // no temporary file stays
}

TEST_F(DiskFilesTest, AReplacementThatIsGivenUpLeavesTheFormerFile) {
    folder.Write("x", "old");
    {
        ReplacedFile file((folder.path() / "x").string(), false);
        file.Write("half of the n");
    }
    EXPECT_EQ(folder.Read("x"), "old");
    EXPECT_EQ(Entries(), 1u);
}

// A process that dies between writing and renaming.
TEST_F(DiskFilesTest, ACrashInTheMiddleOfAReplacementLeavesTheFormerFile) {
    folder.Write("x", "old");
    const pid_t child = fork();
    if (child == 0) {
        ReplacedFile file((folder.path() / "x").string(), false);
        file.Write(std::string(1'000'000, 'n'));
        _exit(0);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(folder.Read("x"), "old");
    files.Replace(At("x"), "new", false);
    EXPECT_EQ(folder.Read("x"), "new");
}

TEST(SystemClock, AgreesWithTheCalendar) {
    const SystemClock clock;
    const std::time_t before = std::time(nullptr);
    const auto shown = conversion::CalendarOf(clock.Now());
    std::tm time{};
    time.tm_year = shown.year - 1900;
    time.tm_mon = shown.month - 1;
    time.tm_mday = shown.day;
    time.tm_hour = shown.hour;
    time.tm_min = shown.minute;
    time.tm_sec = shown.second;
    time.tm_isdst = -1;
    EXPECT_LE(before, std::mktime(&time));
    EXPECT_GE(std::time(nullptr), std::mktime(&time));
    const std::int64_t ticks = clock.TickCount();
    EXPECT_GE(clock.TickCount(), ticks);
}

} // namespace
} // namespace quillon::adapters
