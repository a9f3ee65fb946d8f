// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/suggestion.h"

#include "base/text.h"

#include <algorithm>
#include <numeric>

namespace kavo {

namespace {

/// Typing errors between two words: a letter changed, put in, left out, or swapped with its neighbour.
std::size_t distance(std::string_view a, std::string_view b)
{
    std::vector<std::size_t> beforeLast(b.size() + 1);
    std::vector<std::size_t> last(b.size() + 1);
    std::vector<std::size_t> current(b.size() + 1);
    std::iota(last.begin(), last.end(), std::size_t{0});
    for (std::size_t i = 1; i <= a.size(); ++i) {
        current[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t change = a[i - 1] == b[j - 1] ? 0 : 1;
            current[j] = std::min({last[j] + 1, current[j - 1] + 1, last[j - 1] + change});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                current[j] = std::min(current[j], beforeLast[j - 2] + 1);
        }
        std::swap(beforeLast, last);
        std::swap(last, current);
    }
    return last.back();
}

/// How many errors a word of that length is forgiven.
std::size_t forgiven(std::size_t length)
{
    return length <= 3 ? 1 : length <= 5 ? 2 : 3;
}

/// An option's letters alone: its hyphens are no sign of likeness.
std::string_view withoutHyphens(std::string_view option)
{
    return option.substr(std::min(option.find_first_not_of('-'), option.size()));
}

std::size_t distanceOfWords(std::string_view typed, std::string_view candidate)
{
    constexpr std::size_t kShortestBeginning = 2;
    const std::string word = foldCase(withoutHyphens(typed));
    const std::string other = foldCase(withoutHyphens(candidate));
    if (word.size() >= kShortestBeginning && other.starts_with(word)) return 0;
    const std::size_t errors = distance(word, other);
    // A word of which nothing stays is another word.
    return errors < std::max(word.size(), other.size()) ? errors : word.size() + other.size();
}

}  // namespace

std::vector<std::string_view> nearest(std::string_view word, const std::vector<std::string_view>& candidates)
{
    constexpr std::size_t kLongestWord = 64;  // a mistyped path must not cost time
    if (word.size() > kLongestWord) return {};
    std::vector<std::string_view> found;
    std::size_t least = forgiven(withoutHyphens(word).size());
    for (const std::string_view candidate : candidates) {
        const std::size_t errors = distanceOfWords(word, candidate);
        if (errors > least) continue;
        if (errors < least) found.clear();
        least = errors;
        found.push_back(candidate);
    }
    return found;
}

std::string didYouMean(std::string_view word, const std::vector<std::string_view>& candidates,
                       std::string_view otherwise)
{
    const auto found = nearest(word, candidates);
    if (found.empty()) return std::string(otherwise);
    std::string text = ", did you mean ";
    for (std::size_t i = 0; i < found.size(); ++i)
        text.append(i == 0 ? "" : i + 1 == found.size() ? " or " : ", ").append(found[i]);
    return text + "?";
}

}  // namespace kavo
