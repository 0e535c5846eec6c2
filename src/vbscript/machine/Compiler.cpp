#include "vbscript/machine/Compiler.h"

#include "platform/FailureNumbers.h"
#include "vbscript/machine/ProcedureCompiler.h"

namespace quillon::vbscript {
namespace {

std::vector<std::size_t> LineStartsOf(std::u16string_view text) {
    std::vector<std::size_t> starts{0};
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool isPair = text[at] == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n';
        if (isPair)
            ++at;
        if (text[at] == u'\n' || text[at] == u'\r')
            starts.push_back(at + 1);
    }
    return starts;
}

class UnitCompiler {
  public:
    UnitCompiler(const Program& program, ProgramKind kind, const CompileContext& context, Unit& unit)
        : m_program(program)
        , m_kind(kind)
        , m_context(context)
        , m_unit(unit) {}

    void Run() {
        m_names.isExplicit = m_program.isExplicit;
        DeclareNames();
        for (const ClassDeclaration& declaration : m_program.classes)
            CompileClass(declaration);
        for (const Procedure& procedure : m_program.procedures)
            m_unit.procedures.emplace_back(m_context.globals.PlaceOf(procedure.name),
                                           CompileCode(procedure, nullptr));
        m_unit.main.unit = &m_unit;
        ProcedureCompiler main(m_unit.main, m_context, m_names, nullptr);
        if (m_context.localScope || m_kind == ProgramKind::Expression)
            main.CompileSnippet(m_program, m_kind == ProgramKind::Expression);
        else
            main.CompileModule(m_program, m_program.variables);
    }

  private:
    void DeclareNames() {
        for (const Procedure& procedure : m_program.procedures)
            Declare(procedure.name, Binding::Kind::Procedure);
        for (const ClassDeclaration& declaration : m_program.classes)
            Declare(declaration.name, Binding::Kind::Class);
        if (m_context.localScope)
            return;
        for (const Declaration& variable : m_program.variables)
            DeclareVariable(variable.name);
        for (const ConstantDeclaration& constant : m_program.constants) {
            m_names.names.insert_or_assign(constant.name, Binding{Binding::Kind::Literal, 0, constant.value});
            Code scratch;
            CodeWriter writer(scratch);
            (void)writer.ConstantOf(*constant.value);
            m_unit.constants.emplace_back(m_context.globals.PlaceOf(constant.name),
                                          scratch.constants.front());
        }
        if (m_program.isExplicit)
            DeclareImplied(m_program.redimmed);
        else if (m_kind != ProgramKind::Expression)
            DeclareImplied(m_program.assigned);
    }

    // Names that the program's body declares by writing to them. Those that it passes on may be variables, or
    // functions of another text.
    void DeclareImplied(const std::vector<NameId>& written) {
        for (const NameId name : written) {
            if (!IsKnown(name) && !m_context.members.Find(m_context.names.Utf8(name))) {
                Declare(name, Binding::Kind::Global);
                m_unit.implied.push_back(m_context.globals.PlaceOf(name));
            }
        }
        if (m_program.isExplicit)
            return;
        for (const NameId name : m_program.passed)
            if (!IsKnown(name))
                Declare(name, Binding::Kind::FreeGlobal);
    }

    bool IsKnown(NameId name) const {
        const BuiltinNames& builtins = m_context.builtins;
        return m_names.names.contains(name) || name == builtins.err ||
               builtins.functionsByName.contains(name) || builtins.constants.contains(name) ||
               builtins.specials.contains(name);
    }

    void Declare(NameId name, Binding::Kind kind) {
        m_names.names.insert_or_assign(name, Binding{kind, m_context.globals.PlaceOf(name)});
    }

    void DeclareVariable(NameId name) {
        Declare(name, Binding::Kind::Global);
        m_unit.variables.push_back(m_context.globals.PlaceOf(name));
    }

    std::unique_ptr<Code> CompileCode(const Procedure& procedure, const ClassNames* around) {
        auto code = std::make_unique<Code>();
        code->unit = &m_unit;
        ProcedureCompiler(*code, m_context, m_names, around).CompileProcedure(procedure);
        return code;
    }

    void CompileClass(const ClassDeclaration& declaration);
    static void AddMember(ClassInfo& info, ClassNames& names, const Procedure& procedure);
    void CompileMember(ClassInfo& info, const ClassNames& names, const Procedure& procedure);

    const Program& m_program;
    ProgramKind m_kind;
    const CompileContext& m_context;
    Unit& m_unit;
    UnitNames m_names;
};

void UnitCompiler::CompileClass(const ClassDeclaration& declaration) {
    auto info = std::make_unique<ClassInfo>();
    info->name = declaration.name;
    info->spelling = m_context.names.Utf8(declaration.name);
    info->machine = m_context.machine;
    ClassNames names;
    for (const Declaration& field : declaration.fields) {
        const std::size_t place = info->fieldCount++;
        if (place >= SpaceSize)
            throw CompileFailure(numbers::CompileOutOfMemory, field.place);
        names.names.insert_or_assign(field.name, Binding{Binding::Kind::Field, place});
        info->byName.emplace(field.name, static_cast<std::uint32_t>(info->members.size()));
        ClassMember member{};
        member.name = field.name;
        member.field = static_cast<std::int32_t>(place);
        member.isPublic = member.isPublicLet = member.isPublicSet = field.isPublic;
        info->members.push_back(std::move(member));
        if (field.isArray)
            info->arrays.push_back({static_cast<std::uint32_t>(place),
                                    {{field.bounds.begin(), field.bounds.end()}, !field.bounds.empty()}});
    }
    for (const Procedure& procedure : declaration.members)
        AddMember(*info, names, procedure);
    for (const Procedure& procedure : declaration.members)
        CompileMember(*info, names, procedure);
    m_unit.classes.emplace_back(m_context.globals.PlaceOf(declaration.name), std::move(info));
}

void UnitCompiler::AddMember(ClassInfo& info, ClassNames& names, const Procedure& procedure) {
    const auto [found, isNew] =
        info.byName.emplace(procedure.name, static_cast<std::uint32_t>(info.members.size()));
    if (isNew) {
        info.members.emplace_back();
        info.members.back().name = procedure.name;
        if (info.members.size() >= SpaceSize)
            throw CompileFailure(numbers::CompileOutOfMemory, procedure.place);
    }
    ClassMember& member = info.members[found->second];
    if (procedure.kind == ProcedureKind::PropertyLet)
        member.isPublicLet = procedure.isPublic;
    else if (procedure.kind == ProcedureKind::PropertySet)
        member.isPublicSet = procedure.isPublic;
    else
        member.isPublic = procedure.isPublic;
    if (procedure.isDefault)
        info.defaultMember = static_cast<std::int32_t>(found->second);
    names.names.insert_or_assign(procedure.name, Binding{Binding::Kind::SelfMember, found->second});
}

void UnitCompiler::CompileMember(ClassInfo& info, const ClassNames& names, const Procedure& procedure) {
    std::unique_ptr<Code> code = CompileCode(procedure, &names);
    if (procedure.name == m_context.names.InternAscii("Class_Initialize"))
        info.initialize = code.get();
    if (procedure.name == m_context.names.InternAscii("Class_Terminate"))
        info.terminate = code.get();
    ClassMember& member = info.members[info.byName.at(procedure.name)];
    if (procedure.kind == ProcedureKind::PropertyLet)
        member.let = std::move(code);
    else if (procedure.kind == ProcedureKind::PropertySet)
        member.set = std::move(code);
    else
        member.get = std::move(code);
}

} // namespace

namespace {

Variant ValueOf(const BuiltinConstant& constant) {
    if (constant.text)
        return *constant.text;
    return constant.isLong ? Variant(constant.number) : Variant(static_cast<std::int16_t>(constant.number));
}

} // namespace

BuiltinNames::BuiltinNames(Names& names) {
    for (const std::span<const Builtin> family : BuiltinFunctions())
        for (const Builtin& function : family) {
            functionsByName.emplace(names.InternAscii(function.name),
                                    static_cast<std::uint16_t>(functions.size()));
            functions.push_back(&function);
        }
    for (const std::span<const BuiltinConstant> family : BuiltinConstants())
        for (const BuiltinConstant& constant : family)
            constants.emplace(names.InternAscii(constant.name), ValueOf(constant));
    for (const CreatableObject& creatable : CreatableObjects())
        if (!creatable.name.empty())
            creatables.emplace(names.InternAscii(creatable.name), &creatable);
    specials = {{names.InternAscii("Execute"), Special::Execute},
                {names.InternAscii("ExecuteGlobal"), Special::ExecuteGlobal},
                {names.InternAscii("Eval"), Special::Eval},
                {names.InternAscii("GetRef"), Special::GetRef}};
    err = names.InternAscii("Err");
}

std::shared_ptr<Unit> Compile(std::u16string_view text, ProgramKind kind, const CompileContext& context) {
    const std::unique_ptr<Program> program = Parse(text, context.names, kind);
    auto unit = std::make_shared<Unit>();
    unit->text = text;
    unit->lineStarts = LineStartsOf(text);
    UnitCompiler(*program, kind, context, *unit).Run();
    return unit;
}

} // namespace quillon::vbscript
