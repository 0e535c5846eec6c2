// Collections: positions, keys, refusals.
#include "ModelTest.h"

#include "model/mdIncludes.h"

namespace quillon::tests {
namespace {

class Collections : public ModelTest {
  protected:
    Collections() {
        for (const char* name : {"id", "Größe", "note", "7"})
            fields.Add(Field(name));
    }
    std::string Found(const Value& indexKey) const {
        const auto field = fields.Item(indexKey);
        return field ? field->Name() : "(nothing)";
    }

    mdFields fields;
};

TEST_F(Collections, ItemFindsByPositionAndKey) {
    struct Case {
        Value indexKey;
        const char* found;
    };
    const Case cases[] = {
        {1, "id"},
        {4, "7"},
        {std::int16_t{2}, "Größe"},
        {std::uint8_t{3}, "note"},
        {2.5, "Größe"}, // half to even
        {3.5, "7"},
        {CurrencyValue{20000}, "Größe"},
        {"NOTE", "note"},
        {"GRÖSSE", nullptr}, // two letters are no case of one
        {"gRÖßE", "Größe"},
        // Beyond the end there is nothing, also when the number is written as text ...
        {5, "(nothing)"},
        {1e300, "(nothing)"},
        {"5", "(nothing)"},
        {" 1e3 ", "(nothing)"},
        {"7", "(nothing)"}, // ... even if a key reads so
        {"4", nullptr},     // any other text is a key
        {"", nullptr},
        {"missing", nullptr},
    };
    for (const auto& [indexKey, found] : cases) {
        SCOPED_TRACE(indexKey.Is<std::string>() ? indexKey.As<std::string>() : std::string(found));
        if (found == nullptr)
            EXPECT_EQ(FailureOf([&] { fields.Item(indexKey); }), numbers::InvalidCall);
        else
            EXPECT_EQ(Found(indexKey), found);
    }
}

TEST_F(Collections, ItemRefusesWhatIsNoPlace) {
    const std::pair<Value, std::int32_t> cases[] = {
        {0, numbers::SubscriptOutOfRange},    {-3, numbers::SubscriptOutOfRange},
        {0.5, numbers::SubscriptOutOfRange},  {-1e300, numbers::SubscriptOutOfRange},
        {true, numbers::SubscriptOutOfRange}, {Value(), numbers::SubscriptOutOfRange},
        {NullValue(), numbers::TypeMismatch}, {DateValue{2}, numbers::TypeMismatch},
        {ObjectRef(), numbers::ObjectNotSet}, {FaceOf(audit), numbers::MemberNotSupported},
    };
    for (const auto& [indexKey, number] : cases)
        EXPECT_EQ(FailureOf([&] { fields.Item(indexKey); }), number) << static_cast<int>(indexKey.Type());
}

TEST_F(Collections, KeysAreUniqueWithoutRegardToCase) {
    EXPECT_EQ(FailureOf([&] { fields.Add(Field("NOTE")); }), numbers::KeyAlreadyInUse);
    EXPECT_EQ(FailureOf([&] { fields.Add(Field("GRÖßE")); }), numbers::KeyAlreadyInUse);
    EXPECT_EQ(fields.Count(), 4);
    fields.Add({.name = "note"}, false, false, true); // without a key
    EXPECT_EQ(fields.Count(), 5);
    EXPECT_TRUE(fields.Item(5)->IsKey());
    EXPECT_FALSE(fields.Item("note")->IsKey());
}

TEST_F(Collections, KeyIsFixedWhenAdded) {
    fields.Item("note")->SetName("renamed");
    EXPECT_EQ(Found("note"), "renamed");
    EXPECT_NE(FailureOf([&] { fields.Item("renamed"); }), 0);
}

TEST_F(Collections, RemoveClosesTheGap) {
    fields.Remove("GRÖßE");
    EXPECT_EQ(Found(2), "note");
    fields.Remove(1);
    EXPECT_EQ(Found(1), "note");
    EXPECT_EQ(Found("NOTE"), "note");
    fields.Add(Field("id"));
    EXPECT_EQ(Found(3), "id");
    EXPECT_EQ(FailureOf([&] { fields.Remove(4); }), numbers::SubscriptOutOfRange);
    EXPECT_EQ(FailureOf([&] { fields.Remove("gone"); }), numbers::InvalidCall);
}

// Large enough to leave the search in a row, with removals that move every later position.
TEST_F(Collections, ManyElementsStayFindable) {
    mdTables tables;
    constexpr int many = 500;
    for (int i = 0; i < many; ++i)
        tables.Add("Table" + std::to_string(i), i % 2 ? "dbo" : "ann", {});
    for (int i = 0; i < many; i += 5)
        tables.Remove((i % 2 ? "DBO.TABLE" : "ANN.TABLE") + std::to_string(i));
    EXPECT_EQ(tables.Count(), many * 4 / 5);
    int position = 0;
    for (int i = 0; i < many; ++i) {
        const std::string key = (i % 2 ? "dbo.table" : "ann.table") + std::to_string(i);
        if (i % 5 == 0) {
            EXPECT_NE(FailureOf([&] { tables.Item(key); }), 0) << key;
            continue;
        }
        EXPECT_EQ(tables.Item(key), tables.Item(++position)) << key;
    }
    EXPECT_NE(FailureOf([&] { tables.Add("TABLE1", "DBO", {}); }), 0);
}

TEST_F(Collections, IncludesHoldAFileOnce) {
    mdIncludes includes;
    const auto first = includes.Add("a.vbs");
    EXPECT_TRUE(includes.Add("A.VBS", "second")); // files compare exactly
    EXPECT_FALSE(includes.Add("a.vbs"));
    EXPECT_EQ(FailureOf([&] { includes.Add("b.vbs", "SECOND"); }), numbers::KeyAlreadyInUse);
    EXPECT_EQ(includes.Count(), 2);
    EXPECT_EQ(includes.Item(1), first);
    EXPECT_EQ(includes.Item("second")->File(), "A.VBS");
    EXPECT_EQ(includes.Item(3), nullptr);

    includes.Remove(0);
    EXPECT_EQ(includes.Count(), 2);
    EXPECT_EQ(FailureOf([&] { includes.Remove(3); }), numbers::SubscriptOutOfRange);
    includes.Remove(1);
    EXPECT_EQ(includes.Item(1)->File(), "A.VBS");
    includes.Clear();
    EXPECT_EQ(includes.Count(), 0);
    includes.Remove(9); // an empty list does not mind
    EXPECT_TRUE(includes.Add("a.vbs"));
}

// A model that is replaced again and again must not fill the memory with its texts.
TEST_F(Collections, TextsGoWithTheirLastUser) {
    const std::size_t before = InternedText::PoolSize();
    {
        InternedText first(std::string("only here"));
        InternedText second = first;
        first = InternedText("elsewhere");
        EXPECT_EQ(second.str(), "only here");
        EXPECT_EQ(second, InternedText("only here"));
        EXPECT_EQ(InternedText::PoolSize(), before + 2);
    }
    EXPECT_EQ(InternedText::PoolSize(), before);
    EXPECT_EQ(InternedText("").str(), "");
}

} // namespace
} // namespace quillon::tests
