// A document that is loaded and saved keeps every byte that nobody asked to change.
#include <gtest/gtest.h>

#include "adapters/files/DiskFiles.h"
#include "adapters/xml/Library.h"
#include "platform/Failure.h"
#include "platform/Platform.h"
#include "support/TemporaryFolder.h"

namespace quillon::tests {
namespace {

// Foreign things on purpose: a declaration, a document type, comments, instructions, attributes in both
// quotes, a self-closing element, references, blanks inside tags, an element nobody knows.
const std::string Foreign = "<?xml version=\"1.0\" encoding='utf-8'?>\r\n"
                            "<!DOCTYPE template [ <!-- > --> <!ENTITY co \"Stone > Mere\"> ]>\r\n"
                            "<!-- by hand -->\r\n"
                            "<template  version='2' note = \"a>b\" >\r\n"
                            "  <header><name>Ann&amp;Bob &co; &#233;</name ><legal/></header>\r\n"
                            "  <?keep me?>\r\n"
                            "  <unknown><deep a=\"1\"/></unknown>\r\n"
                            "  <DDL>\r\n    <![CDATA[SELECT 1\r\nGO\r\n]]>\r\n  </DDL>\r\n"
                            "</template>\r\n"
                            "<!-- end -->\r\n";

class Document : public testing::Test {
  protected:
    // Loads the bytes; false as Load says.
    bool Load(std::string_view bytes) {
        folder.Write("in.xml", bytes);
        return document->Load(folder.SystemPath("in.xml"));
    }
    std::string Saved() {
        document->Save(folder.SystemPath("out.xml"));
        return folder.Read("out.xml");
    }
    XmlNode& First(const std::string& pattern) {
        const auto found = document->GetElementsByTagName(pattern);
        if (found.empty())
            throw std::runtime_error("no " + pattern);
        return *found.front();
    }

    TemporaryFolder folder;
    adapters::DiskFiles files{folder.path().string(), folder.path().string()};
    Platform platform{PlatformServices{.files = &files}};
    std::unique_ptr<XmlDocument> document = adapters::XmlLibrary().NewDocument();
};

// What `text` becomes when one part of it is replaced.
std::string Replaced(std::string text, const std::string& what, const std::string& by) {
    const auto at = text.find(what);
    EXPECT_NE(at, std::string::npos) << what;
    return text.replace(at, what.size(), by);
}

TEST_F(Document, IsSavedAsItWasLoaded) {
    const std::string cases[] = {
        Foreign,
        Replaced(Foreign, "\r\n", "\n"),
        "<a/>",
        "\xEF\xBB\xBF<template><DDL></DDL></template>",
        "<template>no line end, <b>mixed</b> text</template>\n\n",
        "<!DOCTYPE t [ <?it 's?> <!ENTITY a '\">'> <!-- ' --> ]><t a='\">'/>",
        "<x:t><x:y/></x:t>", // nobody says what the prefix stands for
    };
    for (const auto& bytes : cases) {
        ASSERT_TRUE(Load(bytes)) << document->Reason();
        EXPECT_EQ(Saved(), bytes);
    }
}

TEST_F(Document, ChangesOnlyWhatIsSet) {
    ASSERT_TRUE(Load(Foreign));
    EXPECT_EQ(First("header/name").Text(), "Ann&Bob  é"); // an entity of the document's own is not expanded
    EXPECT_EQ(First("DDL/text()").Text(), "SELECT 1\nGO\n");

    First("DDL/text()").SetText(First("DDL/text()").Text());
    First("header/name").SetText("Ann&Bob  é");
    EXPECT_EQ(Saved(), Foreign);

    First("DDL/text()").SetText("a\nb\r\nc ]]> d");
    EXPECT_EQ(Saved(), Replaced(Foreign, "SELECT 1\r\nGO\r\n", "a\r\nb\r\nc ]]]]><![CDATA[> d"));
    First("header/legal").SetText("<1>");
    First("DDL/text()").SetText("SELECT 1\nGO\n");
    EXPECT_EQ(Saved(), Replaced(Foreign, "<legal/>", "<legal>&lt;1&gt;</legal>"));
}

TEST_F(Document, ReadsBackWhatItWrote) {
    ASSERT_TRUE(Load("<t><DDL><![CDATA[]]></DDL></t>"));
    for (const std::string text : {"]]>", "]]]]>>", "<![CDATA[x]]>", "ünïcode 漢字", " blanks \n"}) {
        First("DDL/text()").SetText(text);
        const auto written = Saved();
        ASSERT_TRUE(Load(written));
        EXPECT_EQ(First("DDL/text()").Text(), text) << written;
    }
    First("DDL/text()").SetText("a\r\r\nb\rc\n\r"); // every one of them ends a line
    ASSERT_TRUE(Load(Saved()));
    EXPECT_EQ(First("DDL/text()").Text(), "a\n\nb\nc\n\n");
    for (const char* text : {"a\x01z", "caf\xE9", "\xC3", "\xED\xA0\x80", "\xEF\xBF\xBF", "\xC0\x80"}) {
        EXPECT_THROW(First("DDL/text()").SetText(text), Failure)
            << text; // a file with it could not be opened
        EXPECT_EQ(First("DDL/text()").Text(), "a\n\nb\nc\n\n");
    }
}

TEST_F(Document, FindsByPatternInDocumentOrder) {
    ASSERT_TRUE(Load("<t><x><name>1</name></x><header><name>2</name></header><header><name>3</name></header>"
                     "<DDL>  <!-- c --><![CDATA[s]]></DDL><Views>plain</Views><analyze/></t>"));
    EXPECT_EQ(First("header/name").Text(), "2");
    EXPECT_EQ(document->GetElementsByTagName("name").size(), 3u);
    EXPECT_TRUE(First("DDL/text()").IsCData()); // blanks and comments before it are no text
    EXPECT_FALSE(First("Views/text()").IsCData());
    EXPECT_TRUE(document->GetElementsByTagName("analyze/text()").empty());
    EXPECT_TRUE(document->GetElementsByTagName("ddl").empty()); // names are case-sensitive
    EXPECT_EQ(document->SelectNodes("//t").size(), 1u);
}

TEST_F(Document, AppendsAndRemovesChildren) {
    ASSERT_TRUE(Load("<t>\n<includes >\n <!-- first --><filename>a.vbs</filename>\n</includes>\n</t>"));
    XmlNode& includes = First("includes");
    ASSERT_EQ(includes.ChildNodes().size(), 1u); // a comment is no child

    XmlNode& added = document->CreateElement("filename");
    added.SetText("b&c.vbs");
    includes.AppendChild(added);
    ASSERT_EQ(includes.ChildNodes().size(), 2u);
    EXPECT_EQ(Saved(),
              "<t>\n<includes >\n <!-- first --><filename>a.vbs</filename>\n<filename>b&amp;c.vbs</filename>"
              "</includes>\n</t>");
    includes.RemoveChild(*includes.ChildNodes().front());
    EXPECT_EQ(includes.ChildNodes().front()->Text(), "b&c.vbs");
    EXPECT_EQ(Saved(),
              "<t>\n<includes >\n <!-- first -->\n<filename>b&amp;c.vbs</filename></includes>\n</t>");
}

TEST_F(Document, KeepsTheDeclaredEncoding) {
    const std::string latin =
        "<?xml version=\"1.0\" encoding=\"windows-1252\"?><t><name>caf\xE9 \x80</name></t>";
    ASSERT_TRUE(Load(latin)) << document->Reason();
    EXPECT_EQ(First("t/name").Text(), "café €");
    EXPECT_EQ(Saved(), latin);
    First("t/name").SetText("à");
    EXPECT_EQ(Saved(), Replaced(latin, "caf\xE9 \x80", "\xE0"));

    folder.Write("out.xml", "former");
    First("t/name").SetText("漢"); // windows-1252 cannot hold it: the former file stays
    EXPECT_THROW(Saved(), Failure);
    EXPECT_EQ(folder.Read("out.xml"), "former");

    std::string wide = "\xFF\xFE";
    for (const char c : std::string("<t>\r\n<name>x</name></t>"))
        wide += {c, '\0'};
    ASSERT_TRUE(Load(wide)) << document->Reason();
    EXPECT_EQ(Saved(), wide);
}

TEST_F(Document, RefusesWhatIsNoXmlAndKeepsWhatItHad) {
    ASSERT_TRUE(Load(Foreign));
    std::string nested;
    for (int depth = 0; depth < 10000; ++depth)
        nested += "<a>";
    for (int depth = 0; depth < 10000; ++depth)
        nested += "</a>";
    std::string manyParts = "<t>";
    for (int part = 0; part < 500000; ++part)
        manyParts += "<a/>";
    manyParts += "</t>";
    std::string laughs = "<!DOCTYPE t [<!ENTITY a0 \"ha\">";
    for (int level = 1; level < 30; ++level)
        laughs += "<!ENTITY a" + std::to_string(level) + " \"&a" + std::to_string(level - 1) + ";&a" +
                  std::to_string(level - 1) + ";\">";
    laughs += "]><t>&a29;</t>";
    const std::string bad[] = {"",
                               "plain",
                               "<t>",
                               "<t></T>",
                               "<t><b></t></b>",
                               "<t>&</t>",
                               "<a/><b/>",
                               "<t>\x01</t>",
                               nested,
                               std::string("<t>\0</t>", 8),
                               std::string("<t></t>\0<b>", 11),
                               "<!DOCTYPE t [<!ENTITY e SYSTEM 'file:///etc/passwd'>]><t>&e;",
                               "<?xml version='1.0' encoding='UTF-16'?><t>eight bits</t>",
                               "<?xml version='1.0' encoding='no-such'?><t/>",
                               "<t>caf\xE9</t>",
                               manyParts};
    for (const auto& bytes : bad) {
        EXPECT_FALSE(Load(bytes)) << bytes.substr(0, 60);
        EXPECT_NE(document->Reason(), "");
        EXPECT_EQ(Saved(), Foreign);
    }
    EXPECT_FALSE(document->Load(folder.SystemPath("missing.xml")));
    EXPECT_FALSE(Load(std::string(100u << 20, ' ')));
    if (Load(laughs)) {
        EXPECT_LT(First("t").Text().size(), 100u);
    }
    EXPECT_THROW(document->Save(""), Failure);
}

TEST_F(Document, ReadsNoOtherFile) {
    folder.Write("secret.txt", "secret");
    ASSERT_TRUE(Load("<!DOCTYPE t [<!ENTITY e SYSTEM 'secret.txt'>]><t>[&e;]</t>"));
    EXPECT_EQ(First("t").Text(), "[]");
}

} // namespace
} // namespace quillon::tests
