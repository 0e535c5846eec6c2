// The root of the object model: the selected database as the system and its templates see it.
//
// The session holds one, g_objAudit, and replaces it at every change of database. Screens and the loader use
// the setters; templates see the public face of it as `objAudit` and can do no more to the model than cancel
// the run, add includes and set the script language.
#pragma once

#include <memory>
#include <string>

#include "model/ModelObject.h"
#include "model/mdDatabase.h"
#include "model/mdIncludes.h"
#include "model/mdLanguages.h"
#include "platform/ObjectRef.h"

namespace quillon {

class AuditObj : public ModelObject {
  public:
    // The template asks the generation run to stop.
    bool Cancelled() const noexcept { return m_cancelled; }
    void SetCancelled(bool value) { m_cancelled = value; }
    void Cancel() { m_cancelled = true; }

    // The ticks stored for the database have been added, or these have been stored.
    bool HasStoredSelection() const noexcept { return m_hasStoredSelection; }
    void SetHasStoredSelection() { m_hasStoredSelection = true; }

    // Made with the root, never nothing.
    const std::shared_ptr<mdDatabase>& Database() const noexcept { return m_database; }
    const std::shared_ptr<mdIncludes>& Includes() const noexcept { return m_includes; }
    const std::shared_ptr<mdLanguages>& Languages() const noexcept { return m_languages; }
    // Nothing when the file is in the list already.
    std::shared_ptr<mdInclude> Include(std::string file) { return m_includes->Add(std::move(file)); }

    // A profile object of the root's own, as scripts see it; created on first read. Nothing ever loads it, so
    // all its texts are empty: it is not the session's profile.
    const ObjectRef& Template();

    // From the header of the session's profile.
    const std::string& Legal() const noexcept { return m_legal; }
    const std::string& Author() const noexcept { return m_author; }

    void SetDatabase(std::shared_ptr<mdDatabase> database) { m_database = std::move(database); }
    void SetLanguages(std::shared_ptr<mdLanguages> languages) { m_languages = std::move(languages); }
    void SetTemplate(ObjectRef profile) { m_template = std::move(profile); }
    void SetLegal(std::string text) { m_legal = std::move(text); }
    void SetAuthor(std::string text) { m_author = std::move(text); }

  private:
    std::shared_ptr<mdDatabase> m_database = std::make_shared<mdDatabase>();
    std::shared_ptr<mdIncludes> m_includes = std::make_shared<mdIncludes>();
    std::shared_ptr<mdLanguages> m_languages = std::make_shared<mdLanguages>();
    ObjectRef m_template;
    std::string m_legal;
    std::string m_author;
    bool m_cancelled = false;
    bool m_hasStoredSelection = false;
};

// g_objAudit; raises 91 while there is none, as between a login and the next pick of a database.
AuditObj& TheModel();

} // namespace quillon
