#include "vbscript/source/DeclarationParser.h"

namespace quillon::vbscript {
namespace {

bool IsProperty(ProcedureKind kind) noexcept {
    return kind >= ProcedureKind::PropertyGet;
}

std::int32_t EndFailureOf(ProcedureKind kind) noexcept {
    return kind == ProcedureKind::Sub        ? numbers::ExpectedSub
           : kind == ProcedureKind::Function ? numbers::ExpectedFunction
                                             : numbers::ExpectedProperty;
}

// How many arguments a reader of the property passes.
std::size_t IndexCount(const Procedure& member) noexcept {
    return member.parameters.size() - (member.kind == ProcedureKind::PropertyGet ? 0 : 1);
}

} // namespace

void StatementParser::Declare(NameId name, Place place) {
    if (!m_declared.insert(name).second)
        throw CompileFailure(numbers::NameRedefined, place);
}

// The names behind Dim, Public or Private: `a, b(3), c()`.
void StatementParser::ParseDim(std::vector<Declaration>& into, bool isPublic) {
    do {
        Declaration declaration{};
        declaration.place = Now().place;
        declaration.name = TakeName();
        declaration.isPublic = isPublic;
        if (Take(TokenKind::OpenBracket)) {
            declaration.isArray = true;
            std::vector<std::int32_t> bounds;
            while (!Is(TokenKind::CloseBracket)) {
                if (!bounds.empty())
                    Expect(TokenKind::Comma, numbers::ExpectedCloseBracket);
                if (!Is(TokenKind::Integer) && !Is(TokenKind::Long))
                    Fail(numbers::ExpectedIntegerConstant);
                bounds.push_back(static_cast<std::int32_t>(Now().number));
                Skip();
            }
            Skip();
            declaration.bounds = Keep(bounds);
        }
        Declare(declaration.name, declaration.place);
        into.push_back(declaration);
    } while (Take(TokenKind::Comma));
}

// A literal; before a number there may be any signs.
const LiteralExpression* StatementParser::ParseConstantValue() {
    bool isSigned = false, negative = false;
    for (; Is(TokenKind::Minus) || Is(TokenKind::Plus); Skip()) {
        isSigned = true;
        negative = negative != Is(TokenKind::Minus);
    }
    const LiteralExpression* literal = ParseLiteral();
    const bool isNumber = literal != nullptr && literal->literal >= LiteralKind::Integer &&
                          literal->literal <= LiteralKind::Double;
    if (literal == nullptr || (isSigned && !isNumber))
        Fail(numbers::ExpectedLiteral);
    if (!negative)
        return literal;
    LiteralExpression node = *literal;
    node.number = -node.number;
    if (node.literal == LiteralKind::Integer && node.number > INT16_MAX) // of &H8000
        node.literal = LiteralKind::Long;
    if (node.literal == LiteralKind::Long && node.number > INT32_MAX)
        node.literal = LiteralKind::Double;
    return Make(node);
}

void StatementParser::ParseConst() {
    Skip();
    do {
        ConstantDeclaration constant{};
        constant.place = Now().place;
        constant.name = TakeName();
        Expect(TokenKind::Equal, numbers::ExpectedEquals);
        int brackets = 0;
        while (Take(TokenKind::OpenBracket))
            ++brackets;
        constant.value = ParseConstantValue();
        for (; brackets > 0; --brackets)
            Expect(TokenKind::CloseBracket, numbers::ExpectedCloseBracket);
        Declare(constant.name, constant.place);
        m_scope->constants.push_back(constant);
    } while (Take(TokenKind::Comma));
}

bool DeclarationParser::IsPropertyStart() const noexcept {
    const Keyword next = Ahead().keyword;
    return Is(Keyword::Property) && (next == Keyword::Get || next == Keyword::Let || next == Keyword::Set);
}

bool DeclarationParser::ParseModuleItem(bool isTopLevel) {
    if (Is(Keyword::Class) && isTopLevel) {
        ParseClass();
        EndStatement();
        return true;
    }
    if (!Is(Keyword::Public) && !Is(Keyword::Private) && !IsProcedureStart())
        return false;
    const Modifiers modifiers = ParseModifiers();
    if (IsPropertyStart() || modifiers.isDefault)
        throw CompileFailure(numbers::MustBeInClass, modifiers.place);
    if (IsProcedureStart()) {
        Procedure procedure = ParseProcedure(modifiers, false);
        m_program.procedures.push_back(std::move(procedure));
    } else if (Is(Keyword::Const)) {
        ParseConst();
    } else {
        ParseDim(m_scope->variables, true);
    }
    EndStatement();
    return true;
}

DeclarationParser::Modifiers DeclarationParser::ParseModifiers() {
    Modifiers modifiers;
    modifiers.place = Now().place;
    if (Is(Keyword::Public) || Is(Keyword::Private)) {
        modifiers.given = true;
        modifiers.isPublic = Is(Keyword::Public);
        Skip();
    }
    const Token& next = Ahead();
    const bool beforeProcedure = next.keyword == Keyword::Sub || next.keyword == Keyword::Function ||
                                 next.keyword == Keyword::Property;
    if (Is(Keyword::Default) && beforeProcedure) {
        if (!modifiers.given || !modifiers.isPublic)
            Fail(numbers::DefaultNotPublic);
        modifiers.isDefault = true;
        Skip();
    }
    return modifiers;
}

Procedure DeclarationParser::ParseProcedure(const Modifiers& modifiers, bool inClass) {
    Procedure procedure;
    procedure.isPublic = modifiers.isPublic;
    procedure.isDefault = modifiers.isDefault;
    procedure.place = modifiers.place;
    ParseProcedureHead(procedure);
    if (procedure.isDefault &&
        (procedure.kind == ProcedureKind::PropertyLet || procedure.kind == ProcedureKind::PropertySet))
        throw CompileFailure(numbers::DefaultNotGet, procedure.place);

    std::unordered_set<NameId> outer = std::exchange(m_declared, {});
    Scope* const outerScope = std::exchange(m_scope, &procedure);
    const int outerDo = std::exchange(m_doDepth, 0), outerFor = std::exchange(m_forDepth, 0);
    const int outerWith = std::exchange(m_withDepth, 0);
    ParseParameters(procedure);
    if (procedure.kind == ProcedureKind::Function || procedure.kind == ProcedureKind::PropertyGet)
        m_declared.insert(procedure.name); // the variable of the result
    m_inProcedure = true;
    m_procedureKind = procedure.kind;
    ParseProcedureBody(procedure);
    m_inProcedure = false;
    m_withDepth = outerWith;
    m_doDepth = outerDo;
    m_forDepth = outerFor;
    m_scope = outerScope;
    m_declared = std::move(outer);
    if (!inClass && m_declared.contains(procedure.name))
        throw CompileFailure(numbers::NameRedefined, procedure.place);
    return procedure;
}

void DeclarationParser::ParseProcedureHead(Procedure& procedure) {
    if (Take(Keyword::Sub)) {
        procedure.kind = ProcedureKind::Sub;
    } else if (Take(Keyword::Function)) {
        procedure.kind = ProcedureKind::Function;
    } else {
        Skip();
        procedure.kind = Is(Keyword::Get)   ? ProcedureKind::PropertyGet
                         : Is(Keyword::Let) ? ProcedureKind::PropertyLet
                                            : ProcedureKind::PropertySet;
        Skip();
    }
    procedure.name = TakeName();
}

void DeclarationParser::ParseParameters(Procedure& procedure) {
    if (Take(TokenKind::OpenBracket)) {
        while (!Is(TokenKind::CloseBracket)) {
            if (!procedure.parameters.empty())
                Expect(TokenKind::Comma, numbers::ExpectedCloseBracket);
            Parameter parameter{};
            parameter.byValue = Is(Keyword::ByVal);
            if (Is(Keyword::ByVal) || Is(Keyword::ByRef))
                Skip();
            const Place place = Now().place;
            parameter.name = TakeName();
            if (Take(TokenKind::OpenBracket))
                Expect(TokenKind::CloseBracket, numbers::ExpectedCloseBracket);
            Declare(parameter.name, place);
            procedure.parameters.push_back(parameter);
        }
        Skip();
    }
    const bool assigns =
        procedure.kind == ProcedureKind::PropertyLet || procedure.kind == ProcedureKind::PropertySet;
    if (assigns && procedure.parameters.empty())
        Fail(numbers::PropertyWithoutArgument);
}

void DeclarationParser::ParseProcedureBody(Procedure& procedure) {
    procedure.body = ParseBlock(BlockEnd::Procedure);
    procedure.end = Now().place;
    Expect(Keyword::End, numbers::ExpectedEnd);
    Expect(EndWordOf(procedure.kind), EndFailureOf(procedure.kind));
}

void DeclarationParser::ParseClass() {
    ClassDeclaration declaration{};
    declaration.place = Now().place;
    Skip();
    declaration.name = TakeName();
    Declare(declaration.name, declaration.place);
    EndStatement();
    std::unordered_set<NameId> outer = std::exchange(m_declared, {});
    m_inClass = true;
    for (;;) {
        SkipSeparators();
        if (Is(Keyword::End) || Is(TokenKind::EndOfText))
            break;
        ParseClassMember(declaration);
    }
    m_inClass = false;
    Expect(Keyword::End, numbers::ExpectedEnd);
    Expect(Keyword::Class, numbers::ExpectedClass);
    m_declared = std::move(outer);
    m_program.classes.push_back(std::move(declaration));
}

void DeclarationParser::ParseClassMember(ClassDeclaration& declaration) {
    if (Is(Keyword::Dim)) {
        Skip();
        ParseDim(declaration.fields, true);
        EndStatement();
        return;
    }
    const Modifiers modifiers = ParseModifiers();
    if (Is(Keyword::Const))
        Fail(numbers::SyntaxError);
    if (IsProcedureStart()) {
        Procedure member = ParseProcedure(modifiers, true);
        CheckMember(declaration, member);
        declaration.members.push_back(std::move(member));
    } else if (Is(Keyword::Property)) {
        Skip();
        Fail(numbers::ExpectedPropertyKind);
    } else if (modifiers.given) {
        if (Is(Keyword::Default) && Ahead().kind == TokenKind::Name)
            Fail(numbers::DefaultOnWhat);
        ParseDim(declaration.fields, modifiers.isPublic);
        CheckField(declaration);
    } else {
        Fail(numbers::SyntaxError);
    }
    EndStatement();
}

void DeclarationParser::CheckField(const ClassDeclaration& declaration) {
    const Declaration& field = declaration.fields.back();
    if (std::ranges::find(declaration.members, field.name, &Procedure::name) != declaration.members.end())
        throw CompileFailure(numbers::NameRedefined, field.place);
}

void DeclarationParser::CheckMember(const ClassDeclaration& declaration, const Procedure& member) const {
    const auto fail = [&](std::int32_t number) { throw CompileFailure(number, member.place); };
    if ((member.name == m_initialize || member.name == m_terminate) && !member.parameters.empty())
        fail(numbers::InitializeArguments);
    if (std::ranges::find(declaration.fields, member.name, &Declaration::name) != declaration.fields.end())
        fail(numbers::NameRedefined);
    for (const Procedure& other : declaration.members) {
        if (member.isDefault && other.isDefault && other.name != member.name)
            fail(numbers::MultipleDefaults);
        if (other.name != member.name)
            continue;
        if (!IsProperty(other.kind) || !IsProperty(member.kind) || other.kind == member.kind)
            fail(numbers::NameRedefined);
        if (IndexCount(other) != IndexCount(member))
            fail(numbers::InconsistentProperty);
    }
}

} // namespace quillon::vbscript
