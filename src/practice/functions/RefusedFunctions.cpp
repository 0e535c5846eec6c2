#include "practice/functions/RefusedFunctions.h"

#include <algorithm>
#include <iterator>

namespace quillon::practice {

namespace {

constexpr std::string_view names[] = {
    "APPLOCK_MODE",
    "APPLOCK_TEST",
    "APPROX_COUNT_DISTINCT",
    "ASSEMBLYPROPERTY",
    "ASYMKEYPROPERTY",
    "ASYMKEY_ID",
    "CERTENCODED",
    "CERTPRIVATEKEY",
    "CERTPROPERTY",
    "CERT_ID",
    "COMPRESS",
    "CRYPT_GEN_RANDOM",
    "CURRENT_REQUEST_ID",
    "CURRENT_TIMEZONE",
    "DECOMPRESS",
    "DECRYPTBYASYMKEY",
    "DECRYPTBYCERT",
    "DECRYPTBYKEY",
    "DECRYPTBYKEYAUTOASYMKEY",
    "DECRYPTBYKEYAUTOCERT",
    "DECRYPTBYPASSPHRASE",
    "ENCRYPTBYASYMKEY",
    "ENCRYPTBYCERT",
    "ENCRYPTBYKEY",
    "ENCRYPTBYPASSPHRASE",
    "EVENTDATA",
    "FILEGROUPPROPERTY",
    "FILEGROUP_ID",
    "FILEGROUP_NAME",
    "FILEPROPERTY",
    "FILE_ID",
    "FILE_IDEX",
    "FILE_NAME",
    "FULLTEXTCATALOGPROPERTY",
    "ISJSON",
    "IS_OBJECTSIGNED",
    "JSON_MODIFY",
    "JSON_QUERY",
    "JSON_VALUE",
    "KEY_GUID",
    "KEY_ID",
    "KEY_NAME",
    "LOGINPROPERTY",
    "PERCENTILE_CONT",
    "PERCENTILE_DISC",
    "PUBLISHINGSERVERNAME",
    "PWDCOMPARE",
    "PWDENCRYPT",
    "SIGNBYASYMKEY",
    "SIGNBYCERT",
    "SYMKEYPROPERTY",
    "TEXTPTR",
    "TEXTVALID",
    "VERIFYSIGNEDBYASYMKEY",
    "VERIFYSIGNEDBYCERT",
};
static_assert(std::is_sorted(std::begin(names), std::end(names)));

} // namespace

bool IsRefusedFunction(std::string_view name) {
    return std::binary_search(std::begin(names), std::end(names), name);
}

} // namespace quillon::practice
