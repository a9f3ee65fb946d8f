#include "base/run_time_error.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace kavo {

namespace {

TEST(RunTimeError, HasTheStandardText)
{
    EXPECT_STREQ(RunTimeError(Failure::InputPastEnd).what(), "Input past end of file");
    EXPECT_STREQ(RunTimeError(Failure::FileNotFound).what(), "File not found");
    EXPECT_STREQ(RunTimeError(Failure::PathNotFound).what(), "Path not found");
    EXPECT_STREQ(RunTimeError(Failure::InvalidCall).what(), "Invalid procedure call or argument");
    EXPECT_STREQ(RunTimeError(Failure::SubscriptOutOfRange).what(), "Subscript out of range");
    EXPECT_STREQ(RunTimeError(Failure::PathFileAccess).what(), "Path/File access error");
    EXPECT_STREQ(RunTimeError(Failure::DiskFull).what(), "Disk full");
}

TEST(RunTimeError, NamesTheFileOnce)
{
    const RunTimeError error(Failure::FileNotFound, "/some/where/data.ini");
    EXPECT_STREQ(error.what(), "File not found: data.ini");
    EXPECT_STREQ(error.about("/other.txt").what(), "File not found: data.ini");
    EXPECT_STREQ(RunTimeError(Failure::DiskFull).about("/x/other.txt").what(), "Disk full: other.txt");
    EXPECT_STREQ(RunTimeError(Failure::DiskFull, "/x/").what(), "Disk full");
}

TEST(Failure, FollowsTheSystemsError)
{
    const auto of = [](int value) { return failureOf(std::error_code(value, std::generic_category())); };
    EXPECT_EQ(of(ENOSPC), Failure::DiskFull);
    EXPECT_EQ(of(EFBIG), Failure::DiskFull);
    EXPECT_EQ(of(ENOENT), Failure::PathNotFound);
    EXPECT_EQ(of(ENOTDIR), Failure::PathNotFound);
    EXPECT_EQ(of(EACCES), Failure::PathFileAccess);
#ifndef _WIN32
    EXPECT_EQ(of(EDQUOT), Failure::DiskFull);
#endif
}

}  // namespace

}  // namespace kavo
