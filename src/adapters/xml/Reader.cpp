#include "adapters/xml/Reader.h"

#include <charconv>

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon::adapters {
namespace {

constexpr std::string_view SectionOpen = "<![CDATA[";
constexpr std::string_view SectionClose = "]]>";
constexpr const char* Unreadable = "The document cannot be read";

void AppendUtf8(std::string& text, std::uint32_t code) {
    if (code < 0x80) {
        text += static_cast<char>(code);
        return;
    }
    const int more = code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
    static constexpr unsigned leads[] = {0, 0xC0, 0xE0, 0xF0};
    text += static_cast<char>(leads[more] | (code >> (6 * more)));
    for (int shift = 6 * (more - 1); shift >= 0; shift -= 6)
        text += static_cast<char>(0x80 | ((code >> shift) & 0x3F));
}

// What a reference between & and ; stands for.
std::string Referenced(std::string_view name) {
    static constexpr std::pair<std::string_view, std::string_view> predefined[] = {
        {"amp", "&"}, {"lt", "<"}, {"gt", ">"}, {"quot", "\""}, {"apos", "'"}};
    for (const auto& [known, text] : predefined)
        if (name == known)
            return std::string(text);
    std::string text;
    if (name.starts_with("#")) {
        const bool hex = name.starts_with("#x");
        std::uint32_t code = 0;
        const char* begin = name.data() + (hex ? 2 : 1);
        std::from_chars(begin, name.data() + name.size(), code, hex ? 16 : 10);
        AppendUtf8(text, code);
    }
    return text;
}

std::string Decoded(std::string_view source) {
    std::string text;
    std::size_t at = 0;
    for (std::size_t mark; (mark = source.find('&', at)) != std::string_view::npos;) {
        text += WithLineFeeds(source.substr(at, mark - at));
        const auto end = source.find(';', mark);
        if (end == std::string_view::npos)
            throw Failure(numbers::InvalidCall, Unreadable);
        text += Referenced(source.substr(mark + 1, end - mark - 1));
        at = end + 1;
    }
    return text + WithLineFeeds(source.substr(at));
}

class Reader {
  public:
    Reader(std::string_view text, Node& document, const MakeNode& make)
        : m_text(text)
        , m_make(make)
        , m_open{&document} {}

    void Read() {
        while (m_at < m_text.size()) {
            if (m_text[m_at] != '<')
                ReadText();
            else if (StartsWith(SectionOpen))
                ReadSection();
            else if (StartsWith("<!--"))
                ReadOther("#comment", m_at + 4, "-->");
            else if (StartsWith("<?"))
                ReadOther("#instruction", m_at, "?>");
            else if (StartsWith("<!"))
                ReadDeclaration();
            else if (StartsWith("</"))
                ReadCloseTag();
            else
                ReadOpenTag();
        }
        if (m_open.size() > 1)
            throw Failure(numbers::InvalidCall, Unreadable);
    }

  private:
    bool StartsWith(std::string_view what) const { return m_text.substr(m_at).starts_with(what); }

    // Where `close` ends, which is sought from `from` on.
    std::size_t EndOf(std::string_view close, std::size_t from) const {
        const auto found = m_text.find(close, from);
        if (found == std::string_view::npos)
            throw Failure(numbers::InvalidCall, Unreadable);
        return found + close.size();
    }
    // The source from here to the end of `close`.
    std::string_view Take(std::size_t from, std::string_view close) { return TakeTo(EndOf(close, from)); }
    std::string_view TakeTo(std::size_t end) {
        const auto source = m_text.substr(m_at, end - m_at);
        m_at = end;
        return source;
    }

    Node& Add(Node::Kind kind, std::string_view name) {
        Node& node = m_make(kind, std::string(name));
        m_open.back()->Adopt(node);
        return node;
    }

    void ReadText() {
        const auto source = TakeTo(std::min(m_text.find('<', m_at), m_text.size()));
        Add(Node::Kind::Text, "#text").Read(std::string(source), Decoded(source));
    }

    // A section right behind another one is the other half of a text that holds a section's end.
    void ReadSection() {
        const auto source = Take(m_at + SectionOpen.size(), SectionClose);
        const auto text = WithLineFeeds(
            source.substr(SectionOpen.size(), source.size() - SectionOpen.size() - SectionClose.size()));
        const auto& siblings = m_open.back()->children();
        if (!siblings.empty() && siblings.back()->IsCData())
            siblings.back()->Continue(std::string(source), text);
        else
            Add(Node::Kind::CData, "#cdata-section").Read(std::string(source), text);
    }

    void ReadOther(std::string_view name, std::size_t from, std::string_view close) {
        Add(Node::Kind::Other, name).Read(std::string(Take(from, close)), {});
    }

    // A document type: quotes, comments, instructions and an internal subset may hold ">".
    void ReadDeclaration() {
        auto at = m_at;
        for (int depth = 0; at < m_text.size();) {
            const auto rest = m_text.substr(at);
            if (rest.starts_with("<!--"))
                at = EndOf("-->", at + 4);
            else if (rest.starts_with("<?"))
                at = EndOf("?>", at);
            else if (rest[0] == '"' || rest[0] == '\'')
                at = EndOf(rest.substr(0, 1), at + 1);
            else if (++at; rest[0] == '<')
                ++depth;
            else if (rest[0] == '>' && --depth == 0)
                break;
        }
        Add(Node::Kind::Other, "#declaration").Read(std::string(TakeTo(at)), {});
    }

    void ReadCloseTag() {
        const auto source = Take(m_at, ">");
        const auto name = source.substr(2, source.find_first_of(" \t\r\n>", 2) - 2);
        if (m_open.size() == 1 || name != m_open.back()->Name())
            throw Failure(numbers::InvalidCall, Unreadable);
        m_open.back()->ReadCloseTag(std::string(source));
        m_open.pop_back();
    }

    void ReadOpenTag() {
        auto end = m_text.find_first_of("\"'>", m_at);
        while (end < m_text.size() && m_text[end] != '>')
            end = m_text.find_first_of("\"'>", EndOf(m_text.substr(end, 1), end + 1));
        const auto source = TakeTo(EndOf(">", end));
        const bool selfClosing = source.ends_with("/>");
        Node& node = Add(Node::Kind::Element, source.substr(1, source.find_first_of(" \t\r\n/>", 1) - 1));
        node.ReadTags(std::string(source), selfClosing);
        if (!selfClosing)
            m_open.push_back(&node);
    }

    std::string_view m_text;
    const MakeNode& m_make;
    std::size_t m_at = 0;
    std::vector<Node*> m_open; // from the document to the innermost element
};

} // namespace

void ReadNodes(std::string_view text, Node& document, const MakeNode& make) {
    // For the library a document ends at a NUL, whatever stands behind it.
    if (text.find('\0') != std::string_view::npos)
        throw Failure(numbers::InvalidCall, "The file holds a NUL");
    Reader(text, document, make).Read();
}

} // namespace quillon::adapters
