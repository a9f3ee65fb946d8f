// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/run_time_error.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <new>
#include <stdexcept>

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
    EXPECT_STREQ(RunTimeError(Failure::FileTooLarge).what(), "File too large");
    EXPECT_STREQ(RunTimeError(Failure::OutOfMemory).what(), "Out of memory");
}

TEST(AnyError, IsToldInWords)
{
    EXPECT_EQ(inWords(RunTimeError(Failure::DiskFull, "a.txt")), "Disk full: a.txt");
    EXPECT_EQ(inWords(std::bad_alloc()), "Out of memory");
    EXPECT_EQ(inWords(std::length_error("basic_string::append")), "Out of memory");
    const std::filesystem::filesystem_error gone("cannot get current path", "/x/y.txt",
                                                 std::make_error_code(std::errc::no_such_file_or_directory));
    EXPECT_EQ(inWords(gone), "Path not found: y.txt");
    const auto busy = std::make_error_code(std::errc::resource_unavailable_try_again);
    EXPECT_EQ(inWords(std::system_error(busy, "thread")), busy.message());
    EXPECT_EQ(inWords(std::runtime_error("anything else")), "anything else");
}

TEST(RunTimeError, NamesTheFileOnce)
{
    const RunTimeError error(Failure::FileNotFound, "/some/where/data.ini");
    EXPECT_STREQ(error.what(), "File not found: data.ini");
    EXPECT_STREQ(error.about("/other.txt").what(), "File not found: data.ini");
    EXPECT_STREQ(RunTimeError(Failure::DiskFull).about("/x/other.txt").what(), "Disk full: other.txt");
    EXPECT_STREQ(RunTimeError(Failure::DiskFull, "/x/").what(), "Disk full");
}

TEST(RunTimeError, NamesThePathAndTheReasonInFull)
{
    const std::error_code denied = std::make_error_code(std::errc::permission_denied);
    EXPECT_EQ(RunTimeError(Failure::InputPastEnd).inFull(), "Input past end of file");
    EXPECT_EQ(RunTimeError(Failure::InputPastEnd, "/some/where/data.ini").inFull(),
              "Input past end of file: /some/where/data.ini");
    const RunTimeError refused(denied, "/some/where/data.ini");
    EXPECT_EQ(refused.failure(), Failure::PathFileAccess);
    EXPECT_STREQ(refused.what(), "Path/File access error: data.ini");
    EXPECT_EQ(refused.inFull(), "Path/File access error: /some/where/data.ini (" + denied.message() + ")");
    EXPECT_EQ(refused.about("/other.txt").inFull(), refused.inFull());
    EXPECT_EQ(RunTimeError(Failure::DiskFull).about("/x/").inFull(), "Disk full: /x/");
}

// Most of those who miss a file have only looked whether it is there.
TEST(RunTimeError, AsksTheSystemWhyAFileIsMissing)
{
    const std::string reason = std::make_error_code(std::errc::no_such_file_or_directory).message();
    const std::filesystem::path file = std::filesystem::temp_directory_path() / "kavo-no-such-file";
    EXPECT_EQ(RunTimeError(Failure::FileNotFound, file).inFull(),
              "File not found: " + file.string() + " (" + reason + ")");
    EXPECT_EQ(RunTimeError(Failure::PathNotFound, file).inFull(),
              "Path not found: " + file.string() + " (" + reason + ")");
    EXPECT_EQ(RunTimeError(Failure::PathNotFound, "kavo-no-such-file").inFull(), "Path not found: kavo-no-such-file");
    EXPECT_EQ(RunTimeError(Failure::InputPastEnd, file).inFull(), "Input past end of file: " + file.string());
}

TEST(Failure, FollowsTheSystemsError)
{
    const auto of = [](int value) { return failureOf(std::error_code(value, std::generic_category())); };
    EXPECT_EQ(of(ENOSPC), Failure::DiskFull);
    EXPECT_EQ(of(EFBIG), Failure::DiskFull);
    EXPECT_EQ(of(ENOENT), Failure::PathNotFound);
    EXPECT_EQ(of(ENOTDIR), Failure::PathNotFound);
    EXPECT_EQ(of(EACCES), Failure::PathFileAccess);
    EXPECT_EQ(of(ENOMEM), Failure::OutOfMemory);
#ifndef _WIN32
    EXPECT_EQ(of(EDQUOT), Failure::DiskFull);
#endif
}

TEST(InFull, NamesPathAndReasonOfErrorsOfAnyKind)
{
    const std::error_code denied = std::make_error_code(std::errc::permission_denied);
    EXPECT_EQ(inFull(RunTimeError(denied, "/x/data.ini")),
              "Path/File access error: /x/data.ini (" + denied.message() + ")");
    EXPECT_EQ(inFull(std::filesystem::filesystem_error("what", "/x/data.ini", denied)),
              "Path/File access error: /x/data.ini (" + denied.message() + ")");
    EXPECT_EQ(inFull(std::bad_alloc()), "Out of memory");
    EXPECT_EQ(inFull(std::runtime_error("Something else")), "Something else");
}

}  // namespace

}  // namespace kavo
