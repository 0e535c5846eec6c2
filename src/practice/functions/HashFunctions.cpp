#include "practice/functions/FunctionParts.h"
#include "practice/functions/Hashes.h"
#include "practice/values/ConvertParts.h"
#include "practice/values/Unicode.h"

#include <bit>

namespace quillon::practice {

namespace {

SqlType HashBytesType(ArgumentTypes types) {
    const bool isBytes = (types[1].IsCharacter() || types[1].IsBinary()) && !types[1].IsLegacyLob();
    if (!isBytes && types[1].id != TypeId::Null)
        throw SqlError(8116, {types[1].Name(), "2", "hashbytes"});
    return BinaryType(TypeId::VarBinary, 8000);
}

Datum HashBytes(FunctionContext&, Arguments arguments) {
    if (AnyNull(arguments))
        return {};
    const std::string algorithm = unicode::ToUpper(TextOf(arguments[0]));
    const Datum& input = arguments[1];
    const std::string bytes =
        input.Type().IsBinary() ? input.Bytes() : BytesOfText(input.Text(), input.Type());
    std::string digest;
    if (algorithm == "MD5")
        digest = Md5(bytes);
    else if (algorithm == "SHA" || algorithm == "SHA1")
        digest = Sha1(bytes);
    else if (algorithm == "SHA2_256")
        digest = Sha256(bytes);
    else if (algorithm == "SHA2_512")
        digest = Sha512(bytes);
    else if (algorithm == "MD2" || algorithm == "MD4")
        throw SqlError::NotSupported("HASHBYTES algorithm " + algorithm);
    else
        return {};
    return Datum::Bytes(BinaryType(TypeId::VarBinary, 8000), std::move(digest));
}

std::uint32_t Mix(std::uint32_t sum, std::string_view bytes) {
    for (const char byte : bytes)
        sum = std::rotl(sum, 4) ^ static_cast<unsigned char>(byte);
    return sum;
}

// What two equal values have in common: CHECKSUM goes by the collation, BINARY_CHECKSUM by the bytes.
std::string Essence(const Datum& value, bool isBinary) {
    if (value.IsNull())
        return std::string(1, '\xFF');
    if (value.Type().IsLegacyLob() || value.Type().id == TypeId::Xml)
        throw SqlError(8116, {value.Type().Name(), "1", isBinary ? "binary_checksum" : "checksum"});
    if (value.Type().IsCharacter())
        return isBinary ? BytesOfText(value.Text(), value.Type()) : CollationOf(value).Key(value.Text());
    return Convert(value, BinaryType(TypeId::VarBinary, maxLength)).Bytes();
}

template <bool isBinary>
Datum Checksum(FunctionContext&, Arguments arguments) {
    std::uint32_t sum = 0;
    for (const Datum& value : arguments)
        sum = Mix(std::rotl(sum, 7), Essence(value, isBinary));
    return Datum::Int(static_cast<std::int32_t>(sum));
}

constexpr ScalarFunction rows[] = {
    {"HASHBYTES", 2, 2, HashBytesType, HashBytes},
    {"CHECKSUM", 1, -1, Always<TypeId::Int>, Checksum<false>, Evaluation::Pure, false, false, true},
    {"BINARY_CHECKSUM", 1, -1, Always<TypeId::Int>, Checksum<true>, Evaluation::Pure, false, false, true},
};

} // namespace

std::span<const ScalarFunction> HashFunctions() {
    return rows;
}

} // namespace quillon::practice
