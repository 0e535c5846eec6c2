// install [--profile P.qlnx] [--parts ddl,views,...]: runs the profile's scripts on the database.
#include <CLI/CLI.hpp>

#include <algorithm>

#include "architecture/basManageArchitechures.h"
#include "console/OpenDatabase.h"
#include "console/RunLogOutput.h"
#include "console/commands/Commands.h"

namespace quillon::console {
namespace {

namespace manage = basManageArchitechures;

struct Options {
    std::string profile;
    std::vector<std::string> parts;
};

std::vector<std::string> Keywords() {
    std::vector<std::string> keywords;
    for (const manage::Part& part : manage::Parts())
        keywords.emplace_back(part.keyword);
    return keywords;
}

// Server-level objects change databases that are not the user's own: they come by their name alone.
bool IsWanted(const manage::Part& part, const std::vector<std::string>& wanted) {
    if (wanted.empty())
        return !part.isServerLevel;
    return std::ranges::find(wanted, part.keyword) != wanted.end();
}

void Install(const CLI::App& app, const Options& options) {
    if (OpenDatabase(app, options.profile) == nullptr)
        return;
    std::vector<const manage::Part*> chosen;
    for (const manage::Part& part : manage::Parts())
        if (IsWanted(part, options.parts))
            chosen.push_back(&part);
    PrintRunLog(manage::InstallParts(chosen));
}

} // namespace

void AddInstall(CLI::App& app, ChosenCommand& chosen) {
    const auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand("install", "Install a profile's audit structures in the database");
    command->add_option("--profile", options->profile, "The architecture profile; else the default one")
        ->type_name("FILE");
    command->add_option("--parts", options->parts, "Some parts only; else all but identity")
        ->type_name("PART,...")
        ->delimiter(',')
        ->check(CLI::IsMember(Keywords()));
    command->callback([&app, &chosen, options] {
        chosen = {"quillon-console.install", [&app, options](ConsoleFrontEnd&) { Install(app, *options); }};
    });
}

} // namespace quillon::console
