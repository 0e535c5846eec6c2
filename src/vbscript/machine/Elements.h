// Elements of arrays and of objects, and what assignment does; for the machine and for who reaches script
// variables from outside it.
#pragma once

#include <span>

#include "vbscript/machine/Variant.h"

namespace quillon::vbscript {

// `container(arguments)`: an array's element, or what an object's default member gives. Raises 9, 13, 438 ...
Variant ReadElement(const Variant& container, std::span<Variant> arguments);
// `container(arguments) = value`, with Set if `isSet`.
void WriteElement(Variant& container, std::span<Variant> arguments, Variant value, bool isSet);
// The place of an element in the array `container`, which becomes the variable's own. Raises 9, 13.
Variant& ElementPlace(Variant& container, std::span<const Variant> arguments);

// `variable = value`, or Set: without Set an object gives its default property, and with Set what is no
// object raises 424. A variable declared as an array of fixed size raises 13. The old contents go last.
void AssignVariable(Variant& variable, Variant value, bool isSet);
// What a variable gets when `value` is assigned to it without Set: arrays become dynamic.
Variant AssignedValue(Variant value);

// The value of the variable that a Reference stands for; an undeclared one is Empty.
Variant Referred(const Variant& reference) noexcept;

// A member of any object. Host objects get Values; where they change an argument that is a Reference, the
// variable changes. A property without parameters that is read with arguments gives the element of its value.
Variant InvokeObject(const ObjectRef& object, MemberId member, InvokeKind kind, std::span<Variant> arguments);

} // namespace quillon::vbscript
