// Elements of arrays, Dim, ReDim and Erase.

#include <algorithm>

#include "platform/FailureNumbers.h"
#include "vbscript/machine/Array.h"
#include "vbscript/machine/Convert.h"
#include "vbscript/machine/Elements.h"
#include "vbscript/machine/FastPaths.h"
#include "vbscript/machine/Machine.h"

namespace quillon::vbscript {
namespace {

// The place of `subscript` in an array of one dimension; -1 where it is not simply that.
std::int64_t SimplePlace(const Variant& container, const Variant& subscript) noexcept {
    if (!container.IsArray() || !fast::IsWhole(subscript))
        return -1;
    const ArrayBuffer& array = *container.AsArray();
    const std::int64_t place = subscript.Number();
    return array.Dimensions() == 1 && place <= array.UpperBound(0) ? place : -1;
}

void RequireResizable(const Variant& variable) {
    if (variable.IsArray() && (variable.AsArray()->IsFixedSize() || variable.AsArray()->IsLocked()))
        throw Failure(numbers::ArrayLocked);
}

} // namespace

Machine::Step Machine::DoIndex(Step at) {
    const Variant& container = Read(at->b);
    const Variant& subscript = Read(at->c);
    const std::int64_t place = SimplePlace(container, subscript);
    if (place >= 0) {
        Variant element(container.AsArray()->Elements()[static_cast<std::size_t>(place)]);
        At(at->a).Swap(element);
        return at + 1;
    }
    if (!container.IsArray() && !container.IsObject())
        RaiseNamed(numbers::TypeMismatch, NameOf(at->b));
    const Variant kept(container);
    *Base(at->a) = Variant(subscript);
    return IndexObject(at, kept, 1);
}

Machine::Step Machine::DoIndexMany(Step at) {
    const Variant kept(Read(at->b));
    if (!kept.IsArray() && !kept.IsObject())
        RaiseNamed(numbers::TypeMismatch, NameOf(at->b));
    return IndexObject(at, kept, at->c);
}

void Machine::DoStoreIndex(Step at, bool isSet) {
    Variant& container = Target(at->a);
    const std::int64_t place = SimplePlace(container, Read(at->b));
    const Variant& value = Read(at->c);
    if (place >= 0 && (isSet ? value.IsObject() : !value.IsObject() && !value.IsArray())) {
        Variant stored(value);
        OwnArray(container)->Elements()[static_cast<std::size_t>(place)].Swap(stored);
        return;
    }
    Variant subscript(Read(at->b));
    WriteElement(container, {&subscript, 1}, Variant(value), isSet);
}

void Machine::DoStoreMany(Step at, bool isSet) {
    Variant* const first = Base(at->b);
    Variant value = std::move(first[at->c]);
    WriteElement(Target(at->a), {first, at->c}, std::move(value), isSet);
    ClearRegisters(first, first + at->c);
}

void Machine::DoReferElement(Step at) {
    Variant* const first = Base(at->c);
    const std::size_t count = at[1].Word();
    Variant& container = Target(at->b);
    if (container.IsArray()) {
        Variant& element = ElementPlace(container, {first, count});
        *Base(at[1].c) = Variant::LockOf(container.AsArray());
        *Base(at->a) = element.kind() == Kind::Reference ? Variant(element) : Variant::ReferenceTo(&element);
    } else {
        *Base(at->a) = ReadElement(Variant(container), {first, count});
    }
    for (Variant* place = first; place != first + count; ++place)
        if (place != Base(at->a))
            *place = Variant();
}

// A Dim that has run already, in a loop or in a text that is added again, leaves the array as it is.
void Machine::DoDimArray(Step at) {
    const ArrayShape& shape = Top().code->shapes[at->b];
    const Variant& held = Read(at->a);
    if (held.IsArray() && held.AsArray()->IsFixedSize() == shape.isFixed &&
        (!shape.isFixed || std::ranges::equal(held.AsArray()->UpperBounds(), shape.bounds)))
        return;
    Variant array(ArrayBuffer::Create(shape.bounds, shape.isFixed));
    Target(at->a).Swap(array);
}

void Machine::DoReDim(Step at, bool preserve) {
    RequireResizable(Target(at->a));
    Variant* const first = Base(at->b);
    std::vector<std::int32_t> bounds;
    for (Variant* place = first; place != first + at->c; ++place)
        bounds.push_back(ToLong(*place));
    if (bounds.size() > ArrayBuffer::MaxDimensions)
        throw Failure(numbers::SubscriptOutOfRange);
    Variant& variable = Target(at->a);
    RequireResizable(variable); // reading the bounds may have run code
    if (variable.IsArray() && preserve && variable.AsArray()->Dimensions() != 0) {
        ResizeArray(variable, bounds);
        return;
    }
    Variant fresh(ArrayBuffer::Create(bounds));
    variable.Swap(fresh);
}

void Machine::DoErase(Step at) {
    Variant& variable = Target(at->a);
    if (!variable.IsArray())
        RaiseNamed(numbers::TypeMismatch, NameOf(at->a));
    if (variable.AsArray()->IsLocked())
        throw Failure(numbers::ArrayLocked);
    if (variable.AsArray()->IsFixedSize()) {
        OwnArray(variable)->ClearElements();
        return;
    }
    Variant unsized(ArrayBuffer::Create({}));
    variable.Swap(unsized);
}

} // namespace quillon::vbscript
