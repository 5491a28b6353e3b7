#include "hosts/cli/replaced_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "hosts/cli/text_file.h"
#include "tests/hosts/cli/messages.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7::cli {
namespace {

namespace fs = std::filesystem;

class ReplacedFileTest : public ::testing::Test {
 protected:
  std::string Path() const { return folder_.File("x.txt"); }
  std::size_t FileCount() const {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder_.File("")), fs::directory_iterator()));
  }
  static std::string TextOf(const std::string& path) { return ReadTextFile(path, "file"); }

  quenzel7::test::TemporaryFolder folder_;
};

TEST_F(ReplacedFileTest, TakesItsPlaceOnlyWhenCommitted) {
  WriteTextFile(Path(), "old", "file");
  ReplacedFile file(Path(), "file");
  std::fputs("new", file.Stream());
  std::fflush(file.Stream());
  EXPECT_EQ(TextOf(Path()), "old");
  file.Commit();
  EXPECT_EQ(TextOf(Path()), "new");
  EXPECT_EQ(FileCount(), 1u);
}

TEST_F(ReplacedFileTest, LeftWithoutCommitLeavesWhatWasThere) {
  WriteTextFile(Path(), "old", "file");
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
  WriteTextFile(Path(), "old", "file");
  fs::create_symlink(Path(), folder_.File("link"));
  WriteTextFile(folder_.File("link"), "new", "file");
  EXPECT_TRUE(fs::is_symlink(folder_.File("link")));
  EXPECT_EQ(TextOf(Path()), "new");
}

TEST_F(ReplacedFileTest, AFolderIsNotReplaced) {
  EXPECT_EQ(test::MessageOf([this] { ReplacedFile file(folder_.File(""), "picture x"); }),
            "picture x cannot be written: Is a directory");
}

TEST_F(ReplacedFileTest, ADeviceIsWrittenDirectly) {
  WriteTextFile("/dev/null", "text", "file");
  EXPECT_EQ(fs::status("/dev/null").type(), fs::file_type::character);
  EXPECT_FALSE(fs::exists("/dev/null.new" + std::to_string(getpid())));
}

TEST_F(ReplacedFileTest, TellsTheSystemsReason) {
  ReplacedFile file(Path(), "picture x");
  EXPECT_EQ(test::MessageOf([&file] { file.Raise(ENOSPC); }),
            "picture x cannot be written: No space left on device");
}

TEST_F(ReplacedFileTest, AFileThatMayNotBeWrittenStays) {
  if (geteuid() == 0) GTEST_SKIP() << "everything may be written by this user";
  WriteTextFile(Path(), "old", "file");
  chmod(Path().c_str(), 0444);
  EXPECT_EQ(test::MessageOf([this] { ReplacedFile file(Path(), "picture x"); }),
            "picture x cannot be written: Permission denied");
}

}  // namespace
}  // namespace quenzel7::cli
