// The generation run's use of the template editor: the same form, hidden, one table after another.
#include "architecture/basArchitectureUtils.h"
#include "architecture/clsQlnTemplate.h"
#include "model/AuditObj.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "shell/Session.h"
#include "shell/Trace.h"
#include "template/frmTemplate.h"

namespace quillon {

std::int32_t frmTemplate::ProcessTemplateBatch(bool isFirstTable, const std::string& table) {
    return g_objTrace->Procedure("frmTemplate.ProcessTemplateBatch", [&]() -> std::int32_t {
        if (g_strArchFile.empty())
            throw Failure(numbers::NoTemplate, "No template selected", "ProcessTemplateBatch");
        g_objTrace->SetNote(
            "If ActiveX Error 429 occurs you need Microsoft XML Parser version 3.0 which is a "
            "required component of Quillon");
        Load();
        cdmCodeMax[TemplateTab].SetText(basArchitectureUtils::TheProfile().TemplateText());
        const std::int32_t number = ProcessTemplate();
        if (number != 0) {
            Show();
            grxProperties.SetRow(1);
            grxProperties.Refetch();
        } else if (!TheModel().Cancelled()) {
            AppendResult(isFirstTable, table);
            Hide();
        }
        g_objTrace->SetNote("");
        return number;
    });
}

void frmTemplate::AppendResult(bool isFirstTable, const std::string& table) {
    Files& files = ThePlatform().files();
    const std::string path = files.ApplicationFolder() + "\\triggers.sql";
    if (isFirstTable && files.Exists(path))
        files.Delete(path);
    g_objTrace->SetNote("Opening File for output " + table);
    const auto file = files.OpenAppend(path);
    file->WriteLine(cdmCodeMax[ResultsTab].Text());
    file->Close();
}

} // namespace quillon
