#include "console/Console.h"

#include <CLI/CLI.hpp>

#include "console/ConsoleFrontEnd.h"
#include "console/Interruption.h"
#include "console/Progress.h"
#include "console/ServerOptions.h"
#include "console/commands/Commands.h"
#include "platform/Failure.h"
#include "program/Program.h"
#include "shell/Application.h"
#include "shell/Trace.h"

namespace quillon::console {
namespace {

constexpr int Succeeded = 0;
constexpr int Failed = 1;
constexpr int NotUnderstood = 2;

int RunCommand(const ChosenCommand& command) {
    ConsoleFrontEnd frontEnd(stderr);
    try {
        const Program program(frontEnd);
        const Interruption interruption(frontEnd);
        const Progress progress(stderr);
        g_objTrace->Procedure(command.procedure, [&] { command.action(frontEnd); });
    } catch (const Failure& failure) {
        // Raised before there was a trace to report it.
        frontEnd.ReportFailure({.Description = failure.description(),
                                .Number = static_cast<double>(failure.number()),
                                .SourceLine = failure.line(),
                                .Procedures = {command.procedure},
                                .Note = {}});
    } catch (const ProcessEnded&) {
        return Failed;
    }
    return frontEnd.Failures() == 0 ? Succeeded : Failed;
}

} // namespace

int Main(int argc, const char* const* argv) {
    CLI::App app("Quillon at the command line", "quillon-console");
    app.set_version_flag("--version", TheApplication().TitleAndVersion());
    app.require_subcommand(1);
    AddServerOptions(app);
    ChosenCommand chosen;
    for (const AddCommand add : Commands())
        add(app, chosen);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? Succeeded : NotUnderstood;
    }
    return RunCommand(chosen);
}

} // namespace quillon::console
