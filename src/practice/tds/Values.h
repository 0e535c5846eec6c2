// Values on the wire ([MS-TDS] 2.2.5.2.3 and 2.2.5.5): how each type's bytes are read from parameters and
// written to rows.
#pragma once

#include "practice/tds/Bytes.h"
#include "practice/tds/WireType.h"
#include "practice/values/Datum.h"

namespace quillon::practice::tds {

// Writes length and value. A value of another type than the column's is converted first, as a client that is
// told text instead of a date needs it; throws SqlError when it cannot be.
void WriteValue(const Datum& value, const WireType& type, ByteWriter& out);

// Reads a parameter's value. Throws ProtocolError when the bytes are no value of the type.
Datum ReadValue(const WireType& type, ByteReader& reader);

// The bytes of a value alone, without its length: what both forms above and the values within sql_variant
// share.
void WriteBare(const Datum& value, const WireType& type, ByteWriter& out);
Datum ReadBare(const WireType& type, std::string_view bytes);

// A sql_variant behind its length: base type, properties, value.
void WriteVariant(const Datum& value, ByteWriter& out);
Datum ReadVariant(std::string_view bytes);

} // namespace quillon::practice::tds
