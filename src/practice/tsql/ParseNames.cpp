#include "practice/tsql/ParseNames.h"

namespace quillon::practice::tsql {

std::string ParseIdentifier(ParseState& state) {
    if (!state.IsName())
        state.FailHere();
    return state.Value(state.Take());
}

std::string ParseIdentifierOrText(ParseState& state) {
    return state.IsString() ? ParseText(state) : ParseIdentifier(state);
}

Name ParseName(ParseState& state, std::size_t most) {
    Name name;
    name.position = state.At();
    while (state.Accept(Symbol::Point)) // a name may leave out its first parts and keep their points
        continue;
    name.parts.push_back(ParseIdentifier(state));
    while (state.Is(Symbol::Point)) {
        if (state.Is(Symbol::Star, 1) || state.Is(TokenKind::PseudoColumn, 1))
            break;
        state.Take();
        // Two points in a row leave out the part between them.
        name.parts.push_back(state.Is(Symbol::Point) ? std::string() : ParseIdentifier(state));
    }
    if (name.parts.size() > most)
        state.Fail(117, {"object", name.Text(), std::to_string(most - 1)}, name.position);
    return name;
}

std::vector<std::string> ParseNameList(ParseState& state) {
    std::vector<std::string> names;
    state.Expect(Symbol::LeftParen);
    do {
        names.push_back(ParseIdentifier(state));
    } while (state.Accept(Symbol::Comma));
    state.Expect(Symbol::RightParen);
    return names;
}

std::vector<Name> ParseNames(ParseState& state, std::size_t most) {
    std::vector<Name> names;
    do {
        names.push_back(ParseName(state, most));
    } while (state.Accept(Symbol::Comma));
    return names;
}

std::string ParseVariableName(ParseState& state) {
    if (!state.Is(TokenKind::Variable))
        state.FailHere();
    return state.Value(state.Take());
}

std::string ParseText(ParseState& state) {
    if (!state.IsString())
        state.FailHere();
    return state.Value(state.Take());
}

std::string ParseSignedDigits(ParseState& state) {
    std::string digits;
    if (state.Accept(Symbol::Minus))
        digits = "-";
    else
        state.Accept(Symbol::Plus);
    if (!state.Is(TokenKind::Integer) && !state.Is(TokenKind::Decimal))
        state.FailHere();
    return digits + state.Value(state.Take());
}

std::string TakeWord(ParseState& state) {
    if (!state.Is(TokenKind::Identifier))
        state.FailHere();
    return UpperWord(state.Value(state.Take()));
}

void SkipBrackets(ParseState& state) {
    state.Expect(Symbol::LeftParen);
    for (int depth = 1; depth > 0;) {
        if (state.Is(TokenKind::End))
            state.FailHere();
        const Token token = state.Take();
        depth += token.symbol == Symbol::LeftParen ? 1 : token.symbol == Symbol::RightParen ? -1 : 0;
    }
}

OptionSetting ParseSetting(ParseState& state) {
    OptionSetting setting;
    setting.name = TakeWord(state);
    const bool given = state.Accept(Symbol::Equal);
    if (state.Is(Symbol::LeftParen)) {
        SkipBrackets(state);
    } else if (state.IsString()) {
        setting.value = ParseText(state);
    } else if (state.Is(TokenKind::Integer) || state.Is(TokenKind::Decimal) || state.IsName() ||
               state.Is(Keyword::On) || state.Is(Keyword::Off)) {
        setting.value = state.Value(state.Take());
        if (state.Is(Keyword::Percent) || state.Is("MINUTES")) // FILLFACTOR and the like may have a unit
            state.Take();
        if (given && state.Is(Symbol::LeftParen)) // ON (its own options)
            SkipBrackets(state);
    } else if (given) {
        setting.value = TakeWord(state);
    }
    return setting;
}

std::vector<OptionSetting> ParseSettings(ParseState& state) {
    std::vector<OptionSetting> settings;
    state.Expect(Symbol::LeftParen);
    do {
        settings.push_back(ParseSetting(state));
    } while (state.Accept(Symbol::Comma));
    state.Expect(Symbol::RightParen);
    return settings;
}

std::optional<AssignmentOperator> AcceptAssignment(ParseState& state) {
    std::optional<AssignmentOperator> op;
    switch (state.Peek().symbol) {
    case Symbol::Equal: op = AssignmentOperator::Set; break;
    case Symbol::PlusEqual: op = AssignmentOperator::Add; break;
    case Symbol::MinusEqual: op = AssignmentOperator::Subtract; break;
    case Symbol::StarEqual: op = AssignmentOperator::Multiply; break;
    case Symbol::SlashEqual: op = AssignmentOperator::Divide; break;
    case Symbol::PercentEqual: op = AssignmentOperator::Modulo; break;
    case Symbol::AmpersandEqual: op = AssignmentOperator::BitAnd; break;
    case Symbol::BarEqual: op = AssignmentOperator::BitOr; break;
    case Symbol::CaretEqual: op = AssignmentOperator::BitXor; break;
    default: return op;
    }
    state.Take();
    return op;
}

} // namespace quillon::practice::tsql
