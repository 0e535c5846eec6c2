// Passwords in texts, however they are written.
#include "shell/Redaction.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

struct Case {
    const char* text;
    const char* expected;
    const char* known = "";
};

TEST(Redaction, TakesOutPasswordsAndNothingElse) {
    const Case cases[] = {
        {"", ""},
        {"select * from passwords where pwd is null", "select * from passwords where pwd is null"},
        {"User ID=sa;Password=secret;Database=pubs", "User ID=sa;Password=***;Database=pubs"},
        {"PWD = secret", "PWD = ***"},
        {"Pwd={a;b}}c};Server=x", "Pwd=***;Server=x"},
        {"CREATE LOGIN x WITH PASSWORD = N'it''s;me', CHECK_POLICY = OFF",
         "CREATE LOGIN x WITH PASSWORD = ***, CHECK_POLICY = OFF"},
        {"password='never closed", "password=***"},
        {"password=one\r\npassword=two\r\nend", "password=***\r\npassword=***\r\nend"},
        // the undo connection's form
        {"Uid=sa;Pwd=;secret", "Uid=sa;Pwd=;***"},
        {"Uid=sa;Pwd=;a=b", "Uid=sa;Pwd=;***", "a=b"},
        {"Uid=;Pwd=;Trusted_Connection=yes", "Uid=;Pwd=;Trusted_Connection=yes"},
        {"Uid=sa;Pwd=", "Uid=sa;Pwd="},
        // a known password may hold what ends a value
        {"Password=a;b;Database=pubs", "Password=***;Database=pubs", "a;b"},
        {"Password='a;Database=pubs", "Password=***;Database=pubs", "'a"},
        {"the word a;b alone", "the word a;b alone", "a;b"},
        // command lines
        {"isqlw -S s -d pubs -U sa -P secret -f \"x.sql\"", "isqlw -S s -d pubs -U sa -P *** -f \"x.sql\""},
        {"-Psecret", "-P***"},
        {"tool -P two words -f x", "tool -P *** -f x"},
        {"tool -P \"quo -ted\" -f x", "tool -P *** -f x"},
        {"tool -P a -b c", "tool -P ***", "a -b c"},
        {"frmMain - Process", "frmMain - Process"},
        {"a-Plan", "a-Plan"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(WithoutPasswords(c.text, c.known), c.expected) << c.text;
}

} // namespace
} // namespace quillon
