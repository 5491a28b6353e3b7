#include "platform/scripting/host_files.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "tests/support/raises.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/working_folder.h"

namespace quenzel7::scripting {
namespace {

namespace fs = std::filesystem;

constexpr BuiltInFile kBuiltIn[] = {{"Strings", "Words.txt", "built in\nmore"},
                                    {"Strings", "Other.txt", "other"},
                                    {"Data", "Words.txt", "data"}};

class FilesOfTheHost : public ::testing::Test {
 protected:
  void Write(const std::string& name, const std::string& text) {
    fs::create_directories(fs::path(folder_.File(name)).parent_path());
    std::ofstream(folder_.File(name), std::ios::binary) << text;
  }
  /// The first line of a file, by its path in the folder.
  std::string FirstLine(const std::string& path) {
    return files_.OpenTextFile(folder_.Path() + path)->ReadLine();
  }
  Long ErrorAt(const std::string& path) {
    return test::ErrorOf([&] { files_.OpenTextFile(folder_.Path() + path); });
  }

  test::TemporaryFolder folder_;
  HostFiles files_{kBuiltIn};
};

TEST_F(FilesOfTheHost, AreReadLineByLine) {
  Write("a.txt", "\xEF\xBB\xBFone\r\ntwo\n");
  const TextStreamRef stream = files_.OpenTextFile(folder_.File("a.txt"));
  EXPECT_FALSE(stream->AtEndOfStream());
  EXPECT_EQ(stream->ReadLine(), "one");
  EXPECT_EQ(stream->ReadLine(), "two");
  EXPECT_TRUE(stream->AtEndOfStream());
  EXPECT_RAISES(62, "text file \"" + folder_.File("a.txt") + "\": there is no line left to read",
                stream->ReadLine());
}

TEST_F(FilesOfTheHost, KeepTheirLineEndsApartFromTheSystem) {
  Write("a.txt", "one\x1Atwo\rthree");
  const TextStreamRef stream = files_.OpenTextFile(folder_.File("a.txt"));
  EXPECT_EQ(stream->ReadLine(), "one\x1Atwo");
  EXPECT_EQ(stream->ReadLine(), "three");
}

TEST_F(FilesOfTheHost, AreFoundByWindowsPaths) {
  Write("Strings/a.txt", "words");
  EXPECT_EQ(FirstLine("\\Strings\\a.txt"), "words");
  EXPECT_EQ(FirstLine("\\Strings/a.txt"), "words");
}

TEST_F(FilesOfTheHost, AreFoundBesideAProjectWhateverThatIs) {
  Write("Strings/a.txt", "words");
  EXPECT_EQ(FirstLine("/plant.qz7\\..\\Strings\\a.txt"), "words");
  Write("plant.qz7", "a file");
  EXPECT_EQ(FirstLine("/plant.qz7\\..\\Strings\\a.txt"), "words");
  fs::remove(folder_.File("plant.qz7"));
  fs::create_directory(folder_.File("plant.qz7"));
  EXPECT_EQ(FirstLine("/plant.qz7\\..\\Strings\\a.txt"), "words");
  EXPECT_EQ(FirstLine("/plant.qz7\\.\\..\\..\\" + fs::path(folder_.Path()).filename().string() +
                      "\\Strings\\a.txt"),
            "words");
}

TEST_F(FilesOfTheHost, AreFoundFromTheCurrentFolder) {
  Write("Strings/a.txt", "words");
  const test::WorkingFolder there(folder_.Path());
  EXPECT_EQ(files_.OpenTextFile("strings\\A.TXT")->ReadLine(), "words");
}

TEST_F(FilesOfTheHost, AreFoundWithoutRegardToCaseInEachName) {
  Write("STRINGS/Sub/A.Txt", "upper");
  EXPECT_EQ(FirstLine("\\strings\\SUB\\a.txt"), "upper");
  Write("Strings/sub/a.tXT", "mixed");
  EXPECT_EQ(FirstLine("\\strings\\SUB\\a.txt"), "upper");
  EXPECT_EQ(FirstLine("\\Strings\\sub\\a.txt"), "mixed");
  Write("Strings/sub/a.txt", "exact");
  EXPECT_EQ(FirstLine("\\Strings\\sub\\a.txt"), "exact");
}

TEST_F(FilesOfTheHost, ThatAreNotThereAreNamedAsGivenAndAsLookedFor) {
  const std::string given = folder_.Path() + "\\x\\..\\none.txt";
  EXPECT_RAISES(53,
                "text file \"" + given + "\": \"" + folder_.File("none.txt") +
                    "\" was looked for, but there is no such file",
                files_.OpenTextFile(given));
}

TEST_F(FilesOfTheHost, ThatHaveNoFolderTellTheFirstThatIsMissing) {
  const std::string given = folder_.Path() + "\\none\\more\\a.txt";
  EXPECT_RAISES(76,
                "text file \"" + given + "\": \"" + folder_.File("none/more/a.txt") +
                    "\" was looked for, but there is no folder \"" + folder_.File("none") + "\"",
                files_.OpenTextFile(given));
}

TEST_F(FilesOfTheHost, AreInNoFileThatShouldBeAFolder) {
  Write("sub/file", "x");
  const std::string given = folder_.Path() + "\\sub\\FILE\\a.txt";
  EXPECT_RAISES(76,
                "text file \"" + given + "\": \"" + folder_.File("sub/FILE/a.txt") +
                    "\" was looked for, but there is no folder \"" + folder_.File("sub/FILE") + "\"",
                files_.OpenTextFile(given));
  EXPECT_EQ(ErrorAt("\\sub\\file\\more\\a.txt"), 76);
  EXPECT_EQ(ErrorAt("\\sub\\a.txt"), 53);
}

TEST_F(FilesOfTheHost, AreOnNoDrive) {
  EXPECT_RAISES(76, "text file \"C:\\Strings\\Words.txt\": there is no drive \"C:\" here",
                files_.OpenTextFile("C:\\Strings\\Words.txt"));
}

TEST_F(FilesOfTheHost, AreOrdinaryOnes) {
  fs::create_directory(folder_.File("Sub"));
  ASSERT_EQ(mkfifo(folder_.File("pipe").c_str(), 0600), 0);
  const std::string given = folder_.Path() + "\\sub";
  EXPECT_RAISES(70, "text file \"" + given + "\": \"" + folder_.File("Sub") + "\" is no ordinary file",
                files_.OpenTextFile(given));
  EXPECT_EQ(ErrorAt("\\pipe"), 70);
  EXPECT_RAISES(70, "text file \"\\\": \"/\" is no ordinary file", files_.OpenTextFile("\\"));
}

TEST_F(FilesOfTheHost, ThatCannotBeOpenedSayWhy) {
  Write("a.txt", "words");
  // Sanitizers look at a class that they have not met yet through a descriptor of their own.
  ASSERT_EQ(files_.OpenTextFile(folder_.File("a.txt"))->ReadLine(), "words");
  ASSERT_EQ(ErrorAt("\\b.txt"), 53);
  rlimit before;
  ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
  const rlimit none{0, before.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
  const test::Raised raised = test::RaisedBy([&] { files_.OpenTextFile(folder_.File("a.txt")); });
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &before), 0);
  EXPECT_EQ(raised,
            (test::Raised{70, "text file \"" + folder_.File("a.txt") + "\": \"" + folder_.File("a.txt") +
                                  "\" cannot be opened: Too many open files"}));
}

TEST_F(FilesOfTheHost, ThatAreNotOnTheDiskAreReadFromThoseBuiltIn) {
  fs::create_directory(folder_.File("Strings"));
  const TextStreamRef stream = files_.OpenTextFile(folder_.Path() + "\\Strings\\Words.txt");
  EXPECT_EQ(stream->ReadLine(), "built in");
  EXPECT_EQ(stream->ReadLine(), "more");
  EXPECT_RAISES(62, "text file \"" + folder_.Path() + "\\Strings\\Words.txt\": there is no line left to read",
                stream->ReadLine());
  EXPECT_EQ(FirstLine("\\Strings\\Other.txt"), "other");
  EXPECT_EQ(FirstLine("\\Data\\Words.txt"), "data");
  EXPECT_EQ(FirstLine("\\none\\STRINGS\\words.TXT"), "built in");
  EXPECT_EQ(FirstLine("\\x.qz7\\..\\Strings\\Words.txt"), "built in");
  EXPECT_EQ(files_.OpenTextFile("\\..\\Strings\\Words.txt")->ReadLine(), "built in");
}

TEST_F(FilesOfTheHost, AreBuiltInByTheLastTwoNamesOnly) {
  EXPECT_EQ(ErrorAt("\\Strings\\sub\\Words.txt"), 76);
  EXPECT_EQ(ErrorAt("\\Words.txt"), 53);
  EXPECT_EQ(ErrorAt("\\Strings\\Word.txt"), 76);
  EXPECT_EQ(ErrorAt("\\Data\\Other.txt"), 76);
  EXPECT_EQ(test::ErrorOf([&] { files_.OpenTextFile("\\Words.txt"); }), 53);
}

TEST_F(FilesOfTheHost, WinOverThoseBuiltIn) {
  Write("strings/WORDS.txt", "on the disk");
  EXPECT_EQ(FirstLine("\\Strings\\Words.txt"), "on the disk");
  Write("strings/other.txt", "");
  EXPECT_TRUE(files_.OpenTextFile(folder_.Path() + "\\Strings\\Other.txt")->AtEndOfStream());
}

TEST_F(FilesOfTheHost, MayHaveNoneBuiltIn) {
  HostFiles files;
  EXPECT_EQ(test::ErrorOf([&] { files.OpenTextFile(folder_.Path() + "\\Strings\\Words.txt"); }), 76);
}

}  // namespace
}  // namespace quenzel7::scripting
