// Collations: how texts compare, sort and match. A collation is interned: it lives as long as the process,
// two equal names give the same pointer, and SqlType holds that pointer.
//
// Whatever the language prefix of the name, five kinds of order exist: case and accent sensitive or not, and
// binary. All of them but the binary one compare by letter first, then accent, then case (where the kind asks
// for it); punctuation sorts before digits, digits before letters. Trailing blanks never count, as the SQL
// standard's PAD SPACE says.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

struct sqlite3;

namespace quillon::practice {

struct Collation {
    std::string name; // as it was written first, e.g. Latin1_General_CI_AS
    bool caseSensitive = false;
    bool accentSensitive = true;
    bool binary = false;
    int codePage = 1252; // of char, varchar and text; 65001 for the _UTF8 collations

    // The collation under which SQLite sorts a column of this collation: CI_AS, CS_AS, CI_AI, CS_AI or BIN.
    const char* SqliteName() const;
    // Three-way comparison of two UTF-8 texts, trailing blanks ignored: below, equal to or above zero.
    int Compare(std::string_view left, std::string_view right) const;
    // A text that is equal for two texts if and only if Compare calls them equal; for hashing and CHECKSUM.
    std::string Key(std::string_view text) const;
    // The five bytes by which the wire names a collation: locale id and flags (little endian), sort id.
    std::uint32_t LocaleAndFlags() const;
    std::uint8_t SortId() const;
};

// The code page of text under the collation that the wire's five bytes name; 1252 for one that is unknown.
int CodePageOnWire(std::uint32_t localeAndFlags, std::uint8_t sortId);

// The collation of that name, without regard to case; nullptr when the name names none. Safe on all threads.
const Collation* FindCollation(std::string_view name);
// SQL_Latin1_General_CP1_CI_AS: what a server, and a database made without COLLATE, has.
const Collation* DefaultCollation();
// Latin1_General_BIN2: bytes only.
const Collation* BinaryCollation();

// Registers CI_AS, CS_AS, CI_AI, CS_AI, BIN, and the orders DATETIMEOFFSET and SQL_VARIANT (StorageForm.h)
// with one SQLite connection. Must be done on every connection before any statement of ours is prepared.
void RegisterCollations(sqlite3* connection);

} // namespace quillon::practice
