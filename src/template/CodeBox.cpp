#include "template/CodeBox.h"

#include <algorithm>
#include <array>

#include "platform/Conversion.h"
#include "platform/Editor.h"
#include "platform/Failure.h"
#include "platform/FailureNumbers.h"
#include "template/TextCase.h"

namespace quillon {
namespace {

struct Member {
    std::string_view name;
    std::size_t arguments;
    Value (*read)(Editor& editor, std::span<Value> arguments);
    void (*write)(Editor& editor, const Value& value) = nullptr;
};

// The first is the default member.
constexpr std::array Members{
    Member{"Text", 0, [](Editor& editor, std::span<Value>) { return Value(editor.Text()); },
           [](Editor& editor, const Value& value) { editor.Type(conversion::ToText(value)); }},
    Member{"SelText", 0, [](Editor& editor, std::span<Value>) { return Value(editor.SelectedText()); },
           [](Editor& editor, const Value& value) { editor.ReplaceSelection(conversion::ToText(value)); }},
    Member{"LineCount", 0, [](Editor& editor, std::span<Value>) { return Value(editor.LineCount()); }},
    Member{"GetLine", 1,
           [](Editor& editor, std::span<Value> arguments) {
               return Value(editor.LineText(conversion::ToLong(arguments[0])));
           }},
    Member{"CurrentLine", 0, [](Editor& editor, std::span<Value>) { return Value(editor.CaretLine()); }},
    Member{"Modified", 0, [](Editor& editor, std::span<Value>) { return Value(editor.Modified()); },
           [](Editor& editor, const Value& value) { editor.SetModified(conversion::ToBoolean(value)); }},
    Member{"ReadOnly", 0, [](Editor& editor, std::span<Value>) { return Value(editor.ReadOnly()); }},
    Member{"Language", 0, [](Editor& editor, std::span<Value>) { return Value(editor.Language()); }},
};

class CodeBox final : public Object {
  public:
    explicit CodeBox(Editor& editor)
        : m_editor(editor) {}

    std::string TypeName() const override { return "CodeMax"; }

    std::optional<MemberId> FindMember(std::string_view name) const override {
        const auto found = std::ranges::find_if(
            Members, [name](const Member& member) { return EqualFolded(member.name, name); });
        if (found == Members.end())
            return {};
        return static_cast<MemberId>(found - Members.begin());
    }

    Value Invoke(MemberId id, InvokeKind kind, std::span<Value> arguments) override {
        const Member& member = Members.at(static_cast<std::size_t>(id));
        if (kind == InvokeKind::Get || kind == InvokeKind::Call) {
            if (arguments.size() != member.arguments)
                throw Failure(numbers::WrongArgumentCount);
            return member.read(m_editor, arguments);
        }
        if (member.write == nullptr)
            throw Failure(numbers::NotACollection, "Object not a collection: " + std::string(member.name));
        if (arguments.size() != 1)
            throw Failure(numbers::WrongArgumentCount);
        member.write(m_editor, arguments[0]);
        return {};
    }

  private:
    Editor& m_editor;
};

static_assert(DefaultMemberId == 0);

} // namespace

ObjectRef MakeCodeBox(Editor& editor) {
    return MakeObject<CodeBox>(editor);
}

} // namespace quillon
