// Values across the border. Empty is undefined, Null is null, Nothing is null; whole numbers come back as
// Long, dates as dates; arrays are VBArray objects; anything else that is an object keeps its identity.
#include <cmath>
#include <limits>

#include "jscript/Bridge.h"
#include "jscript/Encoding.h"
#include "jscript/Engine.h"
#include "jscript/Prelude.h"
#include "jscript/ScriptedObject.h"
#include "platform/Conversion.h"
#include "platform/FailureNumbers.h"

namespace quillon::jscript {

// --- failures on their way into the script ---

void Engine::ThrowShielded(duk_context* context) {
    // The frame of the function that fails goes now: a script that catches the error does not end the entry.
    CloseFrame();
    m_scratch.clear();
    AppendCesu8(m_scratch, m_failure->description());
    Throw(context, m_failure->number(), m_scratch.c_str());
}

void Engine::Throw(duk_context* context, std::int32_t number, const char* description) {
    ThrowNumbered(context, number, description);
}

// --- to the script ---

void Engine::PushText(duk_context* context, std::string_view text) {
    m_scratch.clear();
    AppendCesu8(m_scratch, text);
    duk_push_lstring(context, m_scratch.data(), m_scratch.size());
}

void Engine::PushValue(duk_context* context, const Value& value) {
    duk_require_stack(context, 16);
    switch (value.Type()) {
    case ValueType::Empty:
    case ValueType::Error: duk_push_undefined(context); break;
    case ValueType::Null: duk_push_null(context); break;
    case ValueType::Boolean: duk_push_boolean(context, value.As<bool>()); break;
    case ValueType::Byte: duk_push_int(context, value.As<std::uint8_t>()); break;
    case ValueType::Integer: duk_push_int(context, value.As<std::int16_t>()); break;
    case ValueType::Long: duk_push_int(context, value.As<std::int32_t>()); break;
    case ValueType::Single: duk_push_number(context, static_cast<double>(value.As<float>())); break;
    case ValueType::Double: duk_push_number(context, value.As<double>()); break;
    case ValueType::Currency:
        duk_push_number(context, static_cast<double>(value.As<CurrencyValue>().tenThousandths) / 10000);
        break;
    case ValueType::Date: PushDate(context, value.As<DateValue>()); break;
    case ValueType::Decimal: PushText(context, value.As<DecimalValue>().digits); break;
    case ValueType::String: PushText(context, value.As<std::string>()); break;
    case ValueType::Object: PushObject(context, value.As<ObjectRef>()); break;
    case ValueType::Array: PushArray(context, *value.As<std::shared_ptr<const ArrayValue>>()); break;
    }
}

void Engine::PushDate(duk_context* context, DateValue date) {
    const auto time = conversion::CalendarOf(date);
    PushPreludeFunction(context, "makeDate");
    for (const int part : {time.year, time.month - 1, time.day, time.hour, time.minute, time.second})
        duk_push_int(context, part);
    duk_call(context, 6);
}

void Engine::PushArray(duk_context* context, const ArrayValue& array) {
    PushPreludeFunction(context, "makeArray");
    const duk_idx_t bounds = duk_push_array(context);
    for (std::size_t i = 0; i < array.upperBounds.size(); ++i) {
        duk_push_int(context, array.upperBounds[i]);
        duk_put_prop_index(context, bounds, static_cast<duk_uarridx_t>(i));
    }
    const duk_idx_t elements = duk_push_array(context);
    for (std::size_t i = 0; i < array.elements.size(); ++i) {
        PushValue(context, array.elements[i]);
        duk_put_prop_index(context, elements, static_cast<duk_uarridx_t>(i));
    }
    duk_call(context, 2);
}

void Engine::PushObject(duk_context* context, const ObjectRef& object) {
    if (!object) {
        duk_push_null(context);
        return;
    }
    if (const auto* scripted = dynamic_cast<const ScriptedObject*>(object.get());
        scripted != nullptr && scripted->IsOf(*this)) {
        scripted->Push(context);
        return;
    }
    std::unique_ptr<Wrapped>& held = m_wrapped[object.get()];
    if (held == nullptr) {
        held = std::make_unique<Wrapped>();
        held->object = object;
    }
    Wrapped& wrapped = *held;
    if (wrapped.target == nullptr)
        WrapNew(context, wrapped);
    else
        duk_push_heapptr(context, wrapped.proxy);
}

void Engine::WrapNew(duk_context* context, Wrapped& wrapped) {
    PushProxyPair(context, wrapped);
    wrapped.target = duk_get_heapptr(context, -2);
    wrapped.proxy = duk_get_heapptr(context, -1);
    m_byProxy[wrapped.proxy] = &wrapped;
    duk_remove(context, -2);
}

Wrapped* Engine::WrappedByProxy(void* proxy) noexcept {
    const auto found = m_byProxy.find(proxy);
    return found == m_byProxy.end() ? nullptr : found->second;
}

void Engine::Forget(Wrapped* wrapped) noexcept {
    m_byProxy.erase(wrapped->proxy);
    const auto found = m_wrapped.find(wrapped->object.get());
    if (found == m_wrapped.end() || found->second.get() != wrapped)
        return;
    m_releasedObjects.push_back(std::move(wrapped->object));
    m_wrapped.erase(found);
}

// --- from the script ---

void Engine::ReadArguments(duk_context* context, Frame& frame) {
    const duk_idx_t count = duk_get_top(context);
    frame.values.resize(static_cast<std::size_t>(count));
    for (duk_idx_t i = 0; i < count; ++i)
        ReadValue(context, i, frame.values[static_cast<std::size_t>(i)]);
}

void Engine::ReadValue(duk_context* context, duk_idx_t index, Value& value) {
    switch (duk_get_type(context, index)) {
    case DUK_TYPE_NULL: value = NullValue{}; break;
    case DUK_TYPE_BOOLEAN: value = duk_get_boolean(context, index) != 0; break;
    case DUK_TYPE_NUMBER: {
        const double number = duk_get_number(context, index);
        const bool whole = number >= std::numeric_limits<std::int32_t>::min() &&
                           number <= std::numeric_limits<std::int32_t>::max() && std::trunc(number) == number;
        value = whole ? Value(static_cast<std::int32_t>(number)) : Value(number);
        break;
    }
    case DUK_TYPE_STRING: {
        duk_size_t length = 0;
        const char* const text = duk_get_lstring(context, index, &length);
        value = duk_is_symbol(context, index) ? Value() : Value(Utf8FromCesu8({text, length}));
        break;
    }
    case DUK_TYPE_OBJECT: ReadObject(context, index, value); break;
    default: value = Value(); break;
    }
}

void Engine::ReadObject(duk_context* context, duk_idx_t index, Value& value) {
    index = duk_normalize_index(context, index);
    if (const Wrapped* const wrapped = WrappedByProxy(duk_get_heapptr(context, index)))
        value = wrapped->object;
    else if (!ReadArray(context, index, value) && !ReadDate(context, index, value))
        ReadScripted(context, index, value);
}

bool Engine::ReadArray(duk_context* context, duk_idx_t index, Value& value) {
    PushPreludeFunction(context, "isArray");
    duk_dup(context, index);
    duk_call(context, 1);
    const bool isArray = duk_get_boolean(context, -1) != 0;
    duk_pop(context);
    if (!isArray)
        return false;
    // The elements are gathered in a frame, since reading one may fail.
    Frame& frame = OpenFrame();
    duk_get_prop_string(context, index, "$elements");
    const auto count = static_cast<duk_uarridx_t>(duk_get_length(context, -1));
    frame.values.resize(count);
    for (duk_uarridx_t i = 0; i < count; ++i) {
        duk_get_prop_index(context, -1, i);
        ReadValue(context, -1, frame.values[i]);
        duk_pop(context);
    }
    duk_get_prop_string(context, index, "$bounds");
    const auto array = std::make_shared<ArrayValue>();
    const auto dimensions = static_cast<duk_uarridx_t>(duk_get_length(context, -1));
    for (duk_uarridx_t i = 0; i < dimensions; ++i) {
        duk_get_prop_index(context, -1, i);
        array->upperBounds.push_back(duk_get_int(context, -1));
        duk_pop(context);
    }
    duk_pop_2(context);
    array->elements = std::move(frame.values);
    CloseFrame();
    value = Value(std::shared_ptr<const ArrayValue>(array));
    return true;
}

bool Engine::ReadDate(duk_context* context, duk_idx_t index, Value& value) {
    PushPreludeFunction(context, "dateParts");
    duk_dup(context, index);
    duk_call(context, 1);
    const bool isDate = duk_is_array(context, -1) != 0;
    int parts[6] = {};
    for (duk_uarridx_t i = 0; isDate && i < 6; ++i) {
        duk_get_prop_index(context, -1, i);
        parts[i] = duk_get_int(context, -1);
        duk_pop(context);
    }
    duk_pop(context);
    if (!isDate)
        return false;
    // Years that a date value does not reach keep the object as it is.
    return Shielded(
        [&] { value = conversion::DateOf(parts[0], parts[1] + 1, parts[2], parts[3], parts[4], parts[5]); });
}

void Engine::ReadScripted(duk_context* context, duk_idx_t index, Value& value) {
    const std::uint32_t reference = m_nextReference++;
    ScriptedObject::Keep(context, index, reference);
    value = ObjectRef(new ScriptedObject(Link(), reference));
}

void Engine::DropReferences(Engine& engine, duk_context* context, void*) {
    for (const std::uint32_t reference : engine.m_releasedReferences)
        ScriptedObject::Drop(context, reference);
}

} // namespace quillon::jscript
