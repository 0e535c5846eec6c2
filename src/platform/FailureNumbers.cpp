#include "platform/FailureNumbers.h"

#include <algorithm>
#include <array>

namespace quillon {
namespace {

struct Row {
    std::int32_t number;
    std::string_view text;
};

constexpr std::array Rows{
    Row{numbers::InvalidCall, "Invalid procedure call or argument"},
    Row{numbers::Overflow, "Overflow"},
    Row{numbers::OutOfMemory, "Out of memory"},
    Row{numbers::SubscriptOutOfRange, "Subscript out of range"},
    Row{numbers::ArrayLocked, "This array is fixed or temporarily locked"},
    Row{numbers::DivisionByZero, "Division by zero"},
    Row{numbers::TypeMismatch, "Type mismatch"},
    Row{numbers::OutOfStringSpace, "Out of string space"},
    Row{numbers::OutOfStackSpace, "Out of stack space"},
    Row{numbers::BadFileNameOrNumber, "Bad file name or number"},
    Row{numbers::FileNotFound, "File not found"},
    Row{numbers::BadFileMode, "Bad file mode"},
    Row{numbers::FileAlreadyOpen, "File already open"},
    Row{numbers::DeviceIoError, "Device I/O error"},
    Row{numbers::DiskFull, "Disk full"},
    Row{numbers::InputPastEndOfFile, "Input past end of file"},
    Row{numbers::PermissionDenied, "Permission denied"},
    Row{numbers::PathFileAccess, "Path/File access error"},
    Row{numbers::PathNotFound, "Path not found"},
    Row{numbers::ObjectNotSet, "Object variable not set"},
    Row{numbers::ForLoopNotInitialized, "For loop not initialized"},
    Row{numbers::InvalidUseOfNull, "Invalid use of Null"},
    Row{numbers::ObjectRequired, "Object required"},
    Row{numbers::CannotCreateObject, "ActiveX component can't create object"},
    Row{numbers::NoAutomation, "Class doesn't support Automation"},
    Row{numbers::MemberNotSupported, "Object doesn't support this property or method"},
    Row{numbers::ActionNotSupported, "Object doesn't support this action"},
    Row{numbers::NamedArgumentsNotSupported, "Object doesn't support named arguments"},
    Row{numbers::NamedArgumentNotFound, "Named argument not found"},
    Row{numbers::ArgumentNotOptional, "Argument not optional"},
    Row{numbers::WrongArgumentCount, "Wrong number of arguments or invalid property assignment"},
    Row{numbers::NotACollection, "Object not a collection"},
    Row{numbers::KeyAlreadyInUse, "This key is already associated with an element of this collection"},
    Row{numbers::VariantTypeNotSupported, "Variable uses an Automation type not supported in VBScript"},
    Row{numbers::VariableUndefined, "Variable is undefined"},
    Row{numbers::IllegalAssignment, "Illegal assignment"},
    Row{numbers::ObjectNotSafe, "Object not safe for scripting"},
    Row{numbers::InvalidReference, "Invalid or unqualified reference"},
    Row{numbers::NoCurrentRecord,
        "Either BOF or EOF is True, or the current record has been deleted. Requested "
        "operation requires a current record."},
    Row{numbers::ItemNotFound,
        "Item cannot be found in the collection corresponding to the requested name or ordinal."},
    Row{numbers::ObjectClosed, "Operation is not allowed when the object is closed."},
    Row{numbers::ObjectOpen, "Operation is not allowed when the object is open."},
    Row{numbers::DialogCancelled, "Cancel was selected."},
    Row{numbers::Unspecified, "Unspecified error"},
    Row{numbers::CommandTimeout, "Timeout expired"},
};

} // namespace

std::string_view FailureText(std::int32_t number) noexcept {
    const auto row = std::ranges::find(Rows, number, &Row::number);
    return row == Rows.end() ? std::string_view{} : row->text;
}

} // namespace quillon
