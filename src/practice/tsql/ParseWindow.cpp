#include "practice/tsql/ParseExpressions.h"
#include "practice/tsql/ParseNames.h"
#include "practice/tsql/ParseQueries.h"

namespace quillon::practice::tsql {

namespace {

FrameBound ParseFrameBound(ParseState& state, ExpressionPtr& count) {
    if (state.Accept(Keyword::Current)) {
        state.Expect("ROW");
        return FrameBound::CurrentRow;
    }
    const bool unbounded = state.Accept("UNBOUNDED");
    if (!unbounded) {
        if (!state.Is(TokenKind::Integer))
            state.FailHere();
        count = ParseLiteral(state);
    }
    if (state.Accept("PRECEDING"))
        return unbounded ? FrameBound::UnboundedPreceding : FrameBound::Preceding;
    state.Expect("FOLLOWING");
    return unbounded ? FrameBound::UnboundedFollowing : FrameBound::Following;
}

WindowFrame ParseFrame(ParseState& state) {
    WindowFrame frame;
    frame.rows = TakeWord(state) == "ROWS";
    if (state.Accept(Keyword::Between)) {
        frame.start = ParseFrameBound(state, frame.startCount);
        state.Expect(Keyword::And);
        frame.end = ParseFrameBound(state, frame.endCount);
    } else {
        frame.start = ParseFrameBound(state, frame.startCount);
    }
    return frame;
}

} // namespace

std::unique_ptr<OverClause> ParseOver(ParseState& state) {
    auto over = std::make_unique<OverClause>();
    state.Expect(Symbol::LeftParen);
    if (state.Accept("PARTITION")) {
        state.Expect(Keyword::By);
        over->partitionBy = ParseValues(state);
    }
    over->orderBy = ParseOrderBy(state);
    if (state.Is("ROWS") || state.Is("RANGE"))
        over->frame = ParseFrame(state);
    state.Expect(Symbol::RightParen);
    return over;
}

} // namespace quillon::practice::tsql
