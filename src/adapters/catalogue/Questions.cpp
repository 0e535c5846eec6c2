#include "adapters/catalogue/Questions.h"

#include "adapters/catalogue/CatalogueLink.h"

namespace quillon::adapters::questions {

const char* const Databases = R"(SELECT d.name, SUSER_SNAME(d.owner_sid), d.database_id
FROM master.sys.databases d
ORDER BY d.name)";

const char* const Tables = R"(SELECT t.object_id, s.name, t.name, t.create_date, t.is_ms_shipped
FROM sys.tables t
JOIN sys.schemas s ON s.schema_id = t.schema_id
ORDER BY s.name, t.name)";

const char* const Columns = R"(SELECT y.user_type_id, y.name, y.is_user_defined, s.name
FROM sys.types y
JOIN sys.schemas s ON s.schema_id = y.schema_id;
SELECT c.object_id, c.column_id, c.name, c.user_type_id, c.max_length, c.[precision], c.scale,
    c.is_nullable, c.is_identity, c.is_rowguidcol, c.is_computed
FROM sys.columns c
JOIN sys.tables t ON t.object_id = c.object_id
ORDER BY c.object_id, c.column_id;
SELECT d.parent_object_id, d.parent_column_id, d.name, d.definition
FROM sys.default_constraints d;
SELECT c.object_id, c.column_id, o.name
FROM sys.columns c
JOIN sys.objects o ON o.object_id = c.default_object_id
WHERE o.parent_object_id = 0;
SELECT i.object_id, i.index_id, i.name, i.is_primary_key, i.type, ic.column_id, ic.is_descending_key
FROM sys.indexes i
JOIN sys.index_columns ic ON ic.object_id = i.object_id AND ic.index_id = i.index_id
WHERE (i.is_primary_key = 1 OR i.is_unique_constraint = 1) AND ic.key_ordinal > 0
ORDER BY i.object_id, i.index_id, ic.key_ordinal;
SELECT f.parent_object_id, f.object_id, f.name, fc.parent_column_id, rs.name, rt.name, rc.name,
    f.delete_referential_action, f.update_referential_action, f.is_disabled
FROM sys.foreign_keys f
JOIN sys.foreign_key_columns fc ON fc.constraint_object_id = f.object_id
JOIN sys.tables rt ON rt.object_id = fc.referenced_object_id
JOIN sys.schemas rs ON rs.schema_id = rt.schema_id
JOIN sys.columns rc ON rc.object_id = fc.referenced_object_id AND rc.column_id = fc.referenced_column_id
ORDER BY f.parent_object_id, f.object_id, fc.constraint_column_id)";

const char* const Triggers = R"(SELECT g.parent_id, g.object_id, s.name, g.name, g.create_date, g.is_disabled,
    m.uses_ansi_nulls, m.uses_quoted_identifier, m.definition
FROM sys.triggers g
JOIN sys.objects o ON o.object_id = g.object_id
JOIN sys.schemas s ON s.schema_id = o.schema_id
LEFT JOIN sys.sql_modules m ON m.object_id = g.object_id
WHERE g.parent_class = 1
ORDER BY g.parent_id, g.name;
SELECT e.object_id, e.type
FROM sys.trigger_events e)";

const char* const ScriptFacts = R"(SELECT i.object_id, i.column_id, CONVERT(varchar(40), i.seed_value),
    CONVERT(varchar(40), i.increment_value)
FROM sys.identity_columns i;
SELECT c.object_id, c.column_id, c.definition, c.is_persisted
FROM sys.computed_columns c;
SELECT c.object_id, c.column_id, c.collation_name
FROM sys.columns c
JOIN sys.tables t ON t.object_id = c.object_id
WHERE c.collation_name IS NOT NULL;
SELECT k.parent_object_id, k.name, k.definition, k.is_disabled
FROM sys.check_constraints k
ORDER BY k.parent_object_id, k.object_id)";

std::string ProcedureOwner(const std::string& name) {
    return "SELECT s.name FROM sys.procedures p JOIN sys.schemas s ON s.schema_id = p.schema_id WHERE p.name "
           "= " +
           Literal(name) + " ORDER BY s.schema_id";
}

} // namespace quillon::adapters::questions
