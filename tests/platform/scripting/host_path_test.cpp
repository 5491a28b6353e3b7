#include "platform/scripting/host_path.h"

#include <gtest/gtest.h>
#include <locale.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/raises.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/working_folder.h"

namespace quenzel7::scripting {
namespace {

using Names = std::vector<std::string>;
using namespace std::string_literals;

TEST(PathNames, ArePartedByBothSeparators) {
  EXPECT_EQ(PathNames("\\a\\b c/d.txt"), (Names{"a", "b c", "d.txt"}));
  EXPECT_EQ(PathNames("/a/b"), (Names{"a", "b"}));
  EXPECT_EQ(PathNames("\\\\server\\//share\\/"), (Names{"server", "share"}));
  EXPECT_EQ(PathNames("/"), Names{});
  EXPECT_EQ(PathNames("\\"), Names{});
}

TEST(PathNames, LeaveOutTheFolderItselfAndGoUpByName) {
  EXPECT_EQ(PathNames("/plants/plant.qz7\\..\\Strings\\a.txt"), (Names{"plants", "Strings", "a.txt"}));
  EXPECT_EQ(PathNames("/a/./b/.\\c/."), (Names{"a", "b", "c"}));
  EXPECT_EQ(PathNames("/a/b/c/../../d"), (Names{"a", "d"}));
  EXPECT_EQ(PathNames("/a/.."), Names{});
}

TEST(PathNames, StayAtTheRoot) {
  EXPECT_EQ(PathNames("\\..\\Strings\\a.txt"), (Names{"Strings", "a.txt"}));
  EXPECT_EQ(PathNames("/a/../../../b"), Names{"b"});
}

TEST(PathNames, KeepDotsThatAreNames) {
  EXPECT_EQ(PathNames("/.../.a/a./..b"), (Names{"...", ".a", "a.", "..b"}));
}

TEST(PathNames, BeginAtTheCurrentFolder) {
  const test::TemporaryFolder folder;
  std::filesystem::create_directories(folder.File("a\\b"));
  const test::WorkingFolder there(folder.File("a\\b"));
  // A folder of this system may have a backslash in its name.
  Names names = PathNames(folder.Path());
  names.push_back("a\\b");
  EXPECT_EQ(PathNames(""), names);
  EXPECT_EQ(PathNames("."), names);
  names.push_back("c.txt");
  EXPECT_EQ(PathNames("c.txt"), names);
  EXPECT_EQ(PathNames("..\\a/../c.txt"), PathNames(folder.File("c.txt")));
}

TEST(PathNames, RaiseWithoutACurrentFolder) {
  const test::TemporaryFolder folder;
  std::filesystem::create_directory(folder.File("gone"));
  const test::WorkingFolder there(folder.File("gone"));
  std::filesystem::remove(folder.File("gone"));
  EXPECT_RAISES(76, "the current folder is not there", PathNames("a.txt"));
  EXPECT_EQ(PathNames("/a.txt"), Names{"a.txt"});
}

TEST(PathNames, RefuseDriveLetters) {
  EXPECT_RAISES(76, "there is no drive \"C:\" here", PathNames("C:\\a:b.txt"));
  EXPECT_RAISES(76, "there is no drive \"A:\" here", PathNames("A:a.txt"));
  EXPECT_RAISES(76, "there is no drive \"Z:\" here", PathNames("Z:"));
  EXPECT_RAISES(76, "there is no drive \"a:\" here", PathNames("a:/b"));
  EXPECT_RAISES(76, "there is no drive \"z:\" here", PathNames("z:/b"));
}

TEST(PathNames, TakeOtherColonsForPartsOfNames) {
  const auto last = [](const std::string& path) { return PathNames(path).back(); };
  for (const std::string name : {"@:", "[:", "`:", "{:", "1:", "::", ":", "C", "ab:", "C;"}) {
    EXPECT_EQ(last(name), name);
  }
  EXPECT_EQ(last("\\C:"), "C:");
}

TEST(HostPath, LeadsFromTheRoot) {
  EXPECT_EQ(HostPath({}), "/");
  EXPECT_EQ(HostPath({"a"}), "/a");
  EXPECT_EQ(HostPath({"a", "b\\c", "d"}), "/a/b\\c/d");
}

TEST(IsSameName, LooksPastTheCaseOfLetters) {
  EXPECT_TRUE(IsSameName("", ""));
  EXPECT_TRUE(IsSameName("Calendar_English.txt", "CALENDAR_eNGLISH.TXT"));
  EXPECT_TRUE(
      IsSameName("\xC3\x9C"
                 "bersicht",
                 "\xC3\xBC"
                 "BERSICHT"));
  EXPECT_TRUE(IsSameName("\xD0\xA1\xD0\xA2\xD0\xA0\xD0\x9E\xD0\x9A\xD0\x98",
                         "\xD1\x81\xD1\x82\xD1\x80\xD0\xBE\xD0\xBA\xD0\xB8"));
}

TEST(IsSameName, TellsOtherNamesApart) {
  EXPECT_FALSE(IsSameName("a", ""));
  EXPECT_FALSE(IsSameName("", "a"));
  EXPECT_FALSE(IsSameName("a", "b"));
  EXPECT_FALSE(IsSameName("a", "ab"));
  EXPECT_FALSE(IsSameName("[", "{"));
  EXPECT_FALSE(IsSameName("u", "\xC3\xBC"));
  EXPECT_FALSE(IsSameName("a\0b"s, "a"));
  EXPECT_FALSE(IsSameName("a\0b"s, "a\0c"s));
}

TEST(IsSameName, ComparesLooseBytesOneByOne) {
  EXPECT_TRUE(
      IsSameName("A\xFF"
                 "B",
                 "a\xFF"
                 "b"));
  EXPECT_FALSE(IsSameName("\xFF", "\xFE"));
  EXPECT_FALSE(IsSameName("\xE4", "\xC3\xA4"));
  EXPECT_FALSE(IsSameName("\xFF\xFF", "\xFF"));
  // What begins a character, but is not all of it.
  EXPECT_TRUE(IsSameName("A\xC3", "a\xC3"));
  EXPECT_FALSE(IsSameName("\xC3", "\xC3\xBC"));
  EXPECT_FALSE(
      IsSameName("\xC3"
                 "a",
                 "\xC3"
                 "b"));
}

TEST(IsSameName, LeavesTheThreadInItsLocale) {
  const locale_t before = uselocale(LC_GLOBAL_LOCALE);
  IsSameName("a", "A");
  EXPECT_EQ(uselocale(before), LC_GLOBAL_LOCALE);
}

class Folder : public ::testing::Test {
 protected:
  void Write(const std::string& name) { std::ofstream(folder_.File(name)) << name; }
  std::optional<std::string> Find(const std::string& name) { return NameInFolder(folder_.Path(), name); }

  test::TemporaryFolder folder_;
};

TEST_F(Folder, HasItsNamesExactly) {
  Write("a.txt");
  Write("A.TXT");
  Write("A.txt");
  EXPECT_EQ(Find("a.txt"), "a.txt");
  EXPECT_EQ(Find("A.txt"), "A.txt");
  EXPECT_EQ(Find("A.TXT"), "A.TXT");
}

TEST_F(Folder, GivesTheFirstNameThatDiffersInCaseOnly) {
  for (const char* name : {"b.TXT", "B.txT", "b.Txt", "b.tXT", "B.", "B.txtt", "A.txt"}) Write(name);
  EXPECT_EQ(Find("B.TXT"), "B.txT");
  EXPECT_EQ(Find("b.txt"), "B.txT");
  std::filesystem::remove(folder_.File("B.txT"));
  EXPECT_EQ(Find("b.txt"), "b.TXT");
  std::filesystem::remove(folder_.File("b.TXT"));
  EXPECT_EQ(Find("b.txt"), "b.Txt");
  std::filesystem::remove(folder_.File("b.Txt"));
  EXPECT_EQ(Find("b.txt"), "b.tXT");
  std::filesystem::remove(folder_.File("b.tXT"));
  EXPECT_EQ(Find("b.txt"), std::nullopt);
}

TEST_F(Folder, HasFoldersToo) {
  std::filesystem::create_directory(folder_.File("STRINGS"));
  EXPECT_EQ(Find("Strings"), "STRINGS");
}

TEST_F(Folder, HasNoLinksToNowhere) {
  std::filesystem::create_symlink("nothing", folder_.File("A"));
  EXPECT_EQ(Find("A"), std::nullopt);
  EXPECT_EQ(Find("a"), std::nullopt);
  Write("a");
  EXPECT_EQ(Find("A"), "a");
}

TEST_F(Folder, HasNoNameWithAZero) {
  Write("a");
  EXPECT_EQ(Find("a\0"s), std::nullopt);
  EXPECT_EQ(Find("a\0b"s), std::nullopt);
}

TEST_F(Folder, ThatIsNotThereHasNoNames) { EXPECT_EQ(NameInFolder(folder_.File("none"), "a"), std::nullopt); }

}  // namespace
}  // namespace quenzel7::scripting
