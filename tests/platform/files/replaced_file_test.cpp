#include "platform/files/replaced_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/files/whole_file.h"
#include "tests/support/named_pipe.h"
#include "tests/support/raises.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7::files {
namespace {

namespace fs = std::filesystem;

class ReplacedFileTest : public ::testing::Test {
 protected:
  std::string Path() const { return folder_.File("x.txt"); }
  std::size_t FileCount() const {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder_.File("")), fs::directory_iterator()));
  }
  static std::string TextOf(const std::string& path) { return ReadWholeFile(path, "file"); }

  test::TemporaryFolder folder_;
};

TEST_F(ReplacedFileTest, TakesItsPlaceOnlyWhenCommitted) {
  WriteWholeFile(Path(), "old", "file");
  ReplacedFile file(Path(), "file");
  std::fputs("new", file.Stream());
  std::fflush(file.Stream());
  EXPECT_EQ(TextOf(Path()), "old");
  file.Commit();
  EXPECT_EQ(TextOf(Path()), "new");
  EXPECT_EQ(FileCount(), 1u);
}

TEST_F(ReplacedFileTest, WritesBytesOneBehindTheOther) {
  ReplacedFile file(Path(), "file");
  file.Write("ab");
  file.Write(std::string_view("\0c", 2));
  file.Commit();
  EXPECT_EQ(TextOf(Path()), std::string("ab\0c", 4));
}

TEST_F(ReplacedFileTest, LeftWithoutCommitLeavesWhatWasThere) {
  WriteWholeFile(Path(), "old", "file");
  {
    ReplacedFile file(Path(), "file");
    std::fputs("new", file.Stream());
  }
  EXPECT_EQ(TextOf(Path()), "old");
  EXPECT_EQ(FileCount(), 1u);
}

TEST_F(ReplacedFileTest, LeftWithoutCommitLeavesNothingNew) {
  { ReplacedFile file(Path(), "file"); }
  EXPECT_EQ(FileCount(), 0u);
}

TEST_F(ReplacedFileTest, ALinkStaysAndItsFileIsReplaced) {
  WriteWholeFile(Path(), "old", "file");
  fs::create_symlink(Path(), folder_.File("link"));
  WriteWholeFile(folder_.File("link"), "new", "file");
  EXPECT_TRUE(fs::is_symlink(folder_.File("link")));
  EXPECT_EQ(TextOf(Path()), "new");
}

TEST_F(ReplacedFileTest, AFolderIsNotReplaced) {
  EXPECT_RAISES(70, "picture x cannot be written: Is a directory",
                ReplacedFile(folder_.File(""), "picture x"));
}

TEST_F(ReplacedFileTest, WhatIsNoOrdinaryFileIsWrittenDirectly) {
  const test::NamedPipe pipe(Path());
  WriteWholeFile(Path(), "text", "file");
  EXPECT_EQ(fs::status(Path()).type(), fs::file_type::fifo);
  EXPECT_EQ(pipe.Written(), "text");
  EXPECT_EQ(FileCount(), 1u);
}

TEST_F(ReplacedFileTest, TellsTheSystemsReason) {
  ReplacedFile file(Path(), "picture x");
  EXPECT_RAISES(57, "picture x cannot be written: No space left on device", file.Raise(ENOSPC));
}

TEST_F(ReplacedFileTest, AFileThatMayNotBeWrittenStays) {
  if (geteuid() == 0) GTEST_SKIP() << "everything may be written by this user";
  WriteWholeFile(Path(), "old", "file");
  chmod(Path().c_str(), 0444);
  EXPECT_RAISES(70, "picture x cannot be written: Permission denied", ReplacedFile(Path(), "picture x"));
}

}  // namespace
}  // namespace quenzel7::files
