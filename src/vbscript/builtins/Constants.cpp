// The intrinsic constants, with the values that the language's documentation gives them.
#include "vbscript/builtins/Families.h"

namespace quillon::vbscript {
namespace {

using namespace std::string_view_literals;

constexpr BuiltinConstant Long(std::string_view name, std::uint32_t number) {
    return {name, static_cast<std::int32_t>(number), std::nullopt, true};
}

constexpr BuiltinConstant Texts[] = {
    {"vbCr", 0, u"\r"sv},        {"vbLf", 0, u"\n"sv},   {"vbCrLf", 0, u"\r\n"sv},
    {"vbNewLine", 0, u"\r\n"sv}, {"vbTab", 0, u"\t"sv},  {"vbVerticalTab", 0, u"\v"sv},
    {"vbFormFeed", 0, u"\f"sv},  {"vbBack", 0, u"\b"sv}, {"vbNullChar", 0, u"\0"sv},
    {"vbNullString", 0, u""sv},
};

constexpr BuiltinConstant Compares[] = {
    {"vbBinaryCompare", 0},
    {"vbTextCompare", 1},
    {"vbDatabaseCompare", 2},
};

constexpr BuiltinConstant Colours[] = {
    Long("vbBlack", 0),         Long("vbRed", 0x0000FF),   Long("vbGreen", 0x00FF00),
    Long("vbYellow", 0x00FFFF), Long("vbBlue", 0xFF0000),  Long("vbMagenta", 0xFF00FF),
    Long("vbCyan", 0xFFFF00),   Long("vbWhite", 0xFFFFFF),
};

constexpr BuiltinConstant Dates[] = {
    {"vbSunday", 1},      {"vbMonday", 2},        {"vbTuesday", 3},
    {"vbWednesday", 4},   {"vbThursday", 5},      {"vbFriday", 6},
    {"vbSaturday", 7},    {"vbUseSystem", 0},     {"vbUseSystemDayOfWeek", 0},
    {"vbFirstJan1", 1},   {"vbFirstFourDays", 2}, {"vbFirstFullWeek", 3},
    {"vbGeneralDate", 0}, {"vbLongDate", 1},      {"vbShortDate", 2},
    {"vbLongTime", 3},    {"vbShortTime", 4},
};

constexpr BuiltinConstant Boxes[] = {
    {"vbOKOnly", 0},
    {"vbOKCancel", 1},
    {"vbAbortRetryIgnore", 2},
    {"vbYesNoCancel", 3},
    {"vbYesNo", 4},
    {"vbRetryCancel", 5},
    {"vbCritical", 16},
    {"vbQuestion", 32},
    {"vbExclamation", 48},
    {"vbInformation", 64},
    {"vbDefaultButton1", 0},
    {"vbDefaultButton2", 256},
    {"vbDefaultButton3", 512},
    {"vbDefaultButton4", 768},
    {"vbApplicationModal", 0},
    {"vbSystemModal", 4096},
    Long("vbMsgBoxHelpButton", 16384),
    Long("vbMsgBoxSetForeground", 65536),
    Long("vbMsgBoxRight", 524288),
    Long("vbMsgBoxRtlReading", 1048576),
    {"vbOK", 1},
    {"vbCancel", 2},
    {"vbAbort", 3},
    {"vbRetry", 4},
    {"vbIgnore", 5},
    {"vbYes", 6},
    {"vbNo", 7},
};

constexpr BuiltinConstant Types[] = {
    {"vbEmpty", 0},  {"vbNull", 1},     {"vbInteger", 2},  {"vbLong", 3},        {"vbSingle", 4},
    {"vbDouble", 5}, {"vbCurrency", 6}, {"vbDate", 7},     {"vbString", 8},      {"vbObject", 9},
    {"vbError", 10}, {"vbBoolean", 11}, {"vbVariant", 12}, {"vbDataObject", 13}, {"vbDecimal", 14},
    {"vbByte", 17},  {"vbArray", 8192},
};

constexpr BuiltinConstant States[] = {
    {"vbTrue", -1},
    {"vbFalse", 0},
    {"vbUseDefault", -2},
    Long("vbObjectError", 0x80040000U),
};

} // namespace

ConstantTable TextConstants() noexcept {
    return Texts;
}
ConstantTable CompareConstants() noexcept {
    return Compares;
}
ConstantTable ColourConstants() noexcept {
    return Colours;
}
ConstantTable DateConstants() noexcept {
    return Dates;
}
ConstantTable BoxConstants() noexcept {
    return Boxes;
}
ConstantTable TypeConstants() noexcept {
    return Types;
}
ConstantTable StateConstants() noexcept {
    return States;
}

} // namespace quillon::vbscript
