#include "practice/session/Accounts.h"

#include "practice/session/PrivateFile.h"
#include "practice/values/SqlError.h"

#include <sys/stat.h>
#include <unistd.h>

#include <fstream>

namespace quillon::practice {
namespace {

class AccountsTest : public ::testing::Test {
  protected:
    AccountsTest() {
        std::string name = (std::filesystem::temp_directory_path() / "accounts-XXXXXX").string();
        m_folder = mkdtemp(name.data());
    }
    ~AccountsTest() override { std::filesystem::remove_all(m_folder); }

    std::filesystem::path File() const { return m_folder / "logins"; }
    static int NumberOf(const std::function<void()>& act) {
        try {
            act();
        } catch (const SqlError& error) {
            return error.number;
        }
        return 0;
    }

  private:
    std::filesystem::path m_folder;
};

TEST_F(AccountsTest, KeepsLoginsAcrossOpenings) {
    {
        Accounts accounts(File());
        accounts.Create("sa", "first", true);
        accounts.Create("tab\tand\\line\n", "Пароль 1", false);
        accounts.ChangeDefaults("TAB\tAND\\LINE\n", "Sales", "");
    }
    Accounts accounts(File());
    EXPECT_TRUE(accounts.Verify("SA", "first"));
    EXPECT_TRUE(accounts.Verify("tab\tand\\line\n", "Пароль 1"));
    auto found = accounts.Find("tab\tand\\line\n");
    ASSERT_TRUE(found);
    EXPECT_EQ(found->defaultDatabase, "Sales");
    EXPECT_EQ(found->sid.size(), 16U);
    EXPECT_FALSE(found->administrator);
    EXPECT_EQ(accounts.List().front().name, "sa");
    EXPECT_EQ(accounts.Find("sa")->sid, "\x01");
}

TEST_F(AccountsTest, OnlyTheRightPasswordOfAnEnabledLoginEnters) {
    Accounts accounts(File());
    accounts.Create("ann", "right");
    EXPECT_FALSE(accounts.Verify("ann", "wrong"));
    EXPECT_FALSE(accounts.Verify("ann", ""));
    EXPECT_FALSE(accounts.Verify("nobody", "right"));
    accounts.SetDisabled("ann", true);
    EXPECT_FALSE(accounts.Verify("ann", "right"));
    accounts.SetDisabled("ann", false);
    accounts.ChangePassword("ann", "new");
    EXPECT_FALSE(accounts.Verify("ann", "right"));
    EXPECT_TRUE(accounts.Verify("ann", "new"));
    accounts.Rename("ann", "anna");
    EXPECT_TRUE(accounts.Verify("anna", "new"));
    accounts.Drop("anna");
    EXPECT_FALSE(accounts.Verify("anna", "new"));
}

TEST_F(AccountsTest, NoPasswordIsInTheFileNorIsTheFileOpenToOthers) {
    Accounts accounts(File());
    accounts.Create("ann", "plainly-visible");
    accounts.Create("bob", "plainly-visible");
    std::string content = ReadPrivateFile(File());
    EXPECT_EQ(content.find("plainly-visible"), std::string::npos);
    EXPECT_NE(content.substr(content.find("$6$"), 60), content.substr(content.rfind("$6$"), 60)) << "salted";
    struct stat facts {};
    ASSERT_EQ(stat(File().c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 0777, 0600U);
    chmod(File().c_str(), 0644);
    EXPECT_THROW(Accounts{File()}, std::runtime_error);
}

TEST_F(AccountsTest, RefusesWhatCannotBe) {
    Accounts accounts(File());
    accounts.Create("sa", "x");
    accounts.Create("ann", "x");
    EXPECT_EQ(NumberOf([&] { accounts.Create("ANN", "y"); }), 15025);
    EXPECT_EQ(NumberOf([&] { accounts.Rename("ann", "Sa"); }), 15025);
    EXPECT_EQ(NumberOf([&] { accounts.Drop("nobody"); }), 15151);
    EXPECT_EQ(NumberOf([&] { accounts.ChangePassword("nobody", "x"); }), 15151);
    EXPECT_EQ(NumberOf([&] { accounts.Drop("sa"); }), 15405);
    EXPECT_EQ(NumberOf([&] { accounts.Create("bob", ""); }), 15116);
    EXPECT_EQ(NumberOf([&] { accounts.ChangePassword("ann", ""); }), 15116);
    EXPECT_EQ(accounts.List().size(), 2U);
}

TEST_F(AccountsTest, AFileThatIsNoListOfLoginsIsRefused) {
    WritePrivateFile(File(), "something else\n");
    EXPECT_THROW(Accounts{File()}, std::runtime_error);
}

} // namespace
} // namespace quillon::practice
