#include "architecture/clsQlnTemplate.h"

#include "model/AuditObj.h"
#include "model/mdIncludes.h"
#include "model/mdLanguages.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "platform/FrontEnd.h"
#include "platform/Platform.h"
#include "shell/Settings.h"
#include "shell/Trace.h"
#include "template/ScriptLanguage.h"

namespace quillon {
namespace {

// By field: the pattern under which a loaded file is searched, the first match counting.
constexpr const char* Patterns[] = {
    "header/name",
    "header/description",
    "header/author",
    "header/legal",
    "header/scriptlanguage",
    "templatecode/text()",
    "DDL/text()",
    "identity/text()",
    "Views/text()",
    "ReportingSPAggregate/text()",
    "ReportingSPStandard/text()",
    "DeleteDataSP/text()",
    "DeleteQlnarchitecture/text()",
    "UndoSPs/text()",
    "analyze/text()",
};

bool IsBlank(const std::string& text) {
    return text.find_first_not_of(' ') == std::string::npos;
}

} // namespace

clsQlnTemplate::clsQlnTemplate() = default;
clsQlnTemplate::~clsQlnTemplate() = default;

std::string clsQlnTemplate::TextOf(Field field) const {
    return m_nodes[field] == nullptr ? std::string() : m_nodes[field]->Text();
}

void clsQlnTemplate::SetTextOf(Field field, const std::string& text) {
    if (m_nodes[field] == nullptr)
        throw Failure(numbers::ObjectNotSet);
    m_nodes[field]->SetText(text);
}

void clsQlnTemplate::SetHeader_Author(const std::string& text) {
    SetTextOf(Author, text);
    TheModel().SetAuthor(text);
}

void clsQlnTemplate::SetHeader_Legal(const std::string& text) {
    SetTextOf(Legal, text);
    TheModel().SetLegal(text);
}

void clsQlnTemplate::SetScriptLanguage(const std::string& text) {
    SetTextOf(Language, text);
    TheModel().Languages()->SetScriptLanguage(text);
}

std::string clsQlnTemplate::Includes(std::int16_t index) const {
    if (m_includes == nullptr)
        throw Failure(numbers::ObjectNotSet);
    const auto children = m_includes->ChildNodes();
    if (index < 0 || static_cast<std::size_t>(index) >= children.size())
        throw Failure(numbers::SubscriptOutOfRange);
    return children[static_cast<std::size_t>(index)]->Text();
}

std::int16_t clsQlnTemplate::IncludeCount() const {
    const auto count = m_includes == nullptr ? 0 : m_includes->ChildNodes().size();
    if (count > INT16_MAX)
        throw Failure(numbers::Overflow);
    return static_cast<std::int16_t>(count);
}

void clsQlnTemplate::AddInclude(const std::string& path) {
    if (m_includes == nullptr)
        throw Failure(numbers::ObjectNotSet);
    NewElement(*m_includes, "filename").SetText(path);
    TheModel().Includes()->Add(path);
}

void clsQlnTemplate::RemoveInclude(std::int16_t index) {
    if (IncludeCount() == 0)
        return;
    const auto children = m_includes->ChildNodes();
    if (index < 0 || static_cast<std::size_t>(index) >= children.size())
        throw Failure(numbers::SubscriptOutOfRange);
    m_includes->RemoveChild(*children[static_cast<std::size_t>(index)]);
    TheModel().Includes()->Remove(index);
}

void clsQlnTemplate::ClearIncludes() {
    for (auto left = IncludeCount(); left > 0; --left)
        RemoveInclude(0);
    auto& list = *TheModel().Includes();
    for (auto left = list.Count(); left > 0; --left)
        list.Remove(1);
}

XmlDocument& clsQlnTemplate::TheDocument() {
    if (!m_document)
        m_document = ThePlatform().xml().NewDocument();
    return *m_document;
}

bool clsQlnTemplate::Load(const std::string& path) {
    auto document = ThePlatform().xml().NewDocument();
    m_path = path;
    if (!document->Load(path)) {
        g_objTrace->SetNote(path + ": " + document->Reason());
        throw Failure(numbers::NotATemplate, "The file specified was not a valid template.",
                      "clsXMLTemplate");
    }
    FindNodes(*document);
    m_document = std::move(document);
    Publish();
    m_isLoaded = true;
    return true;
}

void clsQlnTemplate::FindNodes(XmlDocument& document) {
    static_assert(std::size(Patterns) == FieldCount);
    const auto first = [&document](const char* pattern) {
        const auto found = document.GetElementsByTagName(pattern);
        return found.empty() ? nullptr : found.front();
    };
    std::array<XmlNode*, FieldCount> nodes{};
    for (std::size_t field = 0; field < FieldCount; ++field) {
        nodes[field] = first(Patterns[field]);
        if (field >= Template && nodes[field] != nullptr && !nodes[field]->IsCData())
            throw Failure(numbers::TypeMismatch);
    }
    m_nodes = nodes;
    m_includes = first("includes");
}

XmlNode& clsQlnTemplate::NewElement(XmlNode& parent, const std::string& name) {
    XmlNode& element = TheDocument().CreateElement(name);
    parent.AppendChild(element);
    return element;
}

void clsQlnTemplate::NewFile() {
    m_document = ThePlatform().xml().NewDocument();
    XmlNode& root = m_document->CreateElement("template");
    m_document->AppendChild(root);

    XmlNode& header = NewElement(root, "header");
    m_nodes[Name] = &NewElement(header, "name");
    m_nodes[Description] = &NewElement(header, "description");
    m_nodes[Author] = &NewElement(header, "author");
    m_nodes[Legal] = &NewElement(header, "legal");
    m_nodes[Language] = &NewElement(header, "scriptlanguage");
    m_includes = &NewElement(root, "includes");

    // The names and the order of files of old: two of them differ from what Load looks for, and one comes
    // twice, the second being the one in use.
    static constexpr std::pair<const char*, Field> sections[] = {
        {"templatecode", Template},
        {"UndoSPs", Undo},
        {"DeleteQlnarchitecture", DeleteArchitecture},
        {"DeleteDataSP", DeleteData},
        {"ReportingSPStandard", Standard},
        {"ReportingSPStandard", Standard},
        {"ReportingSPAggregate", Aggregate},
        {"Views", Views},
        {"DDL", Ddl},
        {"Identity", Identity},
        {"Analyze", Analyze},
    };
    for (const auto& [name, field] : sections) {
        m_nodes[field] = &m_document->CreateCData("");
        NewElement(root, name).AppendChild(*m_nodes[field]);
    }

    m_nodes[Language]->SetText(GetScriptLanguageName());
    m_nodes[Author]->SetText(settings::Read("author", ""));
    m_nodes[Legal]->SetText(settings::Read("legal", ""));
    Publish();
    m_isLoaded = false;
}

bool clsQlnTemplate::Save(const std::string& path) {
    std::string missing;
    if (IsBlank(TextOf(Name)))
        missing += " Template Name\r\n";
    if (TextOf(Language).empty())
        missing += " Scripting Language\r\n";
    if (!missing.empty()) {
        ThePlatform().frontEnd().Message("Required data is missing: \r\n\r\n" + missing +
                                             "\r\nOperation Cancelled",
                                         "Missing Template Fields", Icon::Warning);
        return false;
    }
    if (!path.empty())
        m_path = path;
    TheDocument().Save(m_path);
    m_isLoaded = true;
    return true;
}

void clsQlnTemplate::Publish() {
    AuditObj& model = TheModel();
    model.SetAuthor(Header_Author());
    model.SetLegal(Header_Legal());
    model.Languages()->SetScriptLanguage(ScriptLanguage());
    auto& includes = *model.Includes();
    includes.Clear();
    if (IncludeCount() > 0)
        for (const XmlNode* include : m_includes->ChildNodes())
            includes.Add(include->Text());
}

} // namespace quillon
