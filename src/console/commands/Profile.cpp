// profile show|set|new: architecture profiles as files. show prints a field, or the list of all; set puts a
// file's text into a field and saves; new writes an empty profile.
#include <CLI/CLI.hpp>

#include <algorithm>

#include "architecture/clsQlnTemplate.h"
#include "console/OpenDatabase.h"
#include "console/StandardOutput.h"
#include "console/TextTable.h"
#include "console/commands/Commands.h"
#include "model/AuditObj.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "shell/Session.h"
#include "template/TextLines.h"

namespace quillon::console {
namespace {

using Profile = clsQlnTemplate;

struct Field {
    const char* keyword;
    std::string (Profile::*get)() const;
    void (Profile::*set)(const std::string&);
};

constexpr Field fields[] = {
    {"name", &Profile::Header_Name, &Profile::SetHeader_Name},
    {"description", &Profile::Header_Desc, &Profile::SetHeader_Desc},
    {"author", &Profile::Header_Author, &Profile::SetHeader_Author},
    {"legal", &Profile::Header_Legal, &Profile::SetHeader_Legal},
    {"language", &Profile::ScriptLanguage, &Profile::SetScriptLanguage},
    {"template", &Profile::TemplateText, &Profile::SetTemplateText},
    {"ddl", &Profile::SCRIPT_DDL, &Profile::SetSCRIPT_DDL},
    {"identity", &Profile::SCRIPT_IDENTITY, &Profile::SetSCRIPT_IDENTITY},
    {"views", &Profile::Script_Views, &Profile::SetScript_Views},
    {"aggregate", &Profile::Script_ReportingSPAggregate, &Profile::SetScript_ReportingSPAggregate},
    {"standard", &Profile::Script_ReportingSPStandard, &Profile::SetScript_ReportingSPStandard},
    {"purge", &Profile::Script_DeleteDataSP, &Profile::SetScript_DeleteDataSP},
    {"undo", &Profile::Script_UndoSPs, &Profile::SetScript_UndoSPs},
    {"delete", &Profile::Script_DeleteQlnarchitecture, &Profile::SetScript_DeleteQlnarchitecture},
    {"analyze", &Profile::SCRIPT_ANALYZE, &Profile::SetSCRIPT_ANALYZE},
};

struct Options {
    std::string profile, field, file, name;
    bool overwrites = false;
};

std::vector<std::string> Keywords() {
    std::vector<std::string> keywords;
    for (const Field& field : fields)
        keywords.emplace_back(field.keyword);
    return keywords;
}

const Field& FieldNamed(const std::string& keyword) {
    return *std::ranges::find(fields, keyword, &Field::keyword);
}

// A profile publishes itself to the model, so there is one.
Profile& NewProfile() {
    g_objAudit = std::make_shared<AuditObj>();
    g_objArch = std::make_shared<Profile>();
    return *g_objArch;
}

std::string Summary(const std::string& text) {
    const auto lines = std::ranges::count(text, '\n') + (text.empty() || text.ends_with('\n') ? 0 : 1);
    return lines > 1 ? std::to_string(lines) + " lines" : text;
}

void PrintList(const Profile& profile) {
    std::vector<Row> rows;
    for (const Field& field : fields)
        rows.push_back({field.keyword, Summary((profile.*field.get)())});
    for (std::int16_t i = 0; i < profile.IncludeCount(); ++i)
        rows.push_back({"include", profile.Includes(i)});
    WriteStandardOutput(TextTable({"Field", "Content"}, rows));
}

void Save(Profile& profile, const std::string& path) {
    if (!profile.Save(path))
        throw Failure(numbers::InvalidCall, "The profile was not saved");
}

void Show(const Options& options) {
    Profile& profile = NewProfile();
    if (!profile.Load(PathGiven(options.profile)))
        return;
    if (options.field.empty())
        PrintList(profile);
    else
        WriteStandardOutput((profile.*FieldNamed(options.field).get)());
    FlushStandardOutput();
}

void Set(const Options& options) {
    Profile& profile = NewProfile();
    std::string text = ThePlatform().files().ReadAll(PathGiven(options.file));
    DropByteOrderMark(text);
    if (!profile.Load(PathGiven(options.profile)))
        return;
    (profile.*FieldNamed(options.field).set)(text);
    Save(profile, "");
}

void New(const Options& options) {
    const std::string path = PathGiven(options.profile);
    if (!options.overwrites && ThePlatform().files().Exists(path))
        throw Failure(numbers::FileAlreadyExists,
                      options.profile + " exists already; --overwrite replaces it");
    Profile& profile = NewProfile();
    profile.NewFile();
    profile.SetHeader_Name(options.name);
    Save(profile, path);
}

CLI::App* AddOne(CLI::App& command, ChosenCommand& chosen, const std::shared_ptr<Options>& options,
                 const char* name, const char* help, void (*action)(const Options&)) {
    CLI::App* one = command.add_subcommand(name, help);
    one->add_option("PROFILE", options->profile, "The profile's file")->required();
    one->callback([&chosen, options, action] {
        chosen = {"quillon-console.profile", [options, action](ConsoleFrontEnd&) { action(*options); }};
    });
    return one;
}

} // namespace

void AddProfile(CLI::App& app, ChosenCommand& chosen) {
    const auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand("profile", "Read and change architecture profiles");
    command->require_subcommand(1);
    AddOne(*command, chosen, options, "show", "Print a field, or the list of all", Show)
        ->add_option("FIELD", options->field, "The field to print as it stands")
        ->check(CLI::IsMember(Keywords()));
    CLI::App* set = AddOne(*command, chosen, options, "set", "Put a file's text into a field", Set);
    set->add_option("FIELD", options->field, "The field")->required()->check(CLI::IsMember(Keywords()));
    set->add_option("FILE", options->file, "The file with the text")->required();
    CLI::App* made = AddOne(*command, chosen, options, "new", "Write an empty profile", New);
    made->add_option("--name", options->name, "The profile's name")->default_val("New Profile");
    made->add_flag("--overwrite", options->overwrites, "Replace a file that is there");
}

} // namespace quillon::console
