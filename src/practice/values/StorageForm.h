// How each type lies in an SQLite column, chosen so that SQLite's own comparison, index order, DISTINCT and
// GROUP BY are right without calling us:
//
//   bit .. bigint                       INTEGER
//   money, smallmoney                   INTEGER, ten thousandths
//   decimal with precision <= 18        INTEGER, unscaled (the scale is the column's)
//   decimal beyond                      BLOB of 16 bytes, big endian with the sign bit turned: bytes order as
//   numbers real, float                         REAL smalldatetime, datetime             INTEGER, three
//   hundredths of a second (minutes for smalldatetime are steps too) since 1900 date INTEGER, days since
//   0001-01-01 time, datetime2                     INTEGER, ticks of 100 ns (of the day; since 0001-01-01)
//   datetimeoffset                      TEXT COLLATE DATETIMEOFFSET: UTC ticks, offset; that order ignores
//   the offset char, varchar, text, n-forms, xml   TEXT under the column's collation binary, varbinary, image
//   BLOB rowversion                          BLOB of 8 bytes uniqueidentifier                    BLOB of 16
//   bytes in the order in which identifiers sort sql_variant                         TEXT COLLATE
//   SQL_VARIANT: base type, then its value
//
// Two stored values compare directly only if they are of the same type, precision class and scale:
// expressions of differing types are converted first (by the binder).
#pragma once

#include "practice/values/Datum.h"

#include <string>

struct sqlite3_stmt;
struct sqlite3_value;
struct sqlite3_context;

namespace quillon::practice {

enum class StorageClass : std::uint8_t { Integer, Real, Text, Blob };
StorageClass StorageClassOf(const SqlType& type);
// What follows the column's name in CREATE TABLE: "INTEGER", "REAL", "BLOB", "TEXT COLLATE CI_AS".
std::string SqliteColumnType(const SqlType& type);
// The collation to write after an expression of this type: "CI_AS", "DATETIMEOFFSET"; empty where none is
// needed.
std::string SqliteCollation(const SqlType& type);

// The stored form does not tell its type: the caller knows it from the definition or from binding.
Datum LoadValue(sqlite3_value* value, const SqlType& type);
Datum LoadColumn(sqlite3_stmt* statement, int column, const SqlType& type);
// `value` must already be of `type` (Convert first), or of any type when `type` is sql_variant. Index is
// 1-based.
void BindDatum(sqlite3_stmt* statement, int index, const Datum& value, const SqlType& type);
void ResultDatum(sqlite3_context* context, const Datum& value, const SqlType& type);
// An SQLite literal with the stored form of the value, for defaults and constants in generated SQL.
std::string SqliteLiteral(const Datum& value, const SqlType& type);

// The order of variants as documented: by family of types first, then by value.
int CompareVariants(const Datum& left, const Datum& right);

} // namespace quillon::practice
