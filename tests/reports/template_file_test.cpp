// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/template_file.h"

#include "tests/support/program_folder_fixture.h"

#include <gtest/gtest.h>

namespace kavo {
namespace {

TEST(TemplateFile, IsWrittenWithItsSeparators)
{
    EXPECT_EQ(formatTemplate({"<html>\r\n<body>", "<p>%lev_name%</p>", "", "bye"}),
              "<html>\r\n<body>\r\n%template2%\r\n<p>%lev_name%</p>\r\n%template3%\r\n\r\n%template4%\r\nbye\r\n");
}

TEST(TemplateFile, ComesBackAsItWasSaved)
{
    const std::vector<TemplateSections> samples = {
        {"a", "b", "c", "d"},
        {"", "", "", ""},
        {"two\r\nlines", " %template3% x", "%template2%", "%template4%\r\n\r\n"},
        {"\r\n", "ends with a line end\r\n", "  blanks  ", "\xE9t\xE9 \xD0\x96"},
    };
    for (const TemplateSections& sections : samples)
        EXPECT_EQ(loadTemplate({}, formatTemplate(sections)), sections) << formatTemplate(sections);
}

TEST(TemplateFile, LoadingTwiceDoublesTheSections)
{
    const std::string file = formatTemplate({"a", "b\r\nb", "", "d"});
    const TemplateSections once = loadTemplate({}, file);
    EXPECT_EQ(loadTemplate(once, file), (TemplateSections{"aa", "b\r\nbb\r\nb", "", "dd"}));
}

TEST(TemplateFile, SeparatorsMayHaveBlanksAroundThemButNoOtherCase)
{
    EXPECT_EQ(loadTemplate({}, "%TEMPLATE2%\r\n  %template2% \r\nb\r\n%template3%\r\nc\r\n%template4%\r\nd\r\n"),
              (TemplateSections{"%TEMPLATE2%", "b", "c", "d"}));
}

TEST(TemplateFile, BareLineFeedsAndAMissingLastLineEndAreRead)
{
    EXPECT_EQ(loadTemplate({}, "a\n%template2%\nb\n%template3%\nc\n%template4%\nd\ne"),
              (TemplateSections{"a", "b", "c", "d\r\ne"}));
}

TEST(TemplateFile, MissingSeparatorLeavesWhatWasAppended)
{
    EXPECT_EQ(loadTemplate({}, "a\r\n%template2%\r\nb\r\nc\r\n"), (TemplateSections{"a\r\n", "b\r\nc\r\n", "", ""}));
    EXPECT_EQ(loadTemplate({"x", "", "", ""}, ""), (TemplateSections{"x", "", "", ""}));
}

TEST(TemplateFile, NothingBehindTheLastSeparatorLeavesTheEndingAndCutsNothing)
{
    EXPECT_EQ(loadTemplate({"", "", "", "old"}, "a\r\n%template2%\r\nb\r\n%template3%\r\nc\r\n%template4%\r\n"),
              (TemplateSections{"a\r\n", "b\r\n", "c\r\n", "old"}));
}

TEST(TemplateFile, WithoutAFileTwoCharactersGo)
{
    EXPECT_EQ(loadTemplateFile({"abcd", "", "xЖё", "ab\r\n"}, {}), (TemplateSections{"ab", "", "x", "ab"}));
    const test::TemporaryFolder folder;
    EXPECT_EQ(loadTemplateFile({"abcd", "", "", "ab"}, folder / "none.ett"), (TemplateSections{"ab", "", "", ""}));
}

TEST(TemplateFile, SectionOfOneCharacterEndsTheCutting)
{
    EXPECT_EQ(loadTemplateFile({"abcd", "x", "abcd", "abcd"}, {}), (TemplateSections{"ab", "x", "abcd", "abcd"}));
}

TEST(TemplateFile, IsReadFromItsFile)
{
    const test::TemporaryFolder folder;
    folder.write("mine.ett", formatTemplate({"a", "b", "c", "d"}));
    EXPECT_EQ(loadTemplateFile({"0", "", "", ""}, folder / "mine.ett"), (TemplateSections{"0a", "b", "c", "d"}));
}

}  // namespace
}  // namespace kavo
