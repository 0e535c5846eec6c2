#include "model/faces/UnloadedProfile.h"

#include "model/faces/FaceTable.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"

namespace quillon {
namespace {

class UnloadedProfile : public ModelObject {
  public:
    bool IsLoaded() const noexcept { return false; }
    std::string Text() const { return {}; }
};

using Table = FaceTable<UnloadedProfile>;

constexpr FaceMember Text(std::string_view name) {
    return Table::Get<&UnloadedProfile::Text>(name);
}

constexpr FaceMember Include(std::string_view name) {
    return Table::Method(
        name, 1, 1, [](ModelObject&, std::span<Value>) -> Value { throw Failure(numbers::ObjectNotSet); });
}

} // namespace

template <>
const FaceClass& FaceClassOf<UnloadedProfile>() {
    static const FaceMember members[] = {
        Table::Get<&UnloadedProfile::IsLoaded>("IsLoaded"),
        Text("Script_UndoSPs"),
        Text("SCRIPT_ANALYZE"),
        Text("Script_DeleteQlnarchitecture"),
        Text("Script_DeleteDataSP"),
        Text("Script_ReportingSPStandard"),
        Text("Script_ReportingSPAggregate"),
        Text("Script_Views"),
        Text("SCRIPT_DDL"),
        Text("SCRIPT_IDENTITY"),
        Text("TemplateText"),
        Text("Header_Name"),
        Text("Header_Desc"),
        Text("Header_Author"),
        Text("Header_Legal"),
        Text("ScriptLanguage"),
        Include("Includes"),
        Table::Method("IncludeCount", 0, 0,
                      [](ModelObject&, std::span<Value>) { return Value(std::int16_t{0}); }),
        Include("Include"),
    };
    static const FaceClass face{"clsQlnTemplate", members};
    return face;
}

ObjectRef NewUnloadedProfile() {
    return FaceOf(std::make_shared<UnloadedProfile>());
}

} // namespace quillon
