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

// --- to the script ---

void Engine::PushText(duk_context* context, std::string_view text) {
    if (text.find_first_of("\xF0\xF1\xF2\xF3\xF4") == std::string_view::npos) {
        duk_push_lstring(context, text.data(), text.size());
        return;
    }
    std::string encoded;
    AppendCesu8(encoded, text);
    duk_push_lstring(context, encoded.data(), encoded.size());
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
    if (held == nullptr)
        held = std::make_unique<Wrapped>(Wrapped{object});
    if (held->proxy != nullptr)
        duk_push_heapptr(context, held->proxy);
    else
        PushNewProxy(context, *held);
}

Wrapped* Engine::WrappedAt(duk_context* context, duk_idx_t index) noexcept {
    void* const block = duk_is_object(context, index) != 0 ? duk_get_heapptr(context, index) : nullptr;
    return block == nullptr ? nullptr : static_cast<Wrapped*>(Memory::TagOf(block));
}

void Engine::ForgetBlock(void* memory) noexcept {
    auto* const wrapped = static_cast<Wrapped*>(Memory::TagOf(memory));
    (memory == wrapped->proxy ? wrapped->proxy : wrapped->target) = nullptr;
    if (wrapped->proxy != nullptr || wrapped->target != nullptr)
        return;
    const auto found = m_wrapped.find(wrapped->object.get());
    m_dropped.push_back(std::move(wrapped->object));
    m_wrapped.erase(found);
}

// --- from the script ---

std::vector<Value> Engine::ReadArguments(duk_context* context) {
    std::vector<Value> arguments;
    const duk_idx_t count = duk_get_top(context);
    arguments.reserve(static_cast<std::size_t>(count) + 1);
    for (duk_idx_t i = 0; i < count; ++i)
        arguments.push_back(ReadValue(context, i));
    return arguments;
}

std::vector<Value> Engine::ReadList(duk_context* context, duk_idx_t index) {
    index = duk_normalize_index(context, index);
    std::vector<Value> elements;
    const auto count = static_cast<duk_uarridx_t>(duk_get_length(context, index));
    for (duk_uarridx_t i = 0; i < count; ++i) {
        duk_get_prop_index(context, index, i);
        elements.push_back(ReadValue(context, -1));
        duk_pop(context);
    }
    return elements;
}

Value Engine::ReadValue(duk_context* context, duk_idx_t index) {
    switch (duk_get_type(context, index)) {
    case DUK_TYPE_NULL: return NullValue{};
    case DUK_TYPE_BOOLEAN: return duk_get_boolean(context, index) != 0;
    case DUK_TYPE_NUMBER: {
        const double number = duk_get_number(context, index);
        const bool whole = number >= std::numeric_limits<std::int32_t>::min() &&
                           number <= std::numeric_limits<std::int32_t>::max() && std::trunc(number) == number;
        return whole ? Value(static_cast<std::int32_t>(number)) : Value(number);
    }
    case DUK_TYPE_STRING: {
        duk_size_t length = 0;
        const char* const text = duk_get_lstring(context, index, &length);
        return duk_is_symbol(context, index) ? Value() : Value(Utf8FromCesu8({text, length}));
    }
    case DUK_TYPE_OBJECT: return ReadObject(context, duk_normalize_index(context, index));
    default: return {};
    }
}

Value Engine::ReadObject(duk_context* context, duk_idx_t index) {
    if (const Wrapped* const wrapped = WrappedAt(context, index))
        return wrapped->object;
    Value value;
    if (ReadArray(context, index, value) || ReadDate(context, index, value))
        return value;
    return ReadScripted(context, index);
}

bool Engine::ReadArray(duk_context* context, duk_idx_t index, Value& value) {
    PushPreludeFunction(context, "isArray");
    duk_dup(context, index);
    duk_call(context, 1);
    const bool isArray = duk_get_boolean(context, -1) != 0;
    duk_pop(context);
    if (!isArray)
        return false;
    const auto array = std::make_shared<ArrayValue>();
    duk_get_prop_string(context, index, "$elements");
    array->elements = ReadList(context, -1);
    duk_get_prop_string(context, index, "$bounds");
    for (const Value& bound : ReadList(context, -1))
        array->upperBounds.push_back(bound.As<std::int32_t>());
    duk_pop_2(context);
    value = Value(std::shared_ptr<const ArrayValue>(array));
    return true;
}

bool Engine::ReadDate(duk_context* context, duk_idx_t index, Value& value) {
    PushPreludeFunction(context, "dateParts");
    duk_dup(context, index);
    duk_call(context, 1);
    std::array<int, 6> parts{};
    const bool isDate = duk_is_array(context, -1) != 0;
    for (duk_uarridx_t i = 0; isDate && i < parts.size(); ++i) {
        duk_get_prop_index(context, -1, i);
        parts[i] = duk_get_int(context, -1);
        duk_pop(context);
    }
    duk_pop(context);
    if (!isDate)
        return false;
    try {
        value = conversion::DateOf(parts[0], parts[1] + 1, parts[2], parts[3], parts[4], parts[5]);
    } catch (const Failure&) {
        return false; // years that a date value does not reach keep the object as it is
    }
    return true;
}

// The same object for as long as the system holds it, so that it is equal to itself there.
Value Engine::ReadScripted(duk_context* context, duk_idx_t index) {
    const void* const block = duk_get_heapptr(context, index);
    if (const auto known = m_scripted.find(block); known != m_scripted.end())
        return ObjectRef(known->second);
    const std::uint32_t reference = m_nextReference++;
    ScriptedObject::Keep(context, index, reference);
    const ObjectRef object(new ScriptedObject(Link(), block, reference));
    m_scripted.emplace(block, object.get());
    return object;
}

} // namespace quillon::jscript
