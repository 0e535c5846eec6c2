#include "adapters/catalogue/CatalogueLink.h"

#include "adapters/odbc/ResultStream.h"
#include "platform/Conversion.h"
#include "platform/Failure.h"
#include "platform/Object.h"

namespace quillon::adapters {
namespace {

constexpr int LoginTimeout = 15; // seconds, as for data connections
constexpr const char* Home = "master";
constexpr int QuestionTimeout = 300; // a large database on a busy server

std::string Doubled(const std::string& text, char mark) {
    std::string doubled;
    for (const char c : text)
        doubled.append(c == mark ? 2 : 1, c);
    return doubled;
}

} // namespace

std::string AnswerRow::Text() {
    const Value& value = Next();
    if (const auto* text = value.If<std::string>())
        return *text;
    return value.IsNull() ? std::string() : conversion::ToText(value);
}

std::int32_t AnswerRow::Number() {
    const Value& value = Next();
    if (const auto* number = value.If<std::int32_t>())
        return *number;
    return value.IsNull() ? 0 : conversion::ToLong(value);
}

bool AnswerRow::Flag() {
    const Value& value = Next();
    return !value.IsNull() && conversion::ToBoolean(value);
}

DateValue AnswerRow::Date() {
    const Value& value = Next();
    return value.IsNull() ? DateValue{} : conversion::ToDate(value);
}

CatalogueLink::CatalogueLink(ConnectionParts target, std::size_t& roundTrips)
    : m_roundTrips(roundTrips) {
    target.database = Home;
    m_link = std::make_shared<Link>(target.DriverText(), LoginTimeout,
                                    std::make_shared<std::vector<data::Error>>());
}

void CatalogueLink::Ask(const std::string& database, const std::string& sql,
                        const std::vector<Reader>& readers) {
    const bool isElsewhere = !database.empty() && database != Home;
    if (!isElsewhere)
        return Read(sql, readers);
    const std::string home = "USE " + Quoted(Home);
    try {
        Read("USE " + Quoted(database) + ";\n" + sql + ";\n" + home, readers);
    } catch (...) {
        // The failure may have come before the way back; a link that is broken has no more to say than that.
        try {
            Read(home, {});
        } catch (const Failure&) {
        }
        throw;
    }
}

void CatalogueLink::Read(const std::string& text, const std::vector<Reader>& readers) {
    ++m_roundTrips;
    ResultStream answers(m_link);
    answers.Execute(text, QuestionTimeout);
    std::size_t result = 0;
    do {
        if (!answers.HasRows() || result >= readers.size())
            continue;
        std::vector<Value> values;
        while (answers.Fetch(values)) {
            AnswerRow row(values);
            readers[result](row);
        }
        ++result;
    } while (answers.MoreResults());
}

std::string Quoted(const std::string& name) {
    return "[" + Doubled(name, ']') + "]";
}

std::string Quoted(const std::string& owner, const std::string& name) {
    return Quoted(owner) + "." + Quoted(name);
}

std::string Literal(const std::string& text) {
    return "N'" + Doubled(text, '\'') + "'";
}

} // namespace quillon::adapters
