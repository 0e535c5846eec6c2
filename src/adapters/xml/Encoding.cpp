#include "adapters/xml/Encoding.h"

#include <iconv.h>
#include <strings.h>

#include <array>

#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon::adapters {
namespace {

class Converter {
  public:
    Converter(const std::string& to, const std::string& from)
        : m_handle(iconv_open(to.c_str(), from.c_str())) {
        if (m_handle == reinterpret_cast<iconv_t>(-1))
            throw Failure(numbers::InvalidCall, "The encoding " + from + " cannot be written as " + to);
    }
    ~Converter() { iconv_close(m_handle); }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    std::string Convert(std::string_view text) {
        std::string result;
        std::array<char, 16384> buffer;
        char* in = const_cast<char*>(text.data()); // iconv only reads it
        std::size_t left = text.size();
        while (left > 0) {
            char* out = buffer.data();
            std::size_t room = buffer.size();
            const auto done = iconv(m_handle, &in, &left, &out, &room);
            result.append(buffer.data(), out);
            if (done == static_cast<std::size_t>(-1) && out == buffer.data())
                throw Failure(numbers::InvalidCall,
                              "The text has a character that the file's encoding lacks");
        }
        return result;
    }

  private:
    iconv_t m_handle;
};

bool IsUtf8(const std::string& encoding) {
    return strcasecmp(encoding.c_str(), "UTF-8") == 0 || strcasecmp(encoding.c_str(), "UTF8") == 0;
}

} // namespace

std::string ToUtf8(std::string_view bytes, const std::string& encoding) {
    return IsUtf8(encoding) ? std::string(bytes) : Converter("UTF-8", encoding).Convert(bytes);
}

std::string FromUtf8(std::string_view text, const std::string& encoding) {
    return IsUtf8(encoding) ? std::string(text) : Converter(encoding, "UTF-8").Convert(text);
}

} // namespace quillon::adapters
