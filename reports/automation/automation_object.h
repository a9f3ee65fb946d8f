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
    explicit AutomationValue(float value);
    explicit AutomationValue(std::string_view utf8);
    explicit AutomationValue(const std::string& utf8) : AutomationValue(std::string_view(utf8)) {}
    explicit AutomationValue(const char* utf8) : AutomationValue(std::string_view(utf8)) {}
    AutomationValue(const AutomationValue& other);
    AutomationValue& operator=(const AutomationValue&) = delete;
    ~AutomationValue();

    [[nodiscard]] const VARIANT& raw() const { return m_value; }

    /// Throws std::runtime_error when it is something else.
    [[nodiscard]] std::int32_t number() const;

private:
    VARIANT m_value;
};

/// Values in rows and columns, numbered from 1: one argument of a call. What is not set is empty.
class AutomationTable final
{
public:
    AutomationTable(int rows, int columns);

    void set(int row, int column, const AutomationValue& value);

    [[nodiscard]] const AutomationValue& value() const { return m_value; }

private:
    AutomationValue m_value;
};

/// Values one after the other, numbered from 0: one argument of a call. What is not set is empty.
class AutomationList final
{
public:
    explicit AutomationList(int size);

    void set(int number, const AutomationValue& value);

    [[nodiscard]] const AutomationValue& value() const { return m_value; }

private:
    AutomationValue m_value;
};

/// Whether an application of that name ("Excel.Application") can be started.
[[nodiscard]] bool isRegistered(const wchar_t* programId);

/// An object of another application whose members are found by name at run time. Every call throws
/// std::runtime_error when it fails.
class AutomationObject final
{
public:
    using Arguments = std::initializer_list<AutomationValue>;

    AutomationObject() = default;

    /// A new instance of a registered application.
    [[nodiscard]] static AutomationObject create(const wchar_t* programId);

    AutomationObject(AutomationObject&& other) noexcept;
    AutomationObject& operator=(AutomationObject&& other) noexcept;
    AutomationObject(const AutomationObject&) = delete;
    AutomationObject& operator=(const AutomationObject&) = delete;
    ~AutomationObject();

    /// The object that a property or a method yields.
    [[nodiscard]] AutomationObject get(const wchar_t* name, Arguments arguments = {}) const;
    /// What it yields where that is none.
    [[nodiscard]] AutomationValue value(const wchar_t* name, Arguments arguments = {}) const;
    void set(const wchar_t* name, const AutomationValue& value) const;
    void call(const wchar_t* name, Arguments arguments = {}) const;

private:
    explicit AutomationObject(IDispatch* dispatch) : m_dispatch(dispatch) {}

    /// The result is the caller's to free.
    [[nodiscard]] VARIANT invoke(const wchar_t* name, WORD kind, std::span<const AutomationValue> arguments) const;

    IDispatch* m_dispatch = nullptr;
};

}  // namespace kavo
