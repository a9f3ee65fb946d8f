// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/uno/Sequence.hxx>

#include <rtl/ustring.hxx>
#include <string_view>

/// Our values as the office takes them.
namespace kavo {

[[nodiscard]] inline rtl::OUString officeText(std::string_view utf8)
{
    return {utf8.data(), static_cast<sal_Int32>(utf8.size()), RTL_TEXTENCODING_UTF8};
}

/// The argument list of a load or a store with one entry.
[[nodiscard]] inline css::uno::Sequence<css::beans::PropertyValue> onlyProperty(const rtl::OUString& name,
                                                                                const css::uno::Any& value)
{
    css::beans::PropertyValue property;
    property.Name = name;
    property.Value = value;
    return {&property, 1};
}

}  // namespace kavo
