// The colour schemes that come with the program.

#include "base/text_file.h"
#include "core/colour_set.h"
#include "tests/support/colour_vision.h"
#include "tests/support/places.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <ostream>
#include <set>
#include <string>

namespace kavo {

namespace {

using test::contrast;
using test::difference;
using test::Lab;
using test::seen;
using test::Vision;

constexpr std::array kVisions = {Vision::Normal, Vision::Protanopia, Vision::Deuteranopia, Vision::Tritanopia};

/// Everything that is written on the background.
constexpr std::array kTexts = {&ColourSet::ColFrames, &ColourSet::ColLabels, &ColourSet::ColText, &ColourSet::ColWR,
                               &ColourSet::ColWC,     &ColourSet::ColPro,    &ColourSet::ColGood, &ColourSet::ColOK};

/// The six grades: "Beginner" has the colour of plain text.
constexpr std::array kGrades = {&ColourSet::ColWR,   &ColourSet::ColWC, &ColourSet::ColPro,
                                &ColourSet::ColGood, &ColourSet::ColOK, &ColourSet::ColText};

std::filesystem::path schemesFolder()
{
    return kavo::test::sourceFolder() / "data" / "schemes";
}

ColourSet scheme(const std::string& name)
{
    return parseColours(readFile(schemesFolder() / (name + ".ini"))).colours;
}

double leastContrast(const ColourSet& colours)
{
    double least = 21;
    for (const auto text : kTexts) least = std::min(least, contrast(colours.*text, colours.ColBack));
    return least;
}

/// Between any two grades, for the vision that tells them apart least.
double leastDifference(const ColourSet& colours)
{
    double least = 100;
    for (const Vision vision : kVisions)
        for (std::size_t i = 0; i < kGrades.size(); ++i)
            for (std::size_t j = 0; j < i; ++j)
                least = std::min(
                    least, difference(seen(colours.*kGrades.at(i), vision), seen(colours.*kGrades.at(j), vision)));
    return least;
}

// Pairs of a published set of test data for the formula (Sharma, Wu and Dalal, 2005).
TEST(ColourDifference, AgreesWithPublishedValues)
{
    struct Case
    {
        Lab first;
        Lab second;
        double expected;
    };
    const std::array cases = {Case{{50, 2.6772, -79.7751}, {50, 0, -82.7485}, 2.0425},
                              Case{{60.2574, -34.0099, 36.2677}, {60.4626, -34.1751, 39.4387}, 1.2644},
                              Case{{50, 2.5, 0}, {61, -5, 29}, 22.8977}};
    for (const auto& [first, second, expected] : cases) {
        EXPECT_NEAR(difference(first, second), expected, 0.0001);
        EXPECT_NEAR(difference(second, first), expected, 0.0001);
    }
}

TEST(ColourVision, WithoutOneKindOfConesRedAndGreenComeCloserAndGreyStays)
{
    constexpr Colour kRed = rgb(200, 80, 0);
    constexpr Colour kGreen = rgb(100, 140, 0);
    constexpr Colour kGrey = rgb(128, 128, 128);
    const double apart = difference(seen(kRed, Vision::Normal), seen(kGreen, Vision::Normal));
    EXPECT_LT(difference(seen(kRed, Vision::Protanopia), seen(kGreen, Vision::Protanopia)), apart / 2);
    EXPECT_LT(difference(seen(kRed, Vision::Deuteranopia), seen(kGreen, Vision::Deuteranopia)), apart / 2);
    for (const Vision vision : kVisions) EXPECT_LT(difference(seen(kGrey, vision), seen(kGrey, Vision::Normal)), 0.01);
}

TEST(ColourContrast, RunsFromOneToTwentyOne)
{
    EXPECT_NEAR(contrast(rgb(0, 0, 0), rgb(255, 255, 255)), 21, 0.001);
    EXPECT_NEAR(contrast(rgb(255, 255, 255), rgb(0, 0, 0)), 21, 0.001);
    EXPECT_NEAR(contrast(rgb(9, 8, 7), rgb(9, 8, 7)), 1, 0.001);
    // Grey 118: ((118 / 255 + 0.055) / 1.055) ^ 2.4 = 0.181164; 1.05 / 0.231164 = 4.542
    EXPECT_NEAR(contrast(rgb(118, 118, 118), rgb(255, 255, 255)), 4.542, 0.001);
}

struct SchemeRow
{
    const char* name;
    bool isDark;
    double contrast;    ///< at least, of every text
    double difference;  ///< at least, between any two grades
};

void PrintTo(const SchemeRow& row, std::ostream* out)
{
    *out << row.name;
}

constexpr std::array kSchemes = {SchemeRow{"Contrast", false, 7, 10}, SchemeRow{"Night", true, 4.5, 10},
                                 SchemeRow{"Colour-blind-day", false, 4.5, 15},
                                 SchemeRow{"Colour-blind-night", true, 4.5, 15}};

class SuppliedScheme : public testing::TestWithParam<SchemeRow>
{
};

TEST_P(SuppliedScheme, IsAColourFileAsTheProgramWritesIt)
{
    const std::string text = readFile(schemesFolder() / (std::string(GetParam().name) + ".ini"));
    EXPECT_EQ(parseColours(text).count, kColours);
    EXPECT_EQ(text, formatColours(parseColours(text).colours));
}

TEST_P(SuppliedScheme, IsReadEasilyOnItsBackground)
{
    EXPECT_GE(leastContrast(scheme(GetParam().name)), GetParam().contrast);
}

TEST_P(SuppliedScheme, TellsTheGradesApartForEveryEye)
{
    EXPECT_GE(leastDifference(scheme(GetParam().name)), GetParam().difference);
}

TEST_P(SuppliedScheme, IsAsDarkAsItsNameSays)
{
    EXPECT_EQ(seen(scheme(GetParam().name).ColBack, Vision::Normal).lightness < 50, GetParam().isDark);
}

INSTANTIATE_TEST_SUITE_P(Schemes, SuppliedScheme, testing::ValuesIn(kSchemes), [](const auto& row) {
    std::string name = row.param.name;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

TEST(SuppliedSchemes, AreTheOnesThatAreTested)
{
    std::set<std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(schemesFolder()))
        files.insert(entry.path().filename().string());
    std::set<std::string> tested;
    for (const SchemeRow& row : kSchemes) tested.insert(std::string(row.name) + ".ini");
    EXPECT_EQ(files, tested);
}

// What the tests above would say of colours that were not chosen with care: the designed red, orange and
// green are too pale or too close for some.
TEST(DesignedColours, AreNeitherAsLegibleNorAsDistinctAsTheSuppliedSchemes)
{
    EXPECT_LT(leastContrast(ColourSet{}), 4.5);
    EXPECT_LT(leastDifference(ColourSet{}), 10);
}

}  // namespace

}  // namespace kavo
