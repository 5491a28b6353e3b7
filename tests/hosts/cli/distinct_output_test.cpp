#include "hosts/cli/distinct_output.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "hosts/cli/text_file.h"
#include "tests/hosts/cli/messages.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7::cli {
namespace {

namespace fs = std::filesystem;

class DistinctOutput : public ::testing::Test {
 protected:
  void SetUp() override {
    for (const char* name : {"a", "b", "c"}) WriteTextFile(File(name), "x", "file");
  }
  std::string File(const std::string& name) const { return folder_.File(name); }
  std::string Error(const std::string& output) const {
    return test::MessageOf([&] { RequireDistinctOutput("picture x", output, {File("a"), File("b")}); });
  }

 private:
  quenzel7::test::TemporaryFolder folder_;
};

TEST_F(DistinctOutput, AnotherFileIsWritten) {
  EXPECT_EQ(Error(File("c")), "");
  EXPECT_EQ(Error(File("new")), "");
  EXPECT_EQ(Error("/dev/null"), "");
  EXPECT_EQ(Error(""), "");
}

TEST_F(DistinctOutput, EveryFileThatIsReadIsRefused) {
  for (const char* name : {"a", "b"}) {
    EXPECT_EQ(Error(File(name)), "picture x cannot be written: it is " + File(name) + ", which is read");
  }
}

TEST_F(DistinctOutput, SoIsItByAnotherName) {
  fs::create_symlink("b", File("link"));
  fs::create_hard_link(File("b"), File("twin"));
  for (const std::string& name : {std::string("link"), std::string("twin"), std::string("./b")}) {
    EXPECT_EQ(Error(File(name)), "picture x cannot be written: it is " + File("b") + ", which is read")
        << name;
  }
}

TEST_F(DistinctOutput, FilesThatAreNotThereAreNoneOfItsAffairs) {
  EXPECT_EQ(test::MessageOf([&] { RequireDistinctOutput("x", File("gone"), {File("gone")}); }), "");
}

}  // namespace
}  // namespace quenzel7::cli
