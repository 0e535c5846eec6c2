#include "template/ProcessInclude.h"

#include "model/AuditObj.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/Files.h"
#include "platform/FrontEnd.h"
#include "platform/Platform.h"
#include "platform/ScriptHost.h"
#include "shell/Trace.h"
#include "template/TextLines.h"

namespace quillon::basProcTemplate {
namespace {

void AppendFile(const std::string& file, std::string& text, std::int32_t& lineCount) {
    const auto input = ThePlatform().files().OpenInput(file);
    bool isFirst = true;
    for (std::string line; input->ReadLine(line); ++lineCount, isFirst = false) {
        if (isFirst)
            DropByteOrderMark(line);
        text.append(line).append("\r\n");
    }
}

} // namespace

std::int32_t ProcessInclude(std::string& includeText, ScriptHost& host, std::int32_t& lineCount) {
    return g_objTrace->Procedure("basProcTemplate - ProcessInclude " + includeText, [&]() -> std::int32_t {
        std::string file;
        try {
            // Code of an include may add to the list; what is added counts from the next run on.
            const auto includes = TheModel().Includes();
            const auto count = includes->Count();
            for (std::int32_t position = 1; position <= count; ++position) {
                file = includes->At(position)->File();
                AppendFile(file, includeText, lineCount);
                host.AddCode(includeText);
            }
        } catch (const Failure& failure) {
            if (failure.number() != numbers::FileNotFound)
                return failure.number();
            ThePlatform().frontEnd().Message("Include File: " + file + " not found", "Template Error",
                                             Icon::Warning);
        }
        return 0;
    });
}

} // namespace quillon::basProcTemplate
