// Names, types, and the small pieces that many statements share.
#pragma once

#include "practice/tsql/ParseState.h"

namespace quillon::practice::tsql {

/// One identifier.
std::string ParseIdentifier(ParseState& state);
/// One identifier, or a text where the grammar takes either (logins, collations, languages).
std::string ParseIdentifierOrText(ParseState& state);
/// A name of up to `most` parts; parts in the middle may be missing. Throws 117 where there are more.
Name ParseName(ParseState& state, std::size_t most = 4);
/// `( name, name ... )`
std::vector<std::string> ParseNameList(ParseState& state);
/// `name, name ...` without brackets
std::vector<Name> ParseNames(ParseState& state, std::size_t most = 4);
std::string ParseVariableName(ParseState& state);
/// A string literal's value.
std::string ParseText(ParseState& state);
/// A whole number with its sign, as written.
std::string ParseSignedDigits(ParseState& state);
DataType ParseDataType(ParseState& state);

/// One setting `NAME`, `NAME = value` or `NAME value` with value a word, number or text. A nested list in
/// brackets is passed over.
OptionSetting ParseSetting(ParseState& state);
/// `( setting, setting ... )`
std::vector<OptionSetting> ParseSettings(ParseState& state);
/// Takes everything up to the bracket that closes the one ahead.
void SkipBrackets(ParseState& state);

/// The compound or plain assignment ahead, taken; nothing when there is none.
std::optional<AssignmentOperator> AcceptAssignment(ParseState& state);

/// Takes the word ahead, reserved or not, in upper case.
std::string TakeWord(ParseState& state);

} // namespace quillon::practice::tsql
