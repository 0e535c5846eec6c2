// The answers about logins and the server's own; those about tables are in the scripts of the language.
#include "practice/catalogue/Metadata.h"
#include "practice/catalogue/CatalogueViews.h"
#include "practice/values/Operators.h"

#include <gtest/gtest.h>

namespace quillon::practice {
namespace {

class Metadata : public testing::Test {
  protected:
    void SetUp() override {
        m_sources.logins = [] {
            LoginRow sa, bob;
            sa.name = "sa";
            sa.principalId = 1;
            sa.sid = "\x01";
            bob.name = "bob";
            bob.principalId = 260;
            bob.sid = std::string("\x00\x07", 2);
            return std::vector<LoginRow>{sa, bob};
        };
        RegisterCatalogueSources(m_session.Connection(), m_sources);
        m_here.login = "bob";
        m_here.administrator = false;
        m_here.serverName = "here";
    }

    std::string Ask(const char* function, const std::vector<Datum>& arguments) {
        const auto answer = AnswerMetadata(function, arguments, m_here);
        return !answer ? "not here" : ToText(*answer, 1);
    }

    Store m_store{StoreOptions{{}, true}};
    CatalogueSources m_sources;
    StoreSession m_session{m_store, 51};
    MetadataSurroundings m_here{.store = m_session, .login = {}, .serverName = {}};
};

Datum Text(const char* text) {
    return Datum::NVarCharOf(text);
}

TEST_F(Metadata, KnowsLoginsByNameNumberAndBytes) {
    EXPECT_EQ("bob", Ask("SUSER_SNAME", {}));
    EXPECT_EQ("sa", Ask("SUSER_SNAME", {Datum::Bytes(BinaryType(TypeId::VarBinary, 85), "\x01")}));
    EXPECT_EQ("NULL", Ask("SUSER_SNAME", {Datum::Bytes(BinaryType(TypeId::VarBinary, 85), "\x05")}));
    EXPECT_EQ("bob", Ask("SUSER_NAME", {Datum::Int(260)}));
    EXPECT_EQ("260", Ask("SUSER_ID", {Text("BOB")}));
    EXPECT_EQ("0x0007", Ask("SUSER_SID", {Text("bob")}));
    EXPECT_EQ("NULL", Ask("SUSER_SID", {Text("nobody")}));
}

TEST_F(Metadata, TellsRolesByTheUser) {
    EXPECT_EQ("1", Ask("IS_MEMBER", {Text("db_owner")}));
    EXPECT_EQ("NULL", Ask("IS_MEMBER", {Text("nosuch")}));
    EXPECT_EQ("0", Ask("IS_SRVROLEMEMBER", {Text("sysadmin")}));
    m_here.user = guestPrincipal;
    EXPECT_EQ("0", Ask("IS_MEMBER", {Text("db_owner")}));
    EXPECT_EQ("1", Ask("IS_MEMBER", {Text("public")}));
    EXPECT_EQ("0", Ask("HAS_PERMS_BY_NAME", {Datum(), Datum(), Text("ALTER ANY TRIGGER")}));
    EXPECT_EQ("NULL", Ask("HAS_PERMS_BY_NAME", {Text("nosuch"), Text("DATABASE"), Text("ANY")}));
}

TEST_F(Metadata, AnswersNullForWhatIsNotThere) {
    for (const char* function :
         {"DB_ID", "SCHEMA_ID", "USER_ID", "OBJECT_ID", "TYPE_ID", "IDENT_CURRENT", "SERVERPROPERTY"})
        EXPECT_EQ("NULL", Ask(function, {Text("nosuch")})) << function;
    EXPECT_EQ("NULL", Ask("OBJECT_NAME", {Datum::Int(5)}));
    EXPECT_EQ("NULL", Ask("COLUMNPROPERTY", {Datum::Int(5), Text("a"), Text("IsIdentity")}));
    EXPECT_EQ("not here", Ask("ROWCOUNT_BIG", {}));
}

TEST_F(Metadata, SequentialIdentifiersGrow) {
    const Datum first = *AnswerMetadata("NEWSEQUENTIALID", {}, m_here);
    const Datum second = *AnswerMetadata("NEWSEQUENTIALID", {}, m_here);
    EXPECT_LT(CompareValues(first, second), 0); // as identifiers sort, so that an index grows at its end
    EXPECT_TRUE(std::equal(first.Identifier().bytes.begin() + 8, first.Identifier().bytes.end(),
                           second.Identifier().bytes.begin() + 8));
}

} // namespace
} // namespace quillon::practice
