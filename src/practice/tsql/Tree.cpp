#include "practice/tsql/Tree.h"

#include "practice/tsql/Keywords.h"

namespace quillon::practice::tsql {

namespace {
const std::string kNothing;
}

const std::string& Name::Last() const {
    return parts.empty() ? kNothing : parts.back();
}

const std::string& Name::Before(std::size_t back) const {
    return parts.size() > back ? parts[parts.size() - 1 - back] : kNothing;
}

std::string Name::Text() const {
    std::string text;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i > 0)
            text += '.';
        text += parts[i];
    }
    return text;
}

FunctionCall::FunctionCall()
    : Expression(ExpressionKind::Function) {}
FunctionCall::~FunctionCall() = default;
bool FunctionCall::IsCondition() const {
    return name.parts.size() == 1 && SameWord(name.Last(), "UPDATE");
}
Subquery::Subquery()
    : Expression(ExpressionKind::Subquery) {}
Subquery::~Subquery() = default;
InQuery::InQuery()
    : Expression(ExpressionKind::InQuery) {}
InQuery::~InQuery() = default;
Quantified::Quantified()
    : Expression(ExpressionKind::Quantified) {}
Quantified::~Quantified() = default;
Exists::Exists()
    : Expression(ExpressionKind::Exists) {}
Exists::~Exists() = default;
DerivedTable::DerivedTable()
    : TableSource(TableSourceKind::Derived) {}
DerivedTable::~DerivedTable() = default;

const SelectBody& SelectStatement::First() const {
    const QueryBody* body = query.body.get();
    while (body->kind == QueryBodyKind::SetOperation)
        body = As<SetOperation>(*body).left.get();
    return As<SelectBody>(*body);
}

} // namespace quillon::practice::tsql
