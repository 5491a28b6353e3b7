#include "platform/corvane1/application.h"

#include <gtest/gtest.h>

#include <filesystem>

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

}  // namespace
}  // namespace quenzel7::corvane1
