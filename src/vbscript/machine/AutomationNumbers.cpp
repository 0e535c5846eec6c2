// Automation errors of the surroundings that have a number of the language's own.

#include <algorithm>
#include <iterator>

#include "platform/FailureNumbers.h"
#include "vbscript/machine/ErrObject.h"

namespace quillon::vbscript {
namespace {

struct Row {
    std::uint32_t automation;
    std::int32_t number;
};

// In the order of the automation numbers.
constexpr Row Rows[] = {
    {0x80004001, numbers::ActionNotSupported},
    {0x80004002, numbers::NoAutomation},
    {0x80020001, numbers::MemberNotSupported},
    {0x80020003, numbers::MemberNotSupported},
    {0x80020004, numbers::NamedArgumentNotFound},
    {0x80020005, numbers::TypeMismatch},
    {0x80020006, numbers::MemberNotSupported},
    {0x80020007, numbers::NamedArgumentsNotSupported},
    {0x80020008, numbers::VariantTypeNotSupported},
    {0x8002000A, numbers::Overflow},
    {0x8002000B, numbers::SubscriptOutOfRange},
    {0x8002000C, numbers::LocaleNotSupported},
    {0x8002000D, numbers::ArrayLocked},
    {0x8002000E, numbers::WrongArgumentCount},
    {0x8002000F, numbers::ArgumentNotOptional},
    {0x80020011, numbers::NotACollection},
    {0x8002802F, numbers::DllFunctionNotFound},
    {0x80028CA0, numbers::TypeMismatch},
    {0x80028CA1, numbers::SubscriptOutOfRange},
    {0x80028CA2, numbers::DeviceIoError},
    {0x80028CA3, numbers::NoTemporaryFile},
    {0x80030002, numbers::NameNotFoundInAutomation},
    {0x80030003, numbers::PathNotFound},
    {0x80030004, numbers::TooManyFiles},
    {0x80030005, numbers::PermissionDenied},
    {0x80030008, numbers::OutOfMemory},
    {0x80030012, numbers::TooManyFiles},
    {0x80030013, numbers::PermissionDenied},
    {0x8003001D, numbers::DeviceIoError},
    {0x8003001E, numbers::DeviceIoError},
    {0x80030020, numbers::PathFileAccess},
    {0x80030021, numbers::PermissionDenied},
    {0x80030050, numbers::FileAlreadyExists},
    {0x80030070, numbers::DiskFull},
    {0x800300FC, numbers::FileNotFound},
    {0x80030100, numbers::PermissionDenied},
    {0x80030101, numbers::PermissionDenied},
    {0x80030103, numbers::DeviceIoError},
    {0x80040154, numbers::CannotCreateObject},
    {0x800401E3, numbers::CannotCreateObject},
    {0x800401E6, numbers::NameNotFoundInAutomation},
    {0x800401EA, numbers::NameNotFoundInAutomation},
    {0x800401F3, numbers::CannotCreateObject},
    {0x800401F5, numbers::CannotCreateObject},
    {0x800401FE, numbers::CannotCreateObject},
    {0x80070005, numbers::PermissionDenied},
    {0x8007000E, numbers::OutOfMemory},
    {0x80070057, numbers::InvalidCall},
    {0x800706BA, numbers::RemoteServerUnavailable},
    {0x80080005, numbers::CannotCreateObject},
};
static_assert(std::ranges::is_sorted(Rows, {}, &Row::automation));

} // namespace

std::int32_t LowNumber(std::int32_t number) noexcept {
    constexpr std::uint32_t facility = 0x800A0000;
    const auto bits = static_cast<std::uint32_t>(number);
    if ((bits & 0xFFFF0000U) == facility)
        return static_cast<std::int32_t>(bits & 0xFFFF);
    const Row* row = std::ranges::lower_bound(Rows, bits, {}, &Row::automation);
    return row != std::end(Rows) && row->automation == bits ? row->number : number;
}

} // namespace quillon::vbscript
