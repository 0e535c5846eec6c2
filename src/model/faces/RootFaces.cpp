// The public face of the root, the database and the small classes around them.
#include "model/faces/FaceTable.h"
#include "model/faces/ModelFaces.h"

namespace quillon {

template <>
const FaceClass& FaceClassOf<AuditObj>() {
    using Table = FaceTable<AuditObj>;
    static const FaceMember members[] = {
        Table::GetAndSet<&AuditObj::Cancelled, &AuditObj::SetCancelled>("Cancelled"),
        Table::Method("Cancel", 0, 0,
                      [](ModelObject& model, std::span<Value>) {
                          Table::Self(model).Cancel();
                          return Value();
                      }),
        Table::Get<&AuditObj::Database>("Database"),
        Table::Get<&AuditObj::Includes>("Includes"),
        Table::Method("Include", 1, 1,
                      [](ModelObject& model, std::span<Value> arguments) {
                          return ToValue(Table::Self(model).Include(conversion::ToText(arguments[0])));
                      }),
        Table::Get<&AuditObj::Languages>("Languages"),
        Table::Get<&AuditObj::Template>("Template"),
        Table::Get<&AuditObj::Legal>("Legal"),
        Table::Get<&AuditObj::Author>("Author"),
    };
    static const FaceClass face{"AuditObj", members};
    return face;
}

template <>
const FaceClass& FaceClassOf<mdDatabase>() {
    using Table = FaceTable<mdDatabase>;
    static const FaceMember members[] = {
        Table::Get<&mdDatabase::AuditedTableCount>("AuditedTableCount"),
        Table::Get<&mdDatabase::Tables>("Tables"),
        Table::Get<&mdDatabase::Owner>("Owner"),
        Table::Get<&mdDatabase::Connection_String>("Connection_String"),
        Table::Get<&mdDatabase::Server>("Server"),
        Table::Get<&mdDatabase::User>("User"),
        Table::Get<&mdDatabase::Name>("Name"),
        Table::Get<&mdDatabase::ActiveTable>("ActiveTable"),
    };
    static const FaceClass face{"mdDatabase", members};
    return face;
}

template <>
const FaceClass& FaceClassOf<mdInclude>() {
    using Table = FaceTable<mdInclude>;
    static const FaceMember members[] = {Table::Get<&mdInclude::File>("File")};
    static const FaceClass face{"mdInclude", members};
    return face;
}

template <>
const FaceClass& FaceClassOf<mdLanguages>() {
    using Table = FaceTable<mdLanguages>;
    static const FaceMember members[] = {
        Table::GetAndSet<&mdLanguages::ScriptLanguage, &mdLanguages::SetScriptLanguage>("ScriptLanguage"),
    };
    static const FaceClass face{"mdLanguages", members};
    return face;
}

template <>
const FaceClass& FaceClassOf<mdTemplate>() {
    using Table = FaceTable<mdTemplate>;
    static const FaceMember members[] = {
        Table::GetAndSet<&mdTemplate::FileNameOnly, &mdTemplate::SetFileNameOnly>("FileNameOnly"),
        Table::GetAndSet<&mdTemplate::PathNameOnly, &mdTemplate::SetPathNameOnly>("PathNameOnly"),
        Table::GetAndSet<&mdTemplate::FilePathAndName, &mdTemplate::SetFilePathAndName>("FilePathAndName"),
    };
    static const FaceClass face{"mdTemplate", members};
    return face;
}

} // namespace quillon
