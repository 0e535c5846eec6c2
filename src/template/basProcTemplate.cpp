#include "template/basProcTemplate.h"

#include "shell/Session.h"
#include "shell/Trace.h"

namespace quillon::basProcTemplate {

void WrapCodeForExec(std::string& body) {
    g_objTrace->Procedure("basProcTemplate.WrapCodeForExec", [&] {
        body.insert(0, BeforeBody());
        body += BehindBody();
    });
}

std::string_view BeforeBody() noexcept {
    return g_bolJScript ? "function ReturnThis(x)\r\n{\r\nvar strVar \r\nstrVar = \"\"\r\n"
                        : "Function ReturnThis()\r\nDim strVar \r\n";
}

std::string_view BehindBody() noexcept {
    return g_bolJScript ? "\r\nreturn (strVar);\r\n}" : "\r\nReturnThis = strVar\r\nEnd Function";
}

} // namespace quillon::basProcTemplate
