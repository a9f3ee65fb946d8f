// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/page/charts.h"

#include "insight/page/page_colours.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <numeric>

namespace kavo {

namespace {

constexpr double kWidth = 1000;  // of drawings that are stretched
constexpr double kHeight = 100;
constexpr double kMargin = 0.07;  // of a time bar, at both ends, for times beyond the scale
constexpr double kBeyond = 0.02;  // where those are shown

std::string percent(double part)
{
    return coordinate(100 * part) + "%";
}

void openDrawing(Markup& page, const std::string& kind, const std::string& title)
{
    page.open("svg", {{"class", kind}, {"role", "img"}}).element("title", title);
}

void openStretched(Markup& page, const std::string& kind, const std::string& title, const std::string& description,
                   double height)
{
    page.open("svg", {{"class", kind},
                      {"role", "img"},
                      {"viewBox", "0 0 " + coordinate(kWidth) + " " + coordinate(height)},
                      {"preserveAspectRatio", "none"}});
    page.element("title", title);
    if (!description.empty()) page.element("desc", description);
}

void writePart(Markup& page, const std::string& colourClass, double from, double to)
{
    page.empty("rect", {{"class", colourClass}, {"x", percent(from)}, {"width", percent(to - from)}});
}

double placeOnBar(double place)
{
    if (place < 0) return kBeyond;
    if (place > 1) return 1 - kBeyond;
    return kMargin + (1 - 2 * kMargin) * place;
}

void writeMark(Markup& page, const TimeScale& scale, std::optional<Hundredths> time, const std::string& kind)
{
    if (time) page.empty("circle", {{"class", kind}, {"cx", percent(placeOnBar(placeOn(scale, *time)))}});
}

/// Values as heights: the smallest one near the bottom, the largest near the top.
class Heights final
{
public:
    explicit Heights(const std::vector<Step>& steps)
    {
        for (const Step& step : steps) {
            if (!step.value) continue;
            m_least = m_isEmpty ? *step.value : std::min(m_least, *step.value);
            m_most = m_isEmpty ? *step.value : std::max(m_most, *step.value);
            m_isEmpty = false;
        }
    }

    [[nodiscard]] double of(Hundredths value) const
    {
        constexpr double kEdge = 5;
        if (m_least == m_most) return kHeight / 2;
        const double part = static_cast<double>(value - m_least) / static_cast<double>(m_most - m_least);
        return kEdge + (kHeight - 2 * kEdge) * (1 - part);
    }

private:
    bool m_isEmpty = true;
    Hundredths m_least = 0;
    Hundredths m_most = 0;
};

std::string linePath(const std::vector<Step>& steps)
{
    const Heights heights(steps);
    std::string path;
    std::optional<Hundredths> before;
    for (const Step& step : steps) {
        if (step.value == before) continue;
        const std::string x = coordinate(kWidth * step.from);
        if (before) path += "H" + x;
        if (step.value && before)
            path += "V" + coordinate(heights.of(*step.value));
        else if (step.value)
            path += "M" + x + " " + coordinate(heights.of(*step.value));
        before = step.value;
    }
    if (before) path += "H" + coordinate(kWidth);
    return path;
}

int wholeOf(const std::vector<Share>& shares, std::size_t count)
{
    return std::accumulate(shares.begin(), shares.begin() + static_cast<std::ptrdiff_t>(count), 0,
                           [](int sum, const Share& share) { return sum + share.count; });
}

/// The area below the upper edge of a share; those below it are drawn over it.
std::string stackPath(const std::vector<StackedStep>& steps, std::size_t share, int whole)
{
    std::string path = "M0 " + std::to_string(whole);
    int before = -1;
    for (const StackedStep& step : steps) {
        const int top = whole - wholeOf(step.shares, share + 1);
        if (top == before) continue;
        path.append("H").append(coordinate(kWidth * step.from)).append("V").append(std::to_string(top));
        before = top;
    }
    return path + "H" + coordinate(kWidth) + "V" + std::to_string(whole) + "z";
}

}  // namespace

std::string coordinate(double value)
{
    std::array<char, 32> text{};
    const long long hundredths = std::llround(std::fabs(value) * 100);
    static_cast<void>(std::snprintf(text.data(), text.size(), "%lld", hundredths));
    std::string digits = text.data();
    if (digits.size() < 3) digits.insert(0, 3 - digits.size(), '0');
    digits.insert(digits.size() - 2, ".");
    digits.erase(digits.find_last_not_of('0') + 1);
    if (digits.back() == '.') digits.pop_back();
    return value < 0 && digits != "0" ? "-" + digits : digits;
}

std::vector<Share> gradeShares(const GradeCounts& counts)
{
    std::vector<Share> shares;
    for (const Grade& grade : grades()) shares.push_back({gradeClass(grade.category), counts[grade.category]});
    return shares;
}

void writeShares(Markup& page, const std::string& title, const std::vector<Share>& shares)
{
    const int whole = std::max(1, wholeOf(shares, shares.size()));
    openDrawing(page, "shares", title);
    double from = 0;
    for (const Share& share : shares) {
        const double to = from + static_cast<double>(share.count) / whole;
        if (share.count > 0) writePart(page, share.colourClass, from, to);
        from = to;
    }
    page.close();
}

void writeTimeBar(Markup& page, const std::string& title, const TimeScale& scale, std::optional<Hundredths> time1,
                  std::optional<Hundredths> time2)
{
    openDrawing(page, "bar", title);
    for (std::size_t i = 0; i + 1 < scale.size(); ++i) {
        const double from = placeOnBar(placeOn(scale, scale.at(i)));
        const double to = placeOnBar(placeOn(scale, scale.at(i + 1)));
        // The grades in the order of the scale: OK has the last colour but one.
        if (to > from) writePart(page, "g" + std::to_string(scale.size() - 1 - i), from, to);
    }
    writeMark(page, scale, time2, "p2");
    writeMark(page, scale, time1, "p1");
    page.close();
}

void writeLine(Markup& page, const std::string& title, const std::string& description, const std::vector<Step>& steps)
{
    openStretched(page, "line", title, description, kHeight);
    page.empty("path", {{"d", linePath(steps)}}).close();
}

void writeStack(Markup& page, const std::string& title, const std::string& description,
                const std::vector<StackedStep>& steps)
{
    const std::vector<Share>& first = steps.front().shares;
    const int whole = std::max(1, wholeOf(first, first.size()));
    openStretched(page, "stack", title, description, whole);
    for (std::size_t share = first.size(); share-- > 0;)
        page.empty("path", {{"class", first.at(share).colourClass}, {"d", stackPath(steps, share, whole)}});
    page.close();
}

}  // namespace kavo
