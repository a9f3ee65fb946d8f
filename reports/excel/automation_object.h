// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <initializer_list>
#include <oaidl.h>
#include <span>
#include <string>
#include <string_view>

namespace kavo {

/// The automation library of Windows, in use by this thread as long as this object lives.
class AutomationLibrary final
{
public:
    AutomationLibrary();
    ~AutomationLibrary();
    AutomationLibrary(const AutomationLibrary&) = delete;
    AutomationLibrary& operator=(const AutomationLibrary&) = delete;
};

/// An argument or a result of an automation call, freed with all that it holds.
class AutomationValue final
{
public:
    AutomationValue();
    explicit AutomationValue(VARIANT owned) : m_value(owned) {}
    explicit AutomationValue(bool value);
    explicit AutomationValue(std::int32_t value);
    explicit AutomationValue(std::string_view utf8);
    AutomationValue(const AutomationValue&) = delete;
    AutomationValue& operator=(const AutomationValue&) = delete;
    ~AutomationValue();

    [[nodiscard]] const VARIANT& raw() const { return m_value; }

private:
    VARIANT m_value;
};

/// An object of another application whose members are found by name at run time. Every call throws
/// std::runtime_error when it fails.
class AutomationObject final
{
public:
    AutomationObject() = default;

    /// A new instance of a registered application ("Excel.Application").
    [[nodiscard]] static AutomationObject create(const wchar_t* programId);

    AutomationObject(AutomationObject&& other) noexcept;
    AutomationObject& operator=(AutomationObject&& other) noexcept;
    AutomationObject(const AutomationObject&) = delete;
    AutomationObject& operator=(const AutomationObject&) = delete;
    ~AutomationObject();

    /// The object that a property or a method yields.
    [[nodiscard]] AutomationObject get(const wchar_t* name,
                                       std::initializer_list<AutomationValue> arguments = {}) const;
    void set(const wchar_t* name, const AutomationValue& value) const;
    void call(const wchar_t* name) const;

private:
    explicit AutomationObject(IDispatch* dispatch) : m_dispatch(dispatch) {}

    /// The result is the caller's to free.
    [[nodiscard]] VARIANT invoke(const wchar_t* name, WORD kind, std::span<const AutomationValue> arguments) const;

    IDispatch* m_dispatch = nullptr;
};

}  // namespace kavo
