// The public face of the collections.
#include "model/faces/FaceTable.h"
#include "model/faces/ModelFaces.h"

namespace quillon {

template <>
const FaceClass& FaceClassOf<mdTables>() {
    return CollectionFace<mdTables, &mdTables::Table>("mdTables", "Table");
}

template <>
const FaceClass& FaceClassOf<mdFields>() {
    return CollectionFace<mdFields, &mdFields::Field>("mdFields", "Field");
}

template <>
const FaceClass& FaceClassOf<mdPrimaryKeyFields>() {
    return CollectionFace<mdPrimaryKeyFields, &mdPrimaryKeyFields::PrimaryKeyField>("mdPrimaryKeyFields",
                                                                                    "PrimaryKeyField");
}

template <>
const FaceClass& FaceClassOf<mdTriggers>() {
    return CollectionFace<mdTriggers, &mdTriggers::Trigger>("mdTriggers", "Trigger");
}

template <>
const FaceClass& FaceClassOf<mdStubFields>() {
    return CollectionFace<mdStubFields, &mdStubFields::Field>("mdStubFields", "Field");
}

// Scripts may add includes and no more: Clear and Remove belong to the profile.
template <>
const FaceClass& FaceClassOf<mdIncludes>() {
    using Table = FaceTable<mdIncludes>;
    static const FaceMember members[] = {
        Table::Method("Add", 1, 2,
                      [](ModelObject& model, std::span<Value> arguments) {
                          const bool keyed = arguments.size() > 1 && !arguments[1].IsMissing();
                          const std::string key = keyed ? conversion::ToText(arguments[1]) : std::string();
                          return ToValue(Table::Self(model).Add(conversion::ToText(arguments[0]), key));
                      }),
        Table::Item(),
        Table::Get<&mdIncludes::Count>("Count"),
        Table::NewEnum(),
    };
    static const FaceClass face{"mdIncludes", members, "Item", &Table::ReadElement};
    return face;
}

} // namespace quillon
