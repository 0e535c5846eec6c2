// Any bytes as a profile: they are refused with one of two failures and the profile in memory stays, or they
// are loaded, saved byte for byte as they were, and keep what is then set through another load.
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>

#include "adapters/xml/Library.h"
#include "architecture/clsQlnTemplate.h"
#include "console/ConsoleFrontEnd.h"
#include "model/AuditObj.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/SettingsStore.h"
#include "shell/Session.h"
#include "shell/Trace.h"

namespace {

using namespace quillon;
using Profile = clsQlnTemplate;

void Require(bool holds) {
    if (!holds)
        std::abort();
}

// Whole files in memory, which is all that a document asks for.
class WholeFiles : public Files {
  public:
    std::map<std::string, std::string> contents;

    std::string ApplicationFolder() const override { return {}; }
    bool Exists(const std::string& path) const override { return contents.contains(path); }
    bool IsReadOnly(const std::string&) const override { return false; }
    std::string CurrentFolder() const override { return {}; }
    void ChangeFolder(const std::string&) override { Refuse(); }
    std::unique_ptr<LineReader> OpenInput(const std::string&) override { Refuse(); }
    std::unique_ptr<FileWriter> OpenOutput(const std::string&) override { Refuse(); }
    std::unique_ptr<FileWriter> OpenAppend(const std::string&) override { Refuse(); }
    std::string ReadAll(const std::string& path) override { return contents.at(path); }
    void Replace(const std::string& path, std::string_view text, bool) override { contents[path] = text; }
    void Delete(const std::string&) override { Refuse(); }

  private:
    [[noreturn]] static void Refuse() { throw Failure(numbers::ActionNotSupported); }
};

class NoSettings : public SettingsStore {
  public:
    std::optional<std::string> Read(const std::string&, const std::string&,
                                    const std::string&) const override {
        return std::nullopt;
    }
    void Write(const std::string&, const std::string&, const std::string&, const std::string&) override {}
};

bool Load(Profile& profile, const std::string& path) {
    try {
        return profile.Load(path);
    } catch (const Failure& failure) {
        Require(failure.number() == numbers::NotATemplate || failure.number() == numbers::TypeMismatch ||
                failure.number() == numbers::Overflow);
        return false;
    }
}

constexpr std::array Scripts{
    std::pair{&Profile::TemplateText, &Profile::SetTemplateText},
    std::pair{&Profile::SCRIPT_DDL, &Profile::SetSCRIPT_DDL},
    std::pair{&Profile::SCRIPT_IDENTITY, &Profile::SetSCRIPT_IDENTITY},
    std::pair{&Profile::Script_Views, &Profile::SetScript_Views},
    std::pair{&Profile::Script_UndoSPs, &Profile::SetScript_UndoSPs},
};

// A file's line ends are the file's own; text has LF.
std::string WithLineFeeds(std::string text) {
    for (std::size_t at = 0; (at = text.find('\r', at)) != std::string::npos;)
        text.compare(at, 2, "\r\n") == 0 ? text.erase(at, 1) : text.replace(at, 1, "\n");
    return text;
}

// Sets the text where the field can hold it; the text that is to be found again.
std::string Changed(Profile& profile, decltype(Scripts)::value_type field, const std::string& text) {
    try {
        (profile.*field.second)(text);
    } catch (const Failure&) {
        // No node, or characters that a file cannot hold.
    }
    return WithLineFeeds((profile.*field.first)());
}

void CheckChanges(Profile& profile, WholeFiles& files, const std::string& text) {
    std::array<std::string, Scripts.size()> expected;
    for (std::size_t i = 0; i < Scripts.size(); ++i)
        expected[i] = Changed(profile, Scripts[i], text);
    try {
        if (!profile.Save("changed"))
            return; // no name
    } catch (const Failure&) {
        return; // the file's encoding lacks a character
    }
    Profile again;
    Require(Load(again, "changed"));
    for (std::size_t i = 0; i < Scripts.size(); ++i)
        Require(WithLineFeeds((again.*Scripts[i].first)()) == expected[i]);
    Require(again.IncludeCount() == profile.IncludeCount());
    Require(again.Header_Name() == profile.Header_Name());
    Require(again.Save("again") && files.contents["again"] == files.contents["changed"]);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static std::FILE* nowhere = std::fopen("/dev/null", "w");
    console::ConsoleFrontEnd frontEnd(nowhere);
    WholeFiles files;
    NoSettings settings;
    adapters::XmlLibrary xml;
    const Platform platform({.frontEnd = &frontEnd, .files = &files, .settings = &settings, .xml = &xml});
    g_objTrace = std::make_unique<Trace>();
    g_objAudit = std::make_shared<AuditObj>();
    const std::string bytes(reinterpret_cast<const char*>(data), size);

    files.contents["good"] =
        "<template><header><name>n</name><scriptlanguage>VBScript</scriptlanguage></header>"
        "<DDL><![CDATA[kept]]></DDL></template>";
    files.contents["in"] = bytes;
    Profile profile;
    Require(Load(profile, "good"));
    if (!Load(profile, "in")) {
        Require(profile.SCRIPT_DDL() == "kept" && profile.Save("out"));
        Require(files.contents["out"] == files.contents["good"]);
        return 0;
    }
    try {
        if (profile.Save("out"))
            Require(files.contents["out"] == bytes);
    } catch (const Failure&) {
        Require(false); // what was loaded can be saved
    }
    CheckChanges(profile, files, bytes.substr(bytes.size() / 2));
    return 0;
}
