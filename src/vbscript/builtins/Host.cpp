// What reaches beyond the script: boxes, objects by name, the engine's own version, the locale, colours.
//
// Scripts come from profiles that travel between people, so nothing here opens files, processes or the
// network: CreateObject knows the objects of CreatableObjects() and no others.
#include "platform/Object.h"
#include "vbscript/builtins/Arguments.h"
#include "vbscript/builtins/Families.h"

namespace quillon::vbscript {
namespace {

ScriptSite& SiteOf(BuiltinContext& context) {
    ScriptSite* const site = context.Site();
    if (site == nullptr)
        RaiseInvalidCall();
    return *site;
}

std::string Utf8Or(Arguments arguments, std::size_t index, std::u16string_view missing) {
    return TextOr(arguments, index, Text(missing)).ToUtf8();
}

Variant MsgBox(BuiltinContext& context, Arguments arguments) {
    const std::string prompt = ToText(arguments[0]).ToUtf8();
    const std::int32_t buttons = LongOr(arguments, 1, 0);
    const std::string title = Utf8Or(arguments, 2, u"VBScript");
    return static_cast<std::int16_t>(SiteOf(context).ScriptMessage(prompt, buttons, title));
}

Variant InputBox(BuiltinContext& context, Arguments arguments) {
    const std::string prompt = ToText(arguments[0]).ToUtf8();
    const std::string title = Utf8Or(arguments, 1, u"VBScript");
    return Text::FromUtf8(SiteOf(context).ScriptInput(prompt, title, Utf8Or(arguments, 2, u"")));
}

Variant CreateObject(BuiltinContext&, Arguments arguments) {
    const Text wanted = ToText(arguments[0]);
    for (const CreatableObject& candidate : CreatableObjects()) {
        const Text known = Text::FromAscii(candidate.programId);
        if (known.Length() != 0 && CompareIgnoringCase(known.View(), wanted.View()) == 0)
            return candidate.create();
    }
    throw Failure(numbers::CannotCreateObject);
}

Variant GetObject(BuiltinContext&, Arguments) {
    throw Failure(numbers::CannotCreateObject);
}

Variant ScriptEngine(BuiltinContext&, Arguments) {
    return u"VBScript";
}
Variant MajorVersion(BuiltinContext&, Arguments) {
    return std::int32_t{5};
}
Variant MinorVersion(BuiltinContext&, Arguments) {
    return std::int32_t{8};
}
Variant BuildVersion(BuiltinContext&, Arguments) {
    return std::int32_t{0};
}

constexpr std::int32_t EnglishUnitedStates = 1033;
constexpr std::int32_t LocaleNotSupported = 447;
constexpr std::int32_t InvalidPicture = 481;

Variant GetLocale(BuiltinContext&, Arguments) {
    return EnglishUnitedStates;
}

// Names the locale that scripts have anyway; any other is refused. Zero and no argument mean the system's.
Variant SetLocale(BuiltinContext&, Arguments arguments) {
    const Variant wanted = IsGiven(arguments, 0) ? PlainValue(arguments[0]) : Variant(std::int32_t{0});
    const bool byName = wanted.IsText() && !NumberIn(wanted.View());
    const bool known = byName ? CompareIgnoringCase(wanted.View(), u"en-us") == 0
                              : ToLong(wanted) == EnglishUnitedStates || ToLong(wanted) == 0;
    if (!known)
        throw Failure(LocaleNotSupported, "Object doesn't support current locale setting");
    return EnglishUnitedStates;
}

Variant RGB(BuiltinContext&, Arguments arguments) {
    std::int32_t colour = 0;
    for (int i = 2; i >= 0; --i) {
        const std::int32_t part = ToInteger(arguments[static_cast<std::size_t>(i)]);
        if (part < 0)
            RaiseInvalidCall();
        colour = colour * 256 + std::min(part, std::int32_t{255});
    }
    return colour;
}

// Pictures come from files.
Variant LoadPicture(BuiltinContext&, Arguments arguments) {
    (void)ToText(arguments[0]);
    throw Failure(InvalidPicture, "Invalid picture");
}

constexpr Builtin Table[] = {
    {"MsgBox", 1, 5, MsgBox},
    {"InputBox", 1, 7, InputBox},
    {"CreateObject", 1, 2, CreateObject},
    {"GetObject", 0, 2, GetObject},
    {"ScriptEngine", 0, 0, ScriptEngine},
    {"ScriptEngineMajorVersion", 0, 0, MajorVersion},
    {"ScriptEngineMinorVersion", 0, 0, MinorVersion},
    {"ScriptEngineBuildVersion", 0, 0, BuildVersion},
    {"GetLocale", 0, 0, GetLocale},
    {"SetLocale", 0, 1, SetLocale},
    {"RGB", 3, 3, RGB},
    {"LoadPicture", 1, 1, LoadPicture},
};

} // namespace

FunctionTable HostFunctions() noexcept {
    return Table;
}

} // namespace quillon::vbscript
