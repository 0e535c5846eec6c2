#include "template/ScriptStream.h"

#include <cstddef>

#include "platform/Files.h"
#include "template/basNewTemplate.h"
#include "template/basProcTemplate.h"

namespace quillon {
namespace {

constexpr std::size_t PieceSize = std::size_t{64} * 1024;

} // namespace

void StreamScript(LineReader& input, const std::function<void(std::string_view)>& sink) {
    basNewTemplate::LineTranslator translator;
    std::string piece;
    std::string line;
    bool isFirst = true;
    // The second pass over the body. No rewriting reaches across a line end, and blanks are taken off the
    // start of the body alone.
    const auto handOn = [&] {
        if (isFirst) {
            RewriteCode(piece, basNewTemplate::FormInForce());
            sink(basProcTemplate::BeforeBody());
        } else {
            RewriteTagsAndCalls(piece, basNewTemplate::FormInForce());
        }
        isFirst = false;
        sink(piece);
        piece.clear();
    };
    while (input.ReadLine(line)) {
        translator.Translate(line, piece);
        if (piece.size() >= PieceSize)
            handOn();
    }
    handOn();
    sink(basProcTemplate::BehindBody());
}

} // namespace quillon
