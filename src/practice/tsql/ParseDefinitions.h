// Columns, constraints and indexes, as CREATE TABLE, ALTER TABLE, DECLARE and CREATE TYPE share them.
#pragma once

#include "practice/tsql/Options.h"

namespace quillon::practice::tsql {

/// `( column or constraint, ... )`
TableDefinition ParseTableDefinition(ParseState& state);
/// One element of such a list, or of ALTER TABLE ADD.
void ParseTableElement(ParseState& state, TableDefinition& definition);
ColumnDefinition ParseColumn(ParseState& state);
/// A constraint's kind and body, CONSTRAINT and its name taken; `ofColumn` where no columns are listed.
ConstraintDefinition ParseConstraint(ParseState& state, std::string name, Position position, bool ofColumn);
/// NULL or NOT NULL, if one is ahead.
std::optional<bool> AcceptNullability(ParseState& state);
bool AtConstraint(const ParseState& state);
std::vector<IndexColumn> ParseIndexColumns(ParseState& state);
/// WITH (...) or the older WITH FILLFACTOR = n, and ON filegroup; kept or passed over. `words` are those of
/// the statement in messages.
void ParseStorageOptions(ParseState& state, std::vector<OptionSetting>& options, OptionPlace place,
                         std::string_view words);
/// INDEX name inside a table's definition.
IndexDefinition ParseInlineIndex(ParseState& state);
/// INCLUDE, WHERE and the options that end an index.
void ParseIndexTail(ParseState& state, IndexDefinition& index);
/// CLUSTERED or NONCLUSTERED, if one is ahead.
std::optional<bool> AcceptClustered(ParseState& state);

} // namespace quillon::practice::tsql
