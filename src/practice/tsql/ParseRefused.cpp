#include "practice/tsql/ParseRefused.h"

namespace quillon::practice::tsql {

namespace {

/// Whether a statement may begin with the word. WITH and THROW need a semicolon before them.
bool BeginsStatement(Keyword keyword) {
    switch (keyword) {
    case Keyword::Alter:
    case Keyword::Backup:
    case Keyword::Begin:
    case Keyword::Break:
    case Keyword::Bulk:
    case Keyword::Checkpoint:
    case Keyword::Close:
    case Keyword::Commit:
    case Keyword::Continue:
    case Keyword::Create:
    case Keyword::Dbcc:
    case Keyword::Deallocate:
    case Keyword::Declare:
    case Keyword::Delete:
    case Keyword::Deny:
    case Keyword::Drop:
    case Keyword::Dump:
    case Keyword::Else:
    case Keyword::End:
    case Keyword::Exec:
    case Keyword::Execute:
    case Keyword::Fetch:
    case Keyword::Goto:
    case Keyword::Grant:
    case Keyword::If:
    case Keyword::Insert:
    case Keyword::Kill:
    case Keyword::Load:
    case Keyword::Merge:
    case Keyword::Open:
    case Keyword::Print:
    case Keyword::RaisError:
    case Keyword::ReadText:
    case Keyword::Reconfigure:
    case Keyword::Restore:
    case Keyword::Return:
    case Keyword::Revoke:
    case Keyword::Rollback:
    case Keyword::Save:
    case Keyword::Select:
    case Keyword::Set:
    case Keyword::SetUser:
    case Keyword::Shutdown:
    case Keyword::Truncate:
    case Keyword::Update:
    case Keyword::UpdateText:
    case Keyword::Use:
    case Keyword::WaitFor:
    case Keyword::While:
    case Keyword::WriteText: return true;
    default: return false;
    }
}

/// Whether the tokens ahead may be the next statement's, or a part of this one.
bool MayBegin(const ParseState& state) {
    const bool word = state.Is("ENABLE") || state.Is("DISABLE");
    return word || BeginsStatement(state.Peek().keyword) || (state.IsName() && state.Is(Symbol::Colon, 1));
}

/// These have none of those words inside.
bool EndsBeforeNext(Keyword keyword) {
    return keyword == Keyword::Backup || keyword == Keyword::Restore || keyword == Keyword::Dump ||
           keyword == Keyword::Load || keyword == Keyword::Shutdown || keyword == Keyword::ReadText ||
           keyword == Keyword::WriteText || keyword == Keyword::UpdateText;
}

/// Takes the tokens of the statement. False where a word among them may be the next statement's or this
/// one's.
bool SkipStatement(ParseState& state) {
    const bool endsBeforeNext = EndsBeforeNext(state.Peek().keyword);
    int depth = 0;
    for (state.Take(); !state.Is(TokenKind::End) && !(depth == 0 && state.Is(Symbol::Semicolon));
         state.Take()) {
        depth += state.Is(Symbol::LeftParen) ? 1 : state.Is(Symbol::RightParen) ? -1 : 0;
        if (depth == 0 && MayBegin(state))
            return endsBeforeNext;
    }
    return true;
}

} // namespace

StatementPtr ParseOrRefuse(ParseState& state, StatementPtr (*parse)(ParseState&)) {
    const ParseState::Place place = state.Here();
    const bool declares = state.Is(Keyword::Declare); // without it the variables are missing further on
    try {
        return parse(state);
    } catch (const SqlError& refusal) {
        if (refusal.number != notSupportedNumber || declares)
            throw;
        state.GoBack(place);
        if (!SkipStatement(state))
            throw;
        auto statement = std::make_unique<RefusedStatement>();
        statement->position = place.at;
        statement->refusal = refusal.text;
        return statement;
    }
}

} // namespace quillon::practice::tsql
