#include "hosts/cli/scratch_folder.h"

#include <gtest/gtest.h>

#include "hosts/cli/text_file.h"
#include "tests/hosts/cli/messages.h"
#include "tests/support/environment.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7::cli {
namespace {

namespace fs = std::filesystem;

constexpr const char* kVariable = "TMPDIR";

TEST(ScratchFolder, IsThereAsLongAsItLivesAndGoesWithAllThatIsInIt) {
  const quenzel7::test::TemporaryFolder home;
  const quenzel7::test::Environment path(kVariable, home.File(""));
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
    const quenzel7::test::Environment path(kVariable, home.File("none"));
    EXPECT_EQ(test::MessageOf([] { ScratchFolder(); }),
              "folder for temporary files cannot be made: No such file or directory");
  }
  WriteTextFile(home.File("file"), "x", "file");
  const quenzel7::test::Environment path(kVariable, home.File("file"));
  EXPECT_EQ(test::MessageOf([] { ScratchFolder(); }),
            "folder for temporary files cannot be made: Not a directory");
}

}  // namespace
}  // namespace quenzel7::cli
