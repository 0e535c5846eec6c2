// An architecture profile: one XML file with a name and description, the trigger template, the list of
// include files and nine SQL scripts.
//
// The class is no serialiser. It keeps the parsed document alive and one node for each field; every property
// reads and writes that node, and a save writes the document as it stands. So a loaded file keeps its element
// names, comments and order, and nothing here ever rebuilds it.
//
// Two instances exist in practice: the session's (g_objArch) and the private one of the architecture manager.
// Setting a header field, the language or the includes, loading and NewFile also change g_objAudit, which
// must be there (91 otherwise). Failures leave as they are; each member says which.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "platform/Value.h"
#include "platform/XmlDocument.h"

namespace quillon {

class clsQlnTemplate {
  public:
    clsQlnTemplate();
    ~clsQlnTemplate();
    clsQlnTemplate(const clsQlnTemplate&) = delete;
    clsQlnTemplate& operator=(const clsQlnTemplate&) = delete;

    // --- texts: a field without a node reads as the empty text, and setting it raises 91 ---
    std::string SCRIPT_DDL() const { return TextOf(Ddl); }
    std::string SCRIPT_ANALYZE() const { return TextOf(Analyze); }
    std::string SCRIPT_IDENTITY() const { return TextOf(Identity); }
    std::string Script_Views() const { return TextOf(Views); }
    std::string Script_ReportingSPAggregate() const { return TextOf(Aggregate); }
    std::string Script_ReportingSPStandard() const { return TextOf(Standard); }
    std::string Script_DeleteDataSP() const { return TextOf(DeleteData); }
    std::string Script_DeleteQlnarchitecture() const { return TextOf(DeleteArchitecture); }
    std::string Script_UndoSPs() const { return TextOf(Undo); }
    std::string TemplateText() const { return TextOf(Template); }
    std::string Header_Name() const { return TextOf(Name); }
    std::string Header_Desc() const { return TextOf(Description); }
    std::string Header_Author() const { return TextOf(Author); }
    std::string Header_Legal() const { return TextOf(Legal); }
    std::string ScriptLanguage() const { return TextOf(Language); }

    void SetSCRIPT_DDL(const std::string& text) { SetTextOf(Ddl, text); }
    void SetSCRIPT_ANALYZE(const std::string& text) { SetTextOf(Analyze, text); }
    void SetSCRIPT_IDENTITY(const std::string& text) { SetTextOf(Identity, text); }
    void SetScript_Views(const std::string& text) { SetTextOf(Views, text); }
    void SetScript_ReportingSPAggregate(const std::string& text) { SetTextOf(Aggregate, text); }
    void SetScript_ReportingSPStandard(const std::string& text) { SetTextOf(Standard, text); }
    void SetScript_DeleteDataSP(const std::string& text) { SetTextOf(DeleteData, text); }
    void SetScript_DeleteQlnarchitecture(const std::string& text) { SetTextOf(DeleteArchitecture, text); }
    void SetScript_UndoSPs(const std::string& text) { SetTextOf(Undo, text); }
    void SetTemplateText(const std::string& text) { SetTextOf(Template, text); }
    void SetHeader_Name(const std::string& text) { SetTextOf(Name, text); }
    void SetHeader_Desc(const std::string& text) { SetTextOf(Description, text); }
    // Also the author of g_objAudit.
    void SetHeader_Author(const std::string& text);
    // Also the legal text of g_objAudit.
    void SetHeader_Legal(const std::string& text);
    // Also the language of g_objAudit, and through it the setting.
    void SetScriptLanguage(const std::string& text);

    // --- includes, by position from 0; 9 beyond the last ---
    std::string Includes(std::int16_t index) const;
    std::int16_t IncludeCount() const;
    // Appends a file to the document and to the includes of g_objAudit.
    void AddInclude(const std::string& path);
    void ClearIncludes();
    // Removes the child of the document, then asks g_objAudit's list, which counts from 1, for the same
    // number.
    void RemoveInclude(std::int16_t index);
    Value Include(std::int16_t index) const { return Includes(index); }

    // --- the file ---
    bool IsLoaded() const noexcept { return m_isLoaded; }
    // True. Raises 0x800403E9 for what is no XML, with the reason as the trace's note, and 13 for a script
    // that is no CDATA section; the profile in memory then stays.
    bool Load(const std::string& path);
    // An empty profile with the user's defaults; not loaded until it has been saved.
    void NewFile();
    // Writes to the path, or to the last one when it is empty. False, after a box, when the name is blank or
    // the language empty; raises what the file system says.
    bool Save(const std::string& path);

    const std::string& Path() const noexcept { return m_path; }

  private:
    enum Field {
        Name,
        Description,
        Author,
        Legal,
        Language,
        Template,
        Ddl,
        Identity,
        Views,
        Aggregate,
        Standard,
        DeleteData,
        DeleteArchitecture,
        Undo,
        Analyze,
        FieldCount,
    };

    std::string TextOf(Field field) const;
    void SetTextOf(Field field, const std::string& text);
    XmlDocument& TheDocument();
    // Raises 13 for a script that is no CDATA section; the fields then stay as they were.
    void FindNodes(XmlDocument& document);
    XmlNode& NewElement(XmlNode& parent, const std::string& name);
    void Publish();

    std::unique_ptr<XmlDocument> m_document;
    std::array<XmlNode*, FieldCount> m_nodes{};
    XmlNode* m_includes = nullptr;
    std::string m_path;
    bool m_isLoaded = false;
};

} // namespace quillon
