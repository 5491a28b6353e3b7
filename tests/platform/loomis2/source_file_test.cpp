#include "platform/loomis2/source_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "tests/platform/automation/allocation_watch.h"
#include "tests/support/raises.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7::loomis2 {
namespace {

class SourceFiles : public ::testing::Test {
 protected:
  std::string Write(const std::string& name, const std::string& text) {
    std::filesystem::create_directories(std::filesystem::path(folder_.File(name)).parent_path());
    std::ofstream(folder_.File(name), std::ios::binary) << text;
    return folder_.File(name);
  }

  test::TemporaryFolder folder_;
};

TEST_F(SourceFiles, AreFoundFromTheRoot) {
  const std::string file = Write("a.bmp", "a");
  EXPECT_EQ(FoundFile("", file), file);
  EXPECT_EQ(FoundFile("/elsewhere/", file), file);
  EXPECT_EQ(FoundFile("", folder_.File("b.bmp")), "");
}

TEST_F(SourceFiles, AreFoundInTheFolder) {
  Write("images/a.bmp", "a");
  EXPECT_EQ(FoundFile(folder_.File("images/"), "a.bmp"), folder_.File("images/a.bmp"));
  EXPECT_EQ(FoundFile(folder_.File("images"), "a.bmp"), folder_.File("images/a.bmp"));
  EXPECT_EQ(FoundFile(folder_.Path() + "/", "images/a.bmp"), folder_.File("images/a.bmp"));
  EXPECT_EQ(FoundFile(folder_.File("images/"), "b.bmp"), "");
}

TEST_F(SourceFiles, AreFoundThroughBackslashes) {
  Write("Data/Images/a.bmp", "a");
  std::filesystem::create_directory(folder_.File("Bin"));
  EXPECT_EQ(FoundFile(folder_.File("Bin") + "\\..\\Data\\Images\\", "a.bmp"),
            folder_.File("Bin") + "/../Data/Images/a.bmp");
  EXPECT_EQ(FoundFile(folder_.Path() + "\\", "Data\\Images\\a.bmp"), folder_.File("Data/Images/a.bmp"));
}

TEST_F(SourceFiles, AreFoundWhereTheyStandWhenTheFolderHasNone) {
  const auto before = std::filesystem::current_path();
  Write("a.bmp", "a");
  Write("images/b.bmp", "b");
  Write("b.bmp", "b");
  std::filesystem::current_path(folder_.Path());
  EXPECT_EQ(FoundFile(folder_.File("images/"), "a.bmp"), "a.bmp");
  EXPECT_EQ(FoundFile(folder_.File("images/"), "b.bmp"), folder_.File("images/b.bmp"));
  EXPECT_EQ(FoundFile("", "a.bmp"), "a.bmp");
  std::filesystem::current_path(before);
}

TEST_F(SourceFiles, AreThoseBehindTheFirstSemicolon) {
  const std::string file = Write("a.bmp", "a"), odd = Write("b;c.bmp", "b");
  EXPECT_EQ(FoundFile("", "library;" + file), file);
  EXPECT_EQ(FoundFile("", ";" + file), file);
  EXPECT_EQ(FoundFile("", ";" + odd), odd);
  EXPECT_EQ(FoundFile("", odd), "");
  EXPECT_EQ(FoundFile(folder_.Path() + "/", "library;a.bmp"), file);
}

TEST_F(SourceFiles, AreNotFoundByNamesThatNoFileHas) {
  Write("a.bmp", "a");
  EXPECT_EQ(FoundFile(folder_.Path() + "/", ""), "");
  EXPECT_EQ(FoundFile(folder_.Path() + "/", "library;"), "");
  using namespace std::string_literals;
  EXPECT_EQ(FoundFile(folder_.Path() + "/", "a.bmp\0.jpg"s), "");
  EXPECT_EQ(FoundFile(folder_.Path() + "/", std::string(100000, 'a')), "");
  EXPECT_EQ(FoundFile(folder_.Path() + "/", "a.bmp/b.bmp"), "");
}

TEST_F(SourceFiles, GiveAllTheirBytes) {
  EXPECT_EQ(FileBytes(Write("a", std::string("\0\x01\xFF z", 5))), (std::vector<Byte>{0, 1, 255, ' ', 'z'}));
  EXPECT_EQ(FileBytes(Write("b", "")), std::vector<Byte>());
  EXPECT_EQ(FileBytes(Write("c", std::string(3000000, 'c'))), std::vector<Byte>(3000000, 'c'));
}

TEST_F(SourceFiles, ThatAreMissingOrClosedToTheReaderAreError481) {
  EXPECT_RAISES(481, "the file cannot be read: No such file or directory", FileBytes(folder_.File("none")));
  EXPECT_RAISES(481, "the file cannot be read: Not a directory", FileBytes(Write("a", "a") + "/b"));
}

TEST_F(SourceFiles, ThatAreFoldersOrDevicesAreError481) {
  EXPECT_RAISES(481, "it is no ordinary file", FileBytes(folder_.Path()));
  EXPECT_RAISES(481, "it is no ordinary file", FileBytes("/dev/zero"));
}

TEST_F(SourceFiles, ThatArePipesAreError481WithoutWaitingForAWriter) {
  const std::string pipe = folder_.File("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(FoundFile("", pipe), pipe);
  EXPECT_RAISES(481, "it is no ordinary file", FileBytes(pipe));
}

TEST_F(SourceFiles, AreClosedAgain) {
  const std::string file = Write("a", "a");
  const int before = open(file.c_str(), O_RDONLY);
  close(before);
  FileBytes(file);
  EXPECT_RAISES(481, "it is no ordinary file", FileBytes(folder_.Path()));
  const int after = open(file.c_str(), O_RDONLY);
  close(after);
  EXPECT_EQ(before, after);
}

TEST_F(SourceFiles, WithoutRoomForThemAreError7) {
  const std::string file = Write("a", std::string(1000, 'a'));
  {
    const automation::AllocationWatch watch(999);
    EXPECT_RAISES(7, "no room for the 1000 bytes of the file", FileBytes(file));
  }
  const automation::AllocationWatch watch(1000);
  EXPECT_EQ(FileBytes(file).size(), 1000u);
}

TEST_F(SourceFiles, LargerThanAreReadAreError481) {
  const std::string file = Write("large", "");
  ASSERT_EQ(truncate(file.c_str(), 268435457), 0);
  EXPECT_RAISES(481, "the file has 268435457 bytes, more than are read", FileBytes(file));
  ASSERT_EQ(truncate(file.c_str(), 268435456), 0);
  EXPECT_EQ(FileBytes(file).size(), 268435456u);
}

}  // namespace
}  // namespace quenzel7::loomis2
