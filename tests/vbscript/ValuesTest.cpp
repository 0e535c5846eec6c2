// Texts, arrays and variants: sharing, copying on write, what crosses to the surroundings.

#include <gtest/gtest.h>

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "vbscript/VbScriptHost.h"
#include "vbscript/machine/Array.h"
#include "vbscript/machine/Heap.h"

namespace quillon::vbscript::tests {
namespace {

TEST(Text, ReadsAndWritesUtf8) {
    struct Case {
        std::string bytes;
        std::u16string characters;
        std::string back;
    };
    const Case cases[] = {
        {"", u"", ""},
        {"abc", u"abc", "abc"},
        {"\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80", u"\u00E4\u20AC\U0001F600",
         "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80"},
        {"a\xFFz", u"a\uFFFDz", "a\xEF\xBF\xBDz"},
        {"\xC3", u"\uFFFD", "\xEF\xBF\xBD"},
        {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD", "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"},
    };
    for (const Case& item : cases) {
        EXPECT_EQ(Text::FromUtf8(item.bytes).View(), item.characters);
        EXPECT_EQ(ToUtf8(item.characters), item.back);
    }
    EXPECT_EQ(ToUtf8(std::u16string{0xD800, u'a'}), "\xEF\xBF\xBD"
                                                    "a")
        << "half a pair";
}

TEST(Text, AppendsInPlaceOnlyToItsOnlyOwner) {
    Text text(u"ab");
    const Text shared = text;
    text.Append(u"c");
    EXPECT_EQ(shared.View(), u"ab");
    EXPECT_EQ(text.View(), u"abc");
    const char16_t* place = text.View().data();
    text.Append(u"d");
    EXPECT_EQ(text.View().data(), place);
    text.Append(text.View());
    EXPECT_EQ(text.View(), u"abcdabcd");
}

TEST(Text, HashFollowsTheCharacters) {
    Text text(u"ab");
    EXPECT_EQ(text.Hash(), Text(u"ab").Hash());
    const std::uint32_t before = text.Hash();
    text.Append(u"c");
    EXPECT_NE(text.Hash(), before);
    EXPECT_EQ(text.Hash(), Text(u"abc").Hash());
}

TEST(Array, IsCopiedWhenOneOfItsOwnersWrites) {
    Variant first(ArrayBuffer::OfCount(2));
    Variant second = first;
    OwnArray(first)->Elements()[0] = Variant(std::int16_t{1});
    EXPECT_TRUE(second.AsArray()->Elements()[0].IsEmpty());
    ArrayBuffer* own = first.AsArray();
    EXPECT_EQ(OwnArray(first), own) << "an only owner writes in place";
}

TEST(Array, FirstSubscriptRunsFastest) {
    const std::int32_t bounds[] = {1, 2};
    const Variant array(ArrayBuffer::Create(bounds));
    const std::int64_t second[] = {1, 0}, third[] = {0, 1}, beyond[] = {2, 0}, few[] = {0};
    EXPECT_EQ(array.AsArray()->IndexOf(second), 1u);
    EXPECT_EQ(array.AsArray()->IndexOf(third), 2u);
    EXPECT_THROW(array.AsArray()->IndexOf(beyond), Failure);
    EXPECT_THROW(array.AsArray()->IndexOf(few), Failure);
}

TEST(Array, DeepNestingIsTakenApart) {
    Variant inner;
    for (int i = 0; i < 200000; ++i) {
        Variant outer(ArrayBuffer::OfCount(1));
        outer.AsArray()->Elements()[0] = std::move(inner);
        inner = std::move(outer);
    }
    EXPECT_THROW(ToValue(inner), Failure);
}

TEST(Heap, GivesBackWhatScriptsTook) {
    const std::size_t before = Heap::Used();
    {
        VbScriptHost host;
        host.SetLanguage("VBScript");
        host.AddCode(
            "Class C : Public A, B : End Class\nDim a(100), i, d\nFor i = 0 To 100 : Set a(i) = New C : "
            "a(i).A = \"x\" & i : "
            "Set a(i).B = a(i) : Next\nSet d = CreateObject(\"Scripting.Dictionary\") : d.Add \"self\", d");
        EXPECT_GT(Heap::Used(), before + 100 * 32);
    }
    EXPECT_EQ(Heap::Used(), before);
}

TEST(Heap, RefusesWhatIsBeyondTheLimit) {
    const std::size_t limit = Heap::Limit();
    Heap::SetLimit(Heap::Used() + 1000);
    EXPECT_THROW(Text::OfLength(1000), Failure);
    EXPECT_THROW(ArrayBuffer::OfCount(1000), Failure);
    EXPECT_NO_THROW(Text::OfLength(100));
    Heap::SetLimit(limit);
}

} // namespace
} // namespace quillon::vbscript::tests
