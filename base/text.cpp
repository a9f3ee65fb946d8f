// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

namespace kavo {

namespace {

constexpr std::size_t kExactDigits = 15;  ///< of any whole number that a double holds exactly

unsigned byteAt(std::string_view text, std::size_t position)
{
    return static_cast<unsigned char>(text[position]);
}

bool isContinuation(std::string_view text, std::size_t position)
{
    return position < text.size() && (byteAt(text, position) & 0xC0U) == 0x80U;
}

/// Length that a lead byte announces; 0 for a byte that cannot lead.
std::size_t announcedLength(unsigned lead)
{
    if (lead < 0x80U) return 1;
    if (lead >= 0xC2U && lead <= 0xDFU) return 2;
    if (lead >= 0xE0U && lead <= 0xEFU) return 3;
    if (lead >= 0xF0U && lead <= 0xF4U) return 4;
    return 0;
}

/// Overlong forms, surrogates and values above U+10FFFF show in the second byte.
bool isSecondByteAllowed(unsigned lead, unsigned second)
{
    switch (lead) {
    case 0xE0U: return second >= 0xA0U;
    case 0xEDU: return second <= 0x9FU;
    case 0xF0U: return second >= 0x90U;
    case 0xF4U: return second <= 0x8FU;
    default: return true;
    }
}

/// Length of the valid UTF-8 sequence at `position`; 0 when there is none.
std::size_t sequenceLength(std::string_view text, std::size_t position)
{
    const unsigned lead = byteAt(text, position);
    const std::size_t length = announcedLength(lead);
    if (length <= 1) return length;
    for (std::size_t i = 1; i < length; ++i)
        if (!isContinuation(text, position + i)) return 0;
    return isSecondByteAllowed(lead, byteAt(text, position + 1)) ? length : 0;
}

/// Length of the character at `position`, at once where it is ASCII, as nearly all are.
std::size_t lengthAt(std::string_view text, std::size_t position)
{
    return byteAt(text, position) < 0x80U ? 1 : std::max<std::size_t>(1, sequenceLength(text, position));
}

char32_t lowerCase(char32_t c)
{
    const auto within = [c](char32_t first, char32_t last) { return c >= first && c <= last; };
    if (within('A', 'Z')) return c + 0x20;
    if (within(0xC0, 0xDE) && c != 0xD7) return c + 0x20;
    if (within(0x100, 0x137) || within(0x14A, 0x177)) return c | 1U;
    if ((within(0x139, 0x148) || within(0x179, 0x17E)) && (c % 2 == 1)) return c + 1;
    if (within(0x391, 0x3A9)) return c + 0x20;
    if (within(0x410, 0x42F)) return c + 0x20;
    if (within(0x400, 0x40F)) return c + 0x50;
    return c;
}

char lowerAscii(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

std::size_t skipDigits(std::string_view text, std::size_t position)
{
    while (position < text.size() && isDigit(text[position])) ++position;
    return position;
}

/// End of the exponent at `position`, or `position` itself when no complete exponent stands there.
std::size_t skipExponent(std::string_view text, std::size_t position)
{
    if (position >= text.size() || (text[position] != 'e' && text[position] != 'E')) return position;
    std::size_t digits = position + 1;
    if (digits < text.size() && (text[digits] == '+' || text[digits] == '-')) ++digits;
    const std::size_t end = skipDigits(text, digits);
    return end > digits ? end : position;
}

/// Value of a complete exponent ("e-5", "E+400"), 0 of an empty one.
std::int64_t exponentOf(std::string_view exponent)
{
    constexpr std::int64_t kBeyondEverything = 1'000'000'000'000'000;
    const std::string_view digits = exponent.substr(std::min(exponent.find_first_of("0123456789"), exponent.size()));
    std::int64_t value = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (result.ec == std::errc::result_out_of_range) value = kBeyondEverything;
    value = std::min(value, kBeyondEverything);
    return exponent.find('-') == std::string_view::npos ? value : -value;
}

/// What a number without a sign is read as that no double can hold: the largest one, or 0.
double nearestToOutOfRange(std::string_view mantissa, std::string_view exponent)
{
    const std::size_t firstDigit = mantissa.find_first_of("123456789");
    if (firstDigit == std::string_view::npos) return 0;
    const auto first = static_cast<std::int64_t>(firstDigit);
    const auto point = static_cast<std::int64_t>(std::min(mantissa.find('.'), mantissa.size()));
    const std::int64_t digitsBeforePoint = first < point ? point - first : point + 1 - first;
    return digitsBeforePoint + exponentOf(exponent) > 0 ? std::numeric_limits<double>::max() : 0;
}

/// Value of a few digits, which a double holds exactly.
double wholeNumber(std::string_view digits)
{
    std::int64_t value = 0;
    for (const char digit : digits) value = value * 10 + (digit - '0');
    return static_cast<double>(value);
}

struct NumberPrefix
{
    double value = 0;
    std::size_t length = 0;  ///< bytes that belong to the number, leading blanks included
};

std::optional<NumberPrefix> numberPrefix(std::string_view text)
{
    const std::size_t start = std::min(text.find_first_not_of(' '), text.size());
    const bool negative = start < text.size() && text[start] == '-';
    const bool hasSign = negative || (start < text.size() && text[start] == '+');
    const std::size_t digits = hasSign ? start + 1 : start;
    const std::size_t pointAt = skipDigits(text, digits);
    const bool hasPoint = pointAt < text.size() && text[pointAt] == '.';
    const std::size_t mantissaEnd = hasPoint ? skipDigits(text, pointAt + 1) : pointAt;
    const std::size_t digitCount = mantissaEnd - digits - (hasPoint ? 1 : 0);
    if (digitCount == 0) return std::nullopt;
    const std::size_t end = skipExponent(text, mantissaEnd);
    // Nearly all numbers are the two digits of a part of a time.
    if (end == pointAt && digitCount <= kExactDigits) {
        const double value = wholeNumber(text.substr(digits, digitCount));
        return NumberPrefix{negative ? -value : value, end};
    }
    double value = 0;
    const auto [unused, error] = std::from_chars(text.data() + digits, text.data() + end, value);
    if (error == std::errc::result_out_of_range)
        value =
            nearestToOutOfRange(text.substr(digits, mantissaEnd - digits), text.substr(mantissaEnd, end - mantissaEnd));
    return NumberPrefix{negative ? -value : value, end};
}

}  // namespace

std::string asLine(std::string_view text)
{
    return std::string(text).append(kLineEnd);
}

std::size_t characterLength(std::string_view text, std::size_t position)
{
    return position < text.size() ? lengthAt(text, position) : 0;
}

char32_t codePointOf(std::string_view character)
{
    if (character.size() == 1) return byteAt(character, 0);
    char32_t value = byteAt(character, 0) & (0xFFU >> (character.size() + 1));
    for (std::size_t i = 1; i < character.size(); ++i) value = (value << 6U) | (byteAt(character, i) & 0x3FU);
    return value;
}

void appendUtf8(std::string& text, char32_t value)
{
    const auto put = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
    if (value < 0x80U) {
        put(value);
    } else if (value < 0x800U) {
        put(0xC0U | (value >> 6U));
        put(0x80U | (value & 0x3FU));
    } else if (value < 0x10000U) {
        put(0xE0U | (value >> 12U));
        put(0x80U | ((value >> 6U) & 0x3FU));
        put(0x80U | (value & 0x3FU));
    } else {
        put(0xF0U | (value >> 18U));
        put(0x80U | ((value >> 12U) & 0x3FU));
        put(0x80U | ((value >> 6U) & 0x3FU));
        put(0x80U | (value & 0x3FU));
    }
}

std::size_t countCharacters(std::string_view text)
{
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); at += lengthAt(text, at)) ++count;
    return count;
}

std::size_t advance(std::string_view text, std::size_t from, std::size_t characters)
{
    std::size_t at = from;
    for (std::size_t i = 0; i < characters; ++i) {
        if (at >= text.size()) return std::string_view::npos;
        at += lengthAt(text, at);
    }
    return at;
}

std::string_view firstCharacters(std::string_view text, std::size_t count)
{
    if (text.size() <= count) return text;  // each takes a byte or more; 3 % of the command line's show
    return text.substr(0, advance(text, 0, count));
}

std::string_view lastCharacters(std::string_view text, std::size_t count)
{
    const std::size_t all = countCharacters(text);
    return all <= count ? text : text.substr(advance(text, 0, all - count));
}

std::string_view fromCharacter(std::string_view text, std::size_t first)
{
    const std::size_t at = advance(text, 0, first - 1);
    return at == std::string_view::npos ? std::string_view{} : text.substr(at);
}

std::string_view characters(std::string_view text, std::size_t first, std::size_t count)
{
    return firstCharacters(fromCharacter(text, first), count);
}

std::string cutOrPad(std::string_view text, std::size_t width)
{
    std::string result(firstCharacters(text, width));
    const std::size_t length = countCharacters(result);
    result.append(width - length, ' ');
    return result;
}

std::string_view trimBlanks(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string replaceAll(std::string_view text, std::string_view what, std::string_view with)
{
    std::string result;
    std::size_t from = 0;
    if (!what.empty()) {
        for (std::size_t at = text.find(what); at != std::string_view::npos; at = text.find(what, from)) {
            result.append(text.substr(from, at - from)).append(with);
            from = at + what.size();
        }
    }
    return result.append(text.substr(from));
}

double numberOf(std::string_view text)
{
    return numberPrefix(text).value_or(NumberPrefix{}).value;
}

std::int32_t integerOf(std::string_view text)
{
    constexpr double kLow = std::numeric_limits<std::int32_t>::min();
    constexpr double kHigh = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::clamp(std::nearbyint(numberOf(text)), kLow, kHigh));
}

bool isNumeric(std::string_view text)
{
    const auto prefix = numberPrefix(text);
    return prefix && trimBlanks(text.substr(prefix->length)).empty();
}

std::string decimal(double number)
{
    if (number == 0) return "0";  // without the sign that zero can have
    constexpr double kBeyondExact = 1e15;
    if (std::fabs(number) < kBeyondExact) {
        const auto whole = static_cast<std::int64_t>(number);
        if (static_cast<double>(whole) == number) return std::to_string(whole);
    }
    std::array<char, 400> buffer{};
    const auto [end, error] =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, std::chars_format::fixed);
    return {buffer.data(), end};
}

std::string printedNumber(double number)
{
    return (number < 0 ? "" : " ") + decimal(number) + " ";
}

std::string foldCase(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = sequenceLength(text, at);
        if (length == 0)
            result.push_back(text[at]);
        else
            appendUtf8(result, lowerCase(codePointOf(text.substr(at, length))));
        at += std::max<std::size_t>(1, length);
    }
    return result;
}

bool equalIgnoringCase(std::string_view a, std::string_view b)
{
    return foldCase(a) == foldCase(b);
}

bool containsIgnoringCase(std::string_view text, std::string_view word)
{
    // After Horspool: a text may be a gigabyte of anything, and most of it is skipped. `step` is how far the
    // word can move on when a byte stands under its last letter.
    const std::size_t last = word.size() - 1;
    std::array<std::size_t, 256> step{};
    step.fill(word.size());
    for (std::size_t i = 0; i < last; ++i)
        for (const unsigned letter : {byteAt(word, i), byteAt(word, i) - ('a' - 'A')}) step.at(letter) = last - i;
    const auto isLetter = [](char letter, char c) { return lowerAscii(c) == letter; };
    for (std::size_t at = 0; at + last < text.size(); at += step.at(byteAt(text, at + last)))
        if (std::equal(word.begin(), word.end(), text.substr(at).begin(), isLetter)) return true;
    return false;
}

}  // namespace kavo
