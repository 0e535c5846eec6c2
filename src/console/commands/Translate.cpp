// translate FILE [--jscript]: prints the script that a template becomes.
//
// Reads the file itself and leaves the scratch files alone: they are the channel of a session that may be at
// work beside this command.
#include <CLI/CLI.hpp>

#include "adapters/files/NativePath.h"
#include "console/StandardOutput.h"
#include "console/commands/Commands.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "shell/Session.h"
#include "shell/Trace.h"
#include "template/ScriptStream.h"
#include "template/TextLines.h"

namespace quillon::console {
namespace {

struct Options {
    std::string file;
    bool jscript = false;
};

class TemplateLines : public LineReader {
  public:
    explicit TemplateLines(const std::string& path)
        : m_lines(ThePlatform().files().OpenInput(path)) {}

    bool ReadLine(std::string& line) override {
        const bool found = m_lines->ReadLine(line);
        if (m_isFirst)
            DropByteOrderMark(line);
        m_isFirst = false;
        return found;
    }

  private:
    std::unique_ptr<LineReader> m_lines;
    bool m_isFirst = true;
};

void Translate(const Options& options) {
    g_objTrace->SetNote("Translating " + options.file);
    g_bolJScript = options.jscript;
    TemplateLines lines(adapters::FromNative(options.file));
    StreamScript(lines, WriteStandardOutput);
    FlushStandardOutput();
}

} // namespace

void AddTranslate(CLI::App& app, ChosenCommand& chosen) {
    const auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand("translate", "Print the script that a template becomes");
    command->add_option("FILE", options->file, "The template")->required();
    command->add_flag("--jscript", options->jscript, "Write JScript instead of VBScript");
    command->callback([&chosen, options] {
        chosen = {"quillon-console.translate", [options](ConsoleFrontEnd&) { Translate(*options); }};
    });
}

} // namespace quillon::console
