// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/automation/automation_object.h"

#include <array>
#include <new>
#include <objbase.h>
#include <oleauto.h>
#include <stdexcept>
#include <utility>
#include <vector>

namespace kavo {

namespace {

constexpr LCID kEnglish = 1033;  // the language of the member names, whatever the user's

void check(HRESULT result, const char* what)
{
    if (FAILED(result)) throw std::runtime_error(what);
}

std::wstring wide(std::string_view utf8)
{
    const int size = static_cast<int>(utf8.size());
    std::wstring text(static_cast<std::size_t>(::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, nullptr, 0)),
                      L'\0');
    ::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, text.data(), static_cast<int>(text.size()));
    return text;
}

DISPID memberNumber(IDispatch& dispatch, const wchar_t* name)
{
    std::wstring text(name);
    LPOLESTR names = text.data();
    DISPID number = DISPID_UNKNOWN;
    check(dispatch.GetIDsOfNames(IID_NULL, &names, 1, kEnglish, &number), "the application has no such member");
    return number;
}

/// An array of empty values of as many dimensions as there are bounds.
VARIANT emptyArray(std::span<SAFEARRAYBOUND> bounds)
{
    VARIANT array;
    ::VariantInit(&array);
    array.parray = ::SafeArrayCreate(VT_VARIANT, static_cast<UINT>(bounds.size()), bounds.data());
    if (array.parray == nullptr) throw std::bad_alloc();
    array.vt = VT_ARRAY | VT_VARIANT;
    return array;
}

VARIANT emptyTable(int rows, int columns)
{
    std::array<SAFEARRAYBOUND, 2> bounds{};
    bounds[0] = {static_cast<ULONG>(rows), 1};
    bounds[1] = {static_cast<ULONG>(columns), 1};
    return emptyArray(bounds);
}

VARIANT emptyList(int size)
{
    SAFEARRAYBOUND bounds = {static_cast<ULONG>(size), 0};
    return emptyArray({&bounds, 1});
}

/// The array makes its own copy.
void putCopy(const AutomationValue& array, LONG* place, const AutomationValue& value)
{
    VARIANT copied = value.raw();
    check(::SafeArrayPutElement(array.raw().parray, place, &copied), "a value does not fit into the array");
}

}  // namespace

AutomationLibrary::AutomationLibrary()
{
    check(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), "automation is not available");
}

AutomationLibrary::~AutomationLibrary()
{
    ::CoUninitialize();
}

AutomationValue::AutomationValue()
{
    ::VariantInit(&m_value);
}

AutomationValue::AutomationValue(bool value) : AutomationValue()
{
    m_value.vt = VT_BOOL;
    m_value.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
}

AutomationValue::AutomationValue(std::int32_t value) : AutomationValue()
{
    m_value.vt = VT_I4;
    m_value.lVal = value;
}

AutomationValue::AutomationValue(std::string_view utf8) : AutomationValue()
{
    const std::wstring text = wide(utf8);
    m_value.vt = VT_BSTR;
    m_value.bstrVal = ::SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    if (m_value.bstrVal == nullptr) throw std::bad_alloc();
}

AutomationValue::AutomationValue(float value) : AutomationValue()
{
    m_value.vt = VT_R4;
    m_value.fltVal = value;
}

AutomationValue::AutomationValue(const AutomationValue& other) : AutomationValue()
{
    VARIANT source = other.m_value;  // is only read, which the function's type does not say
    if (FAILED(::VariantCopy(&m_value, &source))) throw std::bad_alloc();
}

AutomationValue::~AutomationValue()
{
    ::VariantClear(&m_value);
}

std::int32_t AutomationValue::number() const
{
    if (m_value.vt != VT_I4) throw std::runtime_error("the member is no number");
    return m_value.lVal;
}

AutomationTable::AutomationTable(int rows, int columns) : m_value(emptyTable(rows, columns)) {}

void AutomationTable::set(int row, int column, const AutomationValue& value)
{
    std::array<LONG, 2> place = {row, column};
    putCopy(m_value, place.data(), value);
}

AutomationList::AutomationList(int size) : m_value(emptyList(size)) {}

void AutomationList::set(int number, const AutomationValue& value)
{
    LONG place = number;
    putCopy(m_value, &place, value);
}

bool isRegistered(const wchar_t* programId)
{
    CLSID id{};
    return SUCCEEDED(::CLSIDFromProgID(programId, &id));
}

AutomationObject AutomationObject::create(const wchar_t* programId)
{
    CLSID id{};
    check(::CLSIDFromProgID(programId, &id), "the application is not installed");
    void* dispatch = nullptr;
    check(::CoCreateInstance(id, nullptr, CLSCTX_LOCAL_SERVER, IID_IDispatch, &dispatch),
          "the application does not start");
    return AutomationObject(static_cast<IDispatch*>(dispatch));
}

AutomationObject::AutomationObject(AutomationObject&& other) noexcept
    : m_dispatch(std::exchange(other.m_dispatch, nullptr))
{
}

AutomationObject& AutomationObject::operator=(AutomationObject&& other) noexcept
{
    std::swap(m_dispatch, other.m_dispatch);
    return *this;
}

AutomationObject::~AutomationObject()
{
    if (m_dispatch != nullptr) m_dispatch->Release();
}

AutomationObject AutomationObject::get(const wchar_t* name, Arguments arguments) const
{
    const VARIANT result = invoke(name, DISPATCH_PROPERTYGET | DISPATCH_METHOD, {arguments.begin(), arguments.size()});
    if (result.vt == VT_DISPATCH && result.pdispVal != nullptr) return AutomationObject(result.pdispVal);
    const AutomationValue freed(result);
    throw std::runtime_error("the member is no object");
}

AutomationValue AutomationObject::value(const wchar_t* name, Arguments arguments) const
{
    return AutomationValue(invoke(name, DISPATCH_PROPERTYGET | DISPATCH_METHOD, {arguments.begin(), arguments.size()}));
}

void AutomationObject::set(const wchar_t* name, const AutomationValue& value) const
{
    const AutomationValue freed(invoke(name, DISPATCH_PROPERTYPUT, {&value, 1}));
}

void AutomationObject::call(const wchar_t* name, Arguments arguments) const
{
    const AutomationValue freed(invoke(name, DISPATCH_METHOD, {arguments.begin(), arguments.size()}));
}

VARIANT AutomationObject::invoke(const wchar_t* name, WORD kind, std::span<const AutomationValue> arguments) const
{
    if (m_dispatch == nullptr) throw std::runtime_error("there is no object to call");
    // Arguments stand in reverse order, and a value to be set has a name of its own.
    std::vector<VARIANT> reversed;
    for (const AutomationValue& argument : arguments) reversed.insert(reversed.begin(), argument.raw());
    DISPID valueName = DISPID_PROPERTYPUT;
    const bool isPut = kind == DISPATCH_PROPERTYPUT;
    DISPPARAMS parameters{reversed.data(), isPut ? &valueName : nullptr, static_cast<UINT>(reversed.size()),
                          isPut ? 1U : 0U};
    VARIANT result;
    ::VariantInit(&result);
    check(m_dispatch->Invoke(memberNumber(*m_dispatch, name), IID_NULL, kEnglish, kind, &parameters, &result, nullptr,
                             nullptr),
          "the application refuses a call");
    return result;
}

}  // namespace kavo
