#include "platform/files/file_error.h"

#include <gtest/gtest.h>

#include <cerrno>

#include "tests/support/raises.h"

namespace quenzel7::files {
namespace {

TEST(FileError, SystemMessageIsThatOfTheNumber) {
  EXPECT_EQ(SystemMessage(ENOENT), "No such file or directory");
}

TEST(FileError, HasTheNumberOfTheRunTime) {
  const auto number = [](int errorNumber) { return static_cast<Long>(ErrorNumberOf(errorNumber)); };
  for (const int missing : {ENOENT, ENOTDIR}) EXPECT_EQ(number(missing), 76) << missing;
  for (const int denied : {EACCES, EPERM, EROFS, EISDIR}) EXPECT_EQ(number(denied), 70) << denied;
  EXPECT_EQ(number(ENOMEM), 7);
  for (const int other : {ENOSPC, EIO, 0}) EXPECT_EQ(number(other), 57) << other;
}

TEST(FileError, TellsWhatFailedAndWhy) {
  EXPECT_RAISES(76, "file x cannot be read: No such file or directory",
                RaiseFileError("file x cannot be read", ENOENT));
}

}  // namespace
}  // namespace quenzel7::files
