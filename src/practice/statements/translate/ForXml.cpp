// FOR XML RAW and PATH: the rows of a query as one text.
#include "practice/statements/translate/Translator.h"

#include "practice/values/SqlError.h"

namespace quillon::practice {

namespace {

// The name that a client sees for the one column of such a result.
constexpr const char* resultName = "XML_F52E2B61-18A1-11d1-B105-00805F49916B";

std::string Escape(std::string_view text, bool attribute) {
    std::string escaped;
    for (const char c : text) {
        switch (c) {
        case '&': escaped += "&amp;"; break;
        case '<': escaped += "&lt;"; break;
        case '>': escaped += "&gt;"; break;
        case '"': escaped += attribute ? "&quot;" : "\""; break;
        case '\r': escaped += "&#x0D;"; break;
        case '\n': escaped += attribute ? "&#x0A;" : "\n"; break;
        default: escaped += c; break;
        }
    }
    return escaped;
}

std::string ValueText(const Datum& value) {
    constexpr int isoStyle = 126;
    if (value.Type().id == TypeId::Bit)
        return value.Integer() != 0 ? "1" : "0";
    return ToText(value, value.Type().IsMoment() ? isoStyle : noStyle);
}

struct Shape {
    bool attributes = false; // RAW without ELEMENTS
    std::string element;     // of a row; empty for none
    std::string root;
    std::vector<std::string> names; // of the columns; empty: text alone
    std::vector<bool> xml;          // values that are XML already
};

class XmlText : public RowAggregateNode::State {
  public:
    explicit XmlText(const Shape& shape)
        : m_shape(shape) {}

    void Step(std::span<const Datum> row) override {
        m_rows = true;
        std::string attributes;
        std::string content;
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (row[i].IsNull())
                continue;
            const std::string& name = m_shape.names[i];
            const bool attribute = m_shape.attributes || (!name.empty() && name[0] == '@');
            const std::string text =
                m_shape.xml[i] ? ValueText(row[i]) : Escape(ValueText(row[i]), attribute);
            if (attribute)
                attributes += " " + (name[0] == '@' ? name.substr(1) : name) + "=\"" + text + "\"";
            else
                content += Nested(name, text);
        }
        if (m_shape.element.empty())
            m_text += content;
        else if (content.empty())
            m_text += "<" + m_shape.element + attributes + "/>";
        else
            m_text += "<" + m_shape.element + attributes + ">" + content + "</" + m_shape.element + ">";
    }

    Datum Result() override {
        const SqlType type = NVarChar(maxLength);
        if (!m_rows)
            return Datum::Null(type);
        return Datum::Text(type, m_shape.root.empty()
                                     ? m_text
                                     : "<" + m_shape.root + ">" + m_text + "</" + m_shape.root + ">");
    }

  private:
    // a/b makes elements inside of one another; an empty name, text(), data() and * make text alone.
    static std::string Nested(const std::string& name, const std::string& text) {
        if (name.empty() || name == "text()" || name == "data()" || name == "*" || name == "node()")
            return text;
        const std::size_t slash = name.find('/');
        if (slash == std::string::npos)
            return "<" + name + ">" + text + "</" + name + ">";
        const std::string outer = name.substr(0, slash);
        return "<" + outer + ">" + Nested(name.substr(slash + 1), text) + "</" + outer + ">";
    }

    Shape m_shape;
    std::string m_text;
    bool m_rows = false;
};

} // namespace

QuerySql Translator::AsFor(const tsql::Query& query, QuerySql inner) {
    const tsql::ForXml& form = *query.forXml;
    if (form.mode == tsql::ForXml::Mode::Auto)
        throw SqlError::NotSupported("FOR XML AUTO");
    Shape shape;
    shape.attributes = form.mode == tsql::ForXml::Mode::Raw && !form.elements;
    shape.element = form.element.value_or("row");
    shape.root = form.root.value_or("");
    std::vector<SqlType> types;
    std::string key = shape.attributes ? "raw " : "path ";
    key += shape.element + " " + shape.root;
    std::string arguments;
    for (const OutputColumn& column : inner.columns) {
        if (form.mode == tsql::ForXml::Mode::Raw && column.name.empty())
            throw SqlError(6809);
        types.push_back(column.type);
        shape.names.push_back(column.name);
        shape.xml.push_back(column.type.id == TypeId::Xml);
        key += " " + TypeKey(column.type) + " " + column.name;
        arguments += (arguments.empty() ? "o" : ", o") + std::to_string(types.size());
    }
    const SqlType result = form.type ? SimpleType(TypeId::Xml) : WithCollation(NVarChar(maxLength));
    const std::string function = m_engine.functions.RowAggregate(key + (form.type ? " xml" : ""), [&] {
        return RowAggregateNode{types, result, [shape] { return std::make_unique<XmlText>(shape); }};
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
