// The public face: what scripts can reach, and nothing else.
#include "ModelTest.h"

namespace quillon::tests {
namespace {

using Names = std::vector<std::string>;

class Faces : public ModelTest {
  protected:
    Faces() {
        g_objAudit = audit;
        root = FaceOf(audit);
        AddTable(*audit, "Orders")->PrimaryKeyFields()->Add({.name = "id"}, "id");
        AddTable(*audit, "Lines");
    }
    ~Faces() override { g_objAudit.reset(); }

    ObjectRef Database() const { return GetObject(root, "Database"); }
    ObjectRef Table(const Value& indexKey) const { return GetObject(Database(), "Tables", {indexKey}); }

    ObjectRef root;
};

template <class T>
Names MembersOf() {
    Names names;
    for (const FaceMember& member : FaceClassOf<T>().members)
        names.emplace_back(member.name);
    return names;
}

template <class T>
Names WritableOf() {
    Names names;
    for (const FaceMember& member : FaceClassOf<T>().members)
        if (member.write != nullptr)
            names.emplace_back(member.name);
    return names;
}

// Templates written for the model must run unchanged: names and order are what they and the tools that list
// them know.
TEST_F(Faces, MembersAndTheirOrder) {
    EXPECT_EQ(MembersOf<AuditObj>(), (Names{"Cancelled", "Cancel", "Database", "Includes", "Include",
                                            "Languages", "Template", "Legal", "Author"}));
    EXPECT_EQ(MembersOf<mdDatabase>(), (Names{"AuditedTableCount", "Tables", "Owner", "Connection_String",
                                              "Server", "User", "Name", "ActiveTable"}));
    EXPECT_EQ(
        MembersOf<mdTable>(),
        (Names{"IsFirstAuditedTable", "Script", "IsAudited", "CreateDate", "IsSelectedForAudit",
               "IsOneAuditOperationSelected", "IsOneFieldSelectedForAudit", "IsActiveTable", "Audit4Insert",
               "Audit4Update", "Audit4Delete", "Name", "Owner", "PrimaryKeyFields", "Fields", "Triggers"}));
    EXPECT_EQ(
        MembersOf<mdField>(),
        (Names{"IsInPrimaryKey", "ParentName", "ParentOwner", "IsChecked", "IsGUID", "Default",
               "SQL_Datatype_And_Length", "IsIdentity", "IsTimeStamp", "IsKey", "SQL_Datatype",
               "NumericScale", "NumericPrecision", "Ordinal_Position", "Name", "Length", "IsNullable"}));
    EXPECT_EQ(MembersOf<mdPrimaryKeyField>(),
              (Names{"Keys", "ParentName", "ParentOwner", "IsGUID", "Default", "SQL_Datatype_And_Length",
                     "IsIdentity", "IsTimeStamp", "SQL_Datatype", "NumericScale", "NumericPrecision",
                     "Ordinal_Position", "Name", "Length", "IsNullable"}));
    EXPECT_EQ(MembersOf<mdTrigger>(),
              (Names{"Script", "Text", "QuotedIdentifierStatus", "AnsiNULLsStatus", "ParentName",
                     "ParentOwner", "Name", "Owner", "CreateDate", "Enabled", "TypeOfTrigger", "IsInsert",
                     "IsUpdate", "IsDelete"}));
    EXPECT_EQ(MembersOf<mdTables>(), (Names{"Table", "Item", "Count", "NewEnum"}));
    EXPECT_EQ(MembersOf<mdFields>(), (Names{"Field", "Item", "Count", "NewEnum"}));
    EXPECT_EQ(MembersOf<mdPrimaryKeyFields>(), (Names{"PrimaryKeyField", "Item", "Count", "NewEnum"}));
    EXPECT_EQ(MembersOf<mdTriggers>(), (Names{"Trigger", "Item", "Count", "NewEnum"}));
    EXPECT_EQ(MembersOf<mdStubFields>(), (Names{"Field", "Item", "Count", "NewEnum"}));
    EXPECT_EQ(MembersOf<mdStubField>(), (Names{"Name"}));
    EXPECT_EQ(MembersOf<mdIncludes>(), (Names{"Add", "Item", "Count", "NewEnum"}));
    EXPECT_EQ(MembersOf<mdInclude>(), (Names{"File"}));
    EXPECT_EQ(MembersOf<mdLanguages>(), (Names{"ScriptLanguage"}));
}

// The whole of what a script may write in the model.
TEST_F(Faces, OnlyTwoPropertiesCanBeWritten) {
    EXPECT_EQ(WritableOf<AuditObj>(), (Names{"Cancelled"}));
    EXPECT_EQ(WritableOf<mdLanguages>(), (Names{"ScriptLanguage"}));
    for (const Names& none :
         {WritableOf<mdDatabase>(), WritableOf<mdTables>(), WritableOf<mdTable>(), WritableOf<mdFields>(),
          WritableOf<mdField>(), WritableOf<mdPrimaryKeyFields>(), WritableOf<mdPrimaryKeyField>(),
          WritableOf<mdTriggers>(), WritableOf<mdTrigger>(), WritableOf<mdStubFields>(),
          WritableOf<mdStubField>(), WritableOf<mdIncludes>(), WritableOf<mdInclude>()})
        EXPECT_EQ(none, Names{});
}

TEST_F(Faces, InternalOperationsHaveNoName) {
    const ObjectRef tables = GetObject(Database(), "Tables");
    const ObjectRef table = Table(1);
    for (const char* name : {"Add", "Remove", "SetName", "Append", "begin", "", "Item "})
        EXPECT_FALSE(tables->FindMember(name)) << name;
    for (const char* name : {"SetScript", "SetIsActiveTable", "Remove", "IsSelectedForAudit()"})
        EXPECT_FALSE(table->FindMember(name)) << name;
    for (const char* name : {"Clear", "Remove"})
        EXPECT_FALSE(GetObject(root, "Includes")->FindMember(name)) << name;
    for (const char* name : {"Load", "Save", "NewFile", "AddInclude", "ClearIncludes"})
        EXPECT_FALSE(GetObject(root, "Template")->FindMember(name)) << name;
    for (const MemberId unknown : {-1, 17, 1000})
        EXPECT_EQ(FailureOf([&] { table->Invoke(unknown, InvokeKind::Get, {}); }),
                  numbers::MemberNotSupported);
}

TEST_F(Faces, WritingAReadOnlyMemberSaysSo) {
    const ObjectRef table = Table(1);
    for (const InvokeKind kind : {InvokeKind::Let, InvokeKind::Set}) {
        EXPECT_EQ(FailureOf([&] { Invoke(table, kind, "audit4insert", {true}); }), numbers::NotACollection);
        EXPECT_EQ(description, "Object not a collection: Audit4Insert");
    }
    EXPECT_EQ(FailureOf([&] {
                  Invoke(GetObject(Database(), "Tables"), InvokeKind::Let, "Item", {1, 2});
              }),
              numbers::NotACollection);
    EXPECT_EQ(description, "Object not a collection: Item");
    EXPECT_EQ(FailureOf([&] { Invoke(root, InvokeKind::Let, "Cancel", {1}); }), numbers::WrongArgumentCount);
    EXPECT_FALSE(audit->Database()->Tables()->Item(1)->Audit4Insert());
}

TEST_F(Faces, TheFewThingsATemplateMayDo) {
    Invoke(root, InvokeKind::Let, "cancelled", {"True"});
    EXPECT_TRUE(audit->Cancelled());
    Invoke(root, InvokeKind::Let, "Cancelled", {0});
    EXPECT_EQ(Get(root, "Cancelled"), Value(false));
    EXPECT_EQ(FailureOf([&] { Invoke(root, InvokeKind::Let, "Cancelled", {"perhaps"}); }),
              numbers::TypeMismatch);
    Invoke(root, InvokeKind::Call, "CANCEL", {});
    EXPECT_TRUE(audit->Cancelled());

    const ObjectRef include = GetObject(root, "Include", {"a.vbs"});
    EXPECT_EQ(Get(include, "File"), Value("a.vbs"));
    EXPECT_EQ(GetObject(root, "Include", {"a.vbs"}), ObjectRef());
    const ObjectRef includes = GetObject(root, "Includes");
    EXPECT_EQ(GetObject(includes, "Item", {1}), include);
    EXPECT_EQ(Get(GetObject(includes, "Add", {"b.vbs", "key"}), "File"), Value("b.vbs"));
    EXPECT_EQ(Get(GetObject(includes, "Item", {"KEY"}), "File"), Value("b.vbs"));
    EXPECT_TRUE(GetObject(includes, "Add", {"c.vbs", MissingValue()}));
    EXPECT_EQ(Get(includes, "Count"), Value(3));

    Invoke(GetObject(root, "Languages"), InvokeKind::Let, "ScriptLanguage", {"jscript"});
    EXPECT_EQ(Get(GetObject(root, "Languages"), "ScriptLanguage"), Value("JScript"));
}

TEST_F(Faces, ArgumentsAreCounted) {
    const ObjectRef tables = GetObject(Database(), "Tables");
    EXPECT_EQ(FailureOf([&] { Get(tables, "Item"); }), numbers::WrongArgumentCount);
    EXPECT_EQ(FailureOf([&] { Get(tables, "Item", {1, 2}); }), numbers::WrongArgumentCount);
    EXPECT_EQ(FailureOf([&] { Get(tables, "Item", {MissingValue()}); }), numbers::ArgumentNotOptional);
    EXPECT_EQ(FailureOf([&] { Get(root, "Cancel", {1}); }), numbers::WrongArgumentCount);
    EXPECT_EQ(FailureOf([&] { Get(root, "Include"); }), numbers::WrongArgumentCount);
    EXPECT_EQ(FailureOf([&] { Get(Table(1), "Name", {1}); }), numbers::WrongArgumentCount);
    EXPECT_EQ(FailureOf([&] { Get(Table(1), "Fields", {1, 2}); }), numbers::WrongArgumentCount);
    EXPECT_EQ(FailureOf([&] { Get(tables, "NewEnum"); }), numbers::VariantTypeNotSupported);
}

TEST_F(Faces, ValuesComeInTheSubTypesOfTheHost) {
    const auto table = audit->Database()->Tables()->Item(1);
    table->SetScript("CREATE");
    const ObjectRef face = Table("DBO.ORDERS");
    EXPECT_EQ(Get(face, "name"), Value("Orders"));
    EXPECT_EQ(Get(face, "CreateDate"), Value(DateValue{36526}));
    EXPECT_EQ(Get(face, "IsAudited"), Value(false));
    EXPECT_EQ(Get(face, "Script"), Value("CREATE"));
    EXPECT_EQ(Get(Database(), "AuditedTableCount"), Value(std::int16_t{0}));
    const ObjectRef field = GetObject(face, "Fields", {"NOTE"});
    EXPECT_EQ(Get(field, "Length"), Value(0.0));
    EXPECT_EQ(Get(field, "NumericScale"), Value(std::int32_t{0}));
    EXPECT_EQ(Get(field, "Ordinal_Position"), Value(std::int16_t{0}));
    EXPECT_EQ(GetObject(GetObject(face, "PrimaryKeyFields", {1}), "Keys")->TypeName(), "mdStubFields");
    EXPECT_EQ(face->TypeName(), "mdTable");
    EXPECT_EQ(GetObject(face, "Fields", {3}), ObjectRef());
    EXPECT_EQ(FailureOf([&] { Get(face, "Fields", {0}); }), numbers::SubscriptOutOfRange);
    EXPECT_EQ(FailureOf([&] { Get(face, "Fields", {"nowhere"}); }), numbers::InvalidCall);
}

TEST_F(Faces, DefaultMemberIsItem) {
    const ObjectRef tables = GetObject(Database(), "Tables");
    std::vector<Value> second{2};
    EXPECT_EQ(tables->Invoke(DefaultMemberId, InvokeKind::Get, second), Value(Table(2)));
    EXPECT_EQ(FailureOf([&] { Table(1)->Invoke(DefaultMemberId, InvokeKind::Get, {}); }),
              numbers::MemberNotSupported);
}

TEST_F(Faces, ScratchElementIsNoMember) {
    const ObjectRef tables = GetObject(Database(), "Tables");
    const ObjectRef scratch = GetObject(tables, "Table");
    EXPECT_EQ(Get(scratch, "Name"), Value(""));
    EXPECT_EQ(GetObject(tables, "Table"), scratch);
    EXPECT_EQ(Get(tables, "Count"), Value(2));
    EXPECT_EQ(GetObject(GetObject(Table(1), "Fields"), "Field")->TypeName(), "mdField");
}

TEST_F(Faces, ForEachGivesTheElementsInOrder) {
    const auto walk = GetObject(Database(), "Tables")->Enumerate();
    EXPECT_EQ(walk->Next(), Value(Table(1)));
    AddTable(*audit, "Late");
    EXPECT_EQ(walk->Next(), Value(Table(2)));
    EXPECT_EQ(walk->Next(), Value(Table(3)));
    EXPECT_EQ(walk->Next(), std::nullopt);
    const ObjectRef table = Table(1);
    for (const char* name : {"Fields", "PrimaryKeyFields", "Triggers"})
        EXPECT_EQ(GetObject(table, name)->Enumerate()->Next().has_value(), name[0] != 'T') << name;
    EXPECT_FALSE(GetObject(GetObject(table, "PrimaryKeyFields", {1}), "Keys")->Enumerate()->Next());
    EXPECT_EQ(FailureOf([&] { table->Enumerate(); }), numbers::NotACollection);
}

TEST_F(Faces, OneFaceForEachObject) {
    EXPECT_EQ(Table(1), Table("dbo.orders"));
    EXPECT_NE(Table(1), Table(2));
    EXPECT_EQ(Table(1), GetObject(Database(), "ActiveTable"));
    EXPECT_EQ(FaceOf(audit), root);
    EXPECT_EQ(GetObject(root, "Template"), GetObject(root, "Template"));
}

TEST_F(Faces, AHeldFaceOutlivesItsModel) {
    const ObjectRef table = Table(1);
    const ObjectRef field = GetObject(table, "Fields", {1});
    const std::weak_ptr<AuditObj> former = audit;
    audit->Database()->Tables()->Remove(1);
    root = {};
    audit.reset();
    g_objAudit.reset();
    EXPECT_TRUE(former.expired());
    EXPECT_EQ(Get(table, "Name"), Value("Orders"));
    EXPECT_EQ(GetObject(table, "Fields", {1}), field);
    EXPECT_EQ(Get(field, "Name"), Value("id"));
}

TEST_F(Faces, TemplateIsAProfileThatNothingLoads) {
    audit->SetAuthor("Ann");
    audit->SetLegal("(c)");
    const ObjectRef profile = GetObject(root, "Template");
    EXPECT_EQ(profile->TypeName(), "clsQlnTemplate");
    for (const char* text : {"TemplateText", "Header_Author", "header_legal", "Script_Views", "SCRIPT_DDL"})
        EXPECT_EQ(Get(profile, text), Value("")) << text;
    EXPECT_EQ(Get(profile, "IsLoaded"), Value(false));
    EXPECT_EQ(Get(profile, "IncludeCount"), Value(std::int16_t{0}));
    EXPECT_EQ(FailureOf([&] { Get(profile, "Includes", {0}); }), numbers::ObjectNotSet);
    EXPECT_EQ(FailureOf([&] { Invoke(profile, InvokeKind::Let, "TemplateText", {"x"}); }),
              numbers::NotACollection);
    EXPECT_EQ(Get(root, "Author"), Value("Ann"));
    EXPECT_EQ(Get(root, "Legal"), Value("(c)"));
}

} // namespace
} // namespace quillon::tests
