// FOR XML RAW and PATH: the rows of a query as one text.
#include "practice/statements/translate/Translator.h"

#include "practice/statements/translate/XmlWriter.h"
#include "practice/values/SqlError.h"
#include "practice/values/Unicode.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace quillon::practice {

namespace {

// The name that a client sees for the one column of such a result.
constexpr const char* resultName = "XML_F52E2B61-18A1-11d1-B105-00805F49916B";
constexpr const char* nilNamespace = " xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"";

enum class Part : std::uint8_t { Element, Attribute, Text, Words };

// Where a column's values stand within the row's element.
struct XmlColumn {
    std::vector<std::string> elements; // from the outside in; PATH has several for a/b
    std::string attribute;
    Part part = Part::Text;
    bool isXml = false; // its values are XML already
};

struct Shape {
    std::string element; // of a row; empty for none
    std::string root;
    bool nil = false;   // NULL makes an element that says so
    bool apart = false; // neighbours share no elements: RAW
    std::vector<XmlColumn> columns;
};

std::size_t CommonDepth(const std::vector<std::string>& left, const std::vector<std::string>& right) {
    const auto [end, other] = std::mismatch(left.begin(), left.end(), right.begin(), right.end());
    return static_cast<std::size_t>(end - left.begin());
}

class XmlRows : public RowAggregateNode::State {
  public:
    explicit XmlRows(const Shape& shape)
        : m_shape(shape)
        , m_writer(shape.nil ? nilNamespace : "") {}

    void Step(std::span<const Datum> row) override {
        if (!std::exchange(m_begun, true) && !m_shape.root.empty())
            m_writer.Open(m_shape.root);
        const std::size_t outside = m_writer.Depth();
        if (!m_shape.element.empty())
            m_writer.Open(m_shape.element);
        const std::size_t base = m_writer.Depth();
        std::vector<std::string> open;
        bool afterWords = false;
        for (std::size_t i = 0; i < row.size(); ++i) {
            const XmlColumn& column = m_shape.columns[i];
            // Neighbours share the elements that their paths have in common.
            open.resize(m_shape.apart ? 0 : CommonDepth(open, column.elements));
            m_writer.CloseTo(base + open.size());
            const bool words = column.part == Part::Words && !row[i].IsNull();
            if (words && afterWords)
                m_writer.Text(" ");
            afterWords = words;
            Write(row[i], column, open);
        }
        m_writer.CloseTo(outside);
    }

    Datum Result() override {
        const SqlType type = NVarChar(maxLength);
        if (!m_begun)
            return Datum::Null(type);
        m_writer.CloseTo(0);
        return Datum::Text(type, m_writer.Written());
    }

  private:
    void Write(const Datum& value, const XmlColumn& column, std::vector<std::string>& open) {
        const bool nil = value.IsNull() && m_shape.nil && column.part == Part::Element;
        if (value.IsNull() && !nil)
            return;
        for (; open.size() < column.elements.size(); open.push_back(column.elements[open.size()]))
            m_writer.Open(column.elements[open.size()]);
        if (nil)
            m_writer.Attribute("xsi:nil", "true");
        else if (column.part == Part::Attribute)
            m_writer.Attribute(column.attribute, XmlValue(value));
        else if (column.isXml)
            m_writer.Xml(XmlValue(value));
        else
            m_writer.Text(XmlValue(value));
    }

    const Shape m_shape;
    XmlWriter m_writer;
    bool m_begun = false;
};

// The character that may not stand in the name of an element, as messages show it.
struct WrongCharacter {
    std::string shown, code;
};

std::optional<WrongCharacter> WrongIn(const std::string& name) {
    const char32_t wrong = WrongInXmlName(name);
    if (wrong == 0)
        return std::nullopt;
    WrongCharacter character;
    unicode::Append(character.shown, wrong);
    std::array<char, 16> code{};
    std::snprintf(code.data(), code.size(), "0x%04X", static_cast<unsigned>(wrong));
    character.code = code.data();
    return character;
}

void RequireStep(const std::string& step, const std::string& name) {
    if (step.empty())
        throw SqlError(6849, {name});
    if (const auto wrong = WrongIn(step))
        throw SqlError(6850, {"Column", name, wrong->shown, wrong->code});
}

void RequireTags(const Shape& shape, const tsql::ForXml& form) {
    if (const auto wrong = WrongIn(shape.element))
        throw SqlError(6856, {wrong->shown, wrong->code});
    if (const auto wrong = WrongIn(shape.root))
        throw SqlError(6857, {wrong->shown, wrong->code});
    if (form.root && shape.root.empty())
        throw SqlError(6861);
}

// a/b is an element in another, @a an attribute; an empty name, *, node() and text() are text alone, and
// data() is, with blanks between neighbours.
XmlColumn PathColumn(const std::string& name) {
    XmlColumn column;
    std::size_t begin = 0;
    for (std::size_t slash = name.find('/'); slash != std::string::npos; slash = name.find('/', begin)) {
        column.elements.push_back(name.substr(begin, slash - begin));
        RequireStep(column.elements.back(), name);
        begin = slash + 1;
    }
    const std::string last = name.substr(begin);
    if (last == "comment()" || last.starts_with("processing-instruction("))
        throw SqlError::NotSupported("FOR XML PATH with " + last);
    if (last == "data()") {
        column.part = Part::Words;
    } else if (last.starts_with('@')) {
        column.part = Part::Attribute;
        column.attribute = last.substr(1);
        RequireStep(column.attribute, name);
    } else if (!name.empty() && last != "text()" && last != "*" && last != "node()") {
        RequireStep(last, name);
        column.part = Part::Element;
        column.elements.push_back(last);
    }
    return column;
}

XmlColumn RawColumn(const std::string& name, bool elements) {
    if (name.empty())
        throw SqlError(6809);
    XmlColumn column;
    column.part = elements ? Part::Element : Part::Attribute;
    (elements ? column.elements.emplace_back() : column.attribute) = XmlName(name);
    return column;
}

// Attributes need an element to stand in, before anything else in it, and each but once.
void RequireAttributePlaces(const Shape& shape, const std::vector<OutputColumn>& columns) {
    std::vector<std::string> open;
    std::vector<std::vector<std::string>> attributes{1};
    std::vector<bool> filled{false};
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const XmlColumn& column = shape.columns[i];
        open.resize(CommonDepth(open, column.elements));
        filled.resize(open.size() + 1);
        attributes.resize(open.size() + 1);
        for (; open.size() < column.elements.size(); open.push_back(column.elements[open.size()])) {
            filled.back() = true;
            filled.push_back(false);
            attributes.emplace_back();
        }
        if (column.part != Part::Attribute) {
            filled.back() = true;
            continue;
        }
        if (column.isXml)
            throw SqlError(6851, {columns[i].name});
        if (column.elements.empty() && shape.element.empty())
            throw SqlError(6864);
        if (filled.back())
            throw SqlError(6852, {columns[i].name});
        std::vector<std::string>& names = attributes.back();
        if (std::find(names.begin(), names.end(), column.attribute) != names.end())
            throw SqlError(6810, {column.attribute});
        names.push_back(column.attribute);
    }
}

Shape ShapeOf(const tsql::ForXml& form, const std::vector<OutputColumn>& columns) {
    const bool raw = form.mode == tsql::ForXml::Mode::Raw;
    Shape shape;
    shape.element = form.element.value_or("row");
    shape.root = form.root.value_or("");
    shape.nil = form.nilElements;
    shape.apart = raw;
    RequireTags(shape, form);
    for (const OutputColumn& column : columns) {
        if (raw && column.type.IsBinary() && !form.base64)
            throw SqlError(6829, {column.name});
        shape.columns.push_back(raw ? RawColumn(column.name, form.elements) : PathColumn(column.name));
        shape.columns.back().isXml = column.type.id == TypeId::Xml;
    }
    RequireAttributePlaces(shape, columns);
    return shape;
}

} // namespace

QuerySql Translator::AsFor(const tsql::Query& query, QuerySql inner) {
    const tsql::ForXml& form = *query.forXml;
    if (form.mode == tsql::ForXml::Mode::Auto)
        throw SqlError::NotSupported("FOR XML AUTO");
    const Shape shape = ShapeOf(form, inner.columns);
    std::vector<SqlType> types;
    std::string key = form.mode == tsql::ForXml::Mode::Raw ? "raw " : "path ";
    key += std::string(form.elements ? "elements " : "") + (shape.nil ? "nil " : "") + shape.element + " " +
           shape.root;
    std::string arguments;
    for (const OutputColumn& column : inner.columns) {
        types.push_back(column.type);
        key += " " + TypeKey(column.type) + " " + column.name;
        arguments += (arguments.empty() ? "o" : ", o") + std::to_string(types.size());
    }
    const SqlType result = form.type ? SimpleType(TypeId::Xml) : WithCollation(NVarChar(maxLength));
    const std::string function = m_engine.functions.RowAggregate(key + (form.type ? " xml" : ""), [&] {
        return RowAggregateNode{types, result, [shape] { return std::make_unique<XmlRows>(shape); }};
    });
    QuerySql text;
    text.sql = "SELECT " + function + "(" + arguments + ") AS o1 FROM (" + inner.sql + ")";
    OutputColumn column;
    column.name = resultName;
    column.type = result;
    text.columns.push_back(column);
    text.oneRow = true;
    return text;
}

} // namespace quillon::practice
