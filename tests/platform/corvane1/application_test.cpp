#include "platform/corvane1/application.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/raises.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7::corvane1 {
namespace {

TEST(FolderOf, EndsWithoutASeparator) {
  EXPECT_EQ(FolderOf("/a/b"), "/a");
  EXPECT_EQ(FolderOf("/a/b/c d"), "/a/b");
  EXPECT_EQ(FolderOf("/prog"), "");
  EXPECT_EQ(FolderOf("a/b"), "a");
  EXPECT_EQ(FolderOf("prog"), "");
  EXPECT_EQ(FolderOf(""), "");
}

TEST(RunningProgram, StandsInTheFolderOfTheFileThatRuns) {
  const std::string path = RunningProgram().Path();
  EXPECT_EQ(path.front(), '/');
  EXPECT_NE(path.back(), '/');
  const std::filesystem::path here = std::filesystem::read_symlink("/proc/self/exe");
  EXPECT_EQ(path + "/" + here.filename().string(), here.string());
  EXPECT_TRUE(std::filesystem::exists(path + "/corvane1_tests"));
}

TEST(RunningProgram, StandsWhereTheLinkPoints) {
  const test::TemporaryFolder folder;
  std::filesystem::create_symlink("/opt/plant/bin/ide", folder.File("exe"));
  EXPECT_EQ(RunningProgram(folder.File("exe")).Path(), "/opt/plant/bin");
}

TEST(RunningProgram, IsNotFoundWithoutALink) {
  const test::TemporaryFolder folder;
  RunningProgram program(folder.File("exe"));
  EXPECT_RAISES(76, "the file of the running program cannot be found: No such file or directory",
                program.Path());
}

}  // namespace
}  // namespace quenzel7::corvane1
