#include "hosts/cli/scratch_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "hosts/cli/text_file.h"
#include "tests/hosts/cli/messages.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7::cli {
namespace {

namespace fs = std::filesystem;

/// Makes another folder that of temporary files.
class TemporaryPath {
 public:
  explicit TemporaryPath(const std::string& path) {
    if (const char* before = std::getenv("TMPDIR")) before_ = before;
    setenv("TMPDIR", path.c_str(), 1);
  }
  ~TemporaryPath() {
    if (before_.empty()) {
      unsetenv("TMPDIR");
    } else {
      setenv("TMPDIR", before_.c_str(), 1);
    }
  }

 private:
  std::string before_;
};

TEST(ScratchFolder, IsThereAsLongAsItLivesAndGoesWithAllThatIsInIt) {
  const quenzel7::test::TemporaryFolder home;
  const TemporaryPath path(home.File(""));
  std::string file;
  {
    const ScratchFolder folder, other;
    file = folder.File("x.txt");
    EXPECT_NE(file, other.File("x.txt"));
    WriteTextFile(file, "x", "file");
    EXPECT_EQ(fs::path(file).parent_path().parent_path(), fs::path(home.File("")).parent_path());
  }
  EXPECT_TRUE(fs::is_empty(home.File("")));
}

TEST(ScratchFolder, SaysWhyItCannotBeMade) {
  const quenzel7::test::TemporaryFolder home;
  {
    const TemporaryPath path(home.File("none"));
    EXPECT_EQ(test::MessageOf([] { ScratchFolder(); }),
              "folder for temporary files cannot be made: No such file or directory");
  }
  WriteTextFile(home.File("file"), "x", "file");
  const TemporaryPath path(home.File("file"));
  EXPECT_EQ(test::MessageOf([] { ScratchFolder(); }),
            "folder for temporary files cannot be made: Not a directory");
}

}  // namespace
}  // namespace quenzel7::cli
