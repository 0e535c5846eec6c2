#include "architecture/basArchAnalyze.h"

#include <array>

#include "platform/Conversion.h"
#include "platform/DataAccess.h"
#include "platform/Failure.h"
#include "platform/FrontEnd.h"
#include "platform/Platform.h"
#include "shell/Session.h"
#include "shell/SessionRoads.h"
#include "shell/Trace.h"

namespace quillon::basArchAnalyze {
namespace {

struct Flag {
    const char* parameter;
    bool Structures::*value;
};

constexpr std::array flags{
    Flag{"DDL", &Structures::Ddl},
    Flag{"Identity", &Structures::Identity},
    Flag{"view", &Structures::View},
    Flag{"standard", &Structures::Standard},
    Flag{"aggregate", &Structures::Aggregate},
    Flag{"purge", &Structures::Purge},
    Flag{"undo", &Structures::Undo},
    Flag{"delete", &Structures::Delete},
    Flag{"analyze", &Structures::Analyze},
};

bool BooleanOf(const data::Command& command, const char* parameter) {
    std::string text = conversion::ToText(command.ParameterNamed(parameter).Value);
    text.erase(text.find_last_not_of(' ') + 1);
    return conversion::ToBoolean(Value(std::move(text)));
}

std::int32_t AskServer(Structures& found) {
    const auto command = ThePlatform().dataAccess().NewCommand();
    command->SetActiveConnection(g_objConnection);
    command->SetCommandText("AUDIT_prc_Analyze");
    command->SetCommandType(data::CommandType::StoredProcedure);
    command->AppendParameter({.Name = "RETURN_VALUE", .Direction = data::ParameterDirection::ReturnValue});
    for (const Flag& flag : flags)
        command->AppendParameter({.Name = flag.parameter,
                                  .Type = data::DataType::Boolean,
                                  .Direction = data::ParameterDirection::InputOutput,
                                  .Size = 1});
    command->Execute();
    Structures read;
    for (const Flag& flag : flags)
        read.*flag.value = BooleanOf(*command, flag.parameter);
    const std::int32_t result = conversion::ToLong(command->ParameterNamed("RETURN_VALUE").Value);
    found = read;
    return result;
}

Structures Found() {
    Structures found;
    Exec_AUDIT_prc_Analyze(found);
    return found;
}

} // namespace

std::int32_t Exec_AUDIT_prc_Analyze(Structures& found) {
    return g_objTrace->Procedure("basArchAnalyze.Exec_AUDIT_prc_Analyze", [&] {
        try {
            return AskServer(found);
        } catch (const Failure& failure) {
            // Where our source stood says nothing about a database without the procedure.
            g_objTrace->Report(failure.description(), failure.number(), 0);
            return std::int32_t{0};
        }
    });
}

void Analyze_AnalyzeAndRemove(bool& canAnalyze, bool& canRemove) {
    const Structures found = Found();
    canAnalyze = found.Analyze;
    canRemove = found.Delete;
}

bool Analyze_ReportStandard() {
    return Found().Standard;
}

bool Analyze_ReportAggregate() {
    return Found().Aggregate;
}

bool Analyze_UnDo() {
    return Found().Undo;
}

void ArchCheck() {
    g_objTrace->Procedure("basArchAnalyze.ArchCheck", [] {
        const Answer answer = ThePlatform().frontEnd().Message(
            "Some of the requested operatons can not be performed for this databaes because relevant Audit "
            "related "
            "database objects (i.e. tables, view etc.) for this operation are missing\r\n\r\n"
            "To ensure all Audit structures are present open a valid Architecture profile (.qlnx file) and "
            "Install "
            "it\r\n\r\nDo you want to install an Audit Architecture now?",
            "Missing Audit Structures", Icon::Question, Buttons::YesNoCancel);
        if (answer == Answer::Yes)
            TheRoads().ShowArchitectureManager();
    });
}

} // namespace quillon::basArchAnalyze
