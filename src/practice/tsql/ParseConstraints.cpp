#include "practice/tsql/ParseDefinitions.h"
#include "practice/tsql/ParseExpressions.h"
#include "practice/tsql/ParseNames.h"

namespace quillon::practice::tsql {

namespace {

ReferentialAction ParseReferentialAction(ParseState& state) {
    if (state.Accept(Keyword::Cascade))
        return ReferentialAction::Cascade;
    if (state.Accept(Keyword::Set)) {
        if (state.Accept(Keyword::Null))
            return ReferentialAction::SetNull;
        state.Expect(Keyword::Default);
        return ReferentialAction::SetDefault;
    }
    state.Expect("NO");
    state.Expect("ACTION");
    return ReferentialAction::NoAction;
}

void ParseReferences(ParseState& state, ConstraintDefinition& constraint) {
    constraint.kind = ConstraintKind::ForeignKey;
    state.Expect(Keyword::References);
    constraint.referencedTable = ParseName(state, 3);
    if (state.Is(Symbol::LeftParen))
        constraint.referencedColumns = ParseNameList(state);
    for (;;) {
        if (state.Is(Keyword::On) && state.Is(Keyword::Delete, 1)) {
            state.Take();
            state.Take();
            constraint.onDelete = ParseReferentialAction(state);
        } else if (state.Is(Keyword::On) && state.Is(Keyword::Update, 1)) {
            state.Take();
            state.Take();
            constraint.onUpdate = ParseReferentialAction(state);
        } else if (state.Is(Keyword::Not) && state.Is(Keyword::For, 1)) {
            state.Take();
            state.Take();
            state.Expect(Keyword::Replication);
            constraint.notForReplication = true;
        } else {
            return;
        }
    }
}

void ParseKey(ParseState& state, ConstraintDefinition& constraint, bool ofColumn) {
    constraint.kind = state.Is(Keyword::Primary) ? ConstraintKind::PrimaryKey : ConstraintKind::Unique;
    if (state.Accept(Keyword::Primary))
        state.Expect(Keyword::Key);
    else
        state.Expect(Keyword::Unique);
    constraint.clustered = AcceptClustered(state);
    if (!ofColumn || state.Is(Symbol::LeftParen))
        constraint.columns = ParseIndexColumns(state);
    ParseStorageOptions(state, constraint.options, OptionPlace::Index, "CREATE TABLE");
}

void ParseForeignKey(ParseState& state, ConstraintDefinition& constraint) {
    if (state.Accept(Keyword::Foreign)) {
        state.Expect(Keyword::Key);
        if (state.Is(Symbol::LeftParen))
            constraint.columns = ParseIndexColumns(state);
    }
    ParseReferences(state, constraint);
}

void ParseCheck(ParseState& state, ConstraintDefinition& constraint) {
    constraint.kind = ConstraintKind::Check;
    state.Expect(Keyword::Check);
    if (state.Accept(Keyword::Not)) {
        state.Expect(Keyword::For);
        state.Expect(Keyword::Replication);
        constraint.notForReplication = true;
    }
    constraint.expressionText.begin = state.At().offset;
    state.Expect(Symbol::LeftParen);
    constraint.expression = ParseCondition(state);
    state.Expect(Symbol::RightParen);
    constraint.expressionText.end = state.LastEnd();
}

void ParseDefault(ParseState& state, ConstraintDefinition& constraint, bool ofColumn) {
    constraint.kind = ConstraintKind::Default;
    state.Expect(Keyword::Default);
    constraint.expressionText.begin = state.At().offset;
    constraint.expression = ParseValue(state);
    constraint.expressionText.end = state.LastEnd();
    if (!ofColumn) {
        state.Expect(Keyword::For);
        constraint.forColumn = ParseIdentifier(state);
    }
    if (state.Is(Keyword::With) && state.Is(Keyword::Values, 1)) {
        state.Take();
        state.Take();
        constraint.withValues = true;
    }
}

/// ON filegroup, but not the ON DELETE and ON UPDATE of a key that follows in the same column.
void SkipFileGroups(ParseState& state) {
    while (state.Is(Keyword::On) && !state.Is(Keyword::Delete, 1) && !state.Is(Keyword::Update, 1)) {
        state.Take();
        if (!state.Accept(Keyword::Primary))
            ParseIdentifierOrText(state);
        if (state.Is(Symbol::LeftParen))
            state.Refuse("partitions", state.At());
    }
}

} // namespace

ConstraintDefinition ParseConstraint(ParseState& state, std::string name, Position position, bool ofColumn) {
    ConstraintDefinition constraint;
    constraint.position = position;
    constraint.name = std::move(name);
    if (state.Is(Keyword::Primary) || state.Is(Keyword::Unique))
        ParseKey(state, constraint, ofColumn);
    else if (state.Is(Keyword::Foreign) || (ofColumn && state.Is(Keyword::References)))
        ParseForeignKey(state, constraint);
    else if (state.Is(Keyword::Check))
        ParseCheck(state, constraint);
    else if (state.Is(Keyword::Default))
        ParseDefault(state, constraint, ofColumn);
    else
        state.FailHere();
    return constraint;
}

std::optional<bool> AcceptClustered(ParseState& state) {
    if (state.Accept(Keyword::Clustered))
        return true;
    if (state.Accept(Keyword::NonClustered))
        return false;
    if (state.Is("HASH") && (state.Is(Keyword::With, 1) || state.Is(Symbol::LeftParen, 1)))
        state.Refuse("hash indexes", state.At());
    return std::nullopt;
}

std::vector<IndexColumn> ParseIndexColumns(ParseState& state) {
    std::vector<IndexColumn> columns;
    state.Expect(Symbol::LeftParen);
    do {
        IndexColumn column;
        column.position = state.At();
        column.name = ParseIdentifier(state);
        column.descending = state.Accept(Keyword::Desc);
        if (!column.descending)
            state.Accept(Keyword::Asc);
        columns.push_back(std::move(column));
    } while (state.Accept(Symbol::Comma));
    state.Expect(Symbol::RightParen);
    return columns;
}

void ParseStorageOptions(ParseState& state, std::vector<OptionSetting>& options, OptionPlace place,
                         std::string_view words) {
    const bool bracket = state.Is(Symbol::LeftParen, 1);
    const Position at = state.At();
    if (state.Is(Keyword::With) && !state.Is(Keyword::Values, 1) && !state.Is(Keyword::Check, 1) &&
        !state.Is(Keyword::NoCheck, 1)) {
        state.Take();
        if (bracket) {
            options = ParseSettings(state);
        } else {
            do {
                options.push_back(ParseSetting(state));
            } while (state.Accept(Symbol::Comma));
        }
        CheckOptions(state, place, options, at, words);
    }
    SkipFileGroups(state);
    if (state.Is("TEXTIMAGE_ON") || state.Is("FILESTREAM_ON")) {
        state.Take();
        if (!state.Accept(Keyword::Primary))
            ParseIdentifierOrText(state);
    }
}

void ParseIndexTail(ParseState& state, IndexDefinition& index) {
    if (state.Accept("INCLUDE"))
        index.included = ParseNameList(state);
    if (state.Accept(Keyword::Where)) {
        index.filterText.begin = state.At().offset;
        index.filter = ParseCondition(state);
        index.filterText.end = state.LastEnd();
    }
    ParseStorageOptions(state, index.options, OptionPlace::Index, "CREATE INDEX");
}

IndexDefinition ParseInlineIndex(ParseState& state) {
    IndexDefinition index;
    index.position = state.At();
    state.Expect(Keyword::Index);
    index.name = ParseIdentifier(state);
    index.unique = state.Accept(Keyword::Unique);
    index.clustered = AcceptClustered(state).value_or(false);
    if (state.Is(Symbol::LeftParen))
        index.columns = ParseIndexColumns(state);
    ParseIndexTail(state, index);
    return index;
}

} // namespace quillon::practice::tsql
