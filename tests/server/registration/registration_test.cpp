#include "server/registration/registration.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <optional>
#include <vector>

#include "platform/files/whole_file.h"
#include "tests/support/environment.h"
#include "tests/support/raises.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7::server {
namespace {

namespace fs = std::filesystem;

using test::Environment;

std::string FileOf(const std::optional<std::string>& dataHome, const std::optional<std::string>& home) {
  const Environment data("XDG_DATA_HOME", dataHome), user("HOME", home);
  return RegistrationFile();
}

TEST(RegistrationFile, StandsInTheUsersFolderOfData) {
  EXPECT_EQ(FileOf("/data", "/home/u"), "/data/quenzel7/server.ini");
  EXPECT_EQ(FileOf("/data", {}), "/data/quenzel7/server.ini");
  EXPECT_EQ(FileOf({}, "/home/u"), "/home/u/.local/share/quenzel7/server.ini");
}

TEST(RegistrationFile, OnlyAbsoluteFoldersCount) {
  EXPECT_EQ(FileOf("", "/home/u"), "/home/u/.local/share/quenzel7/server.ini");
  EXPECT_EQ(FileOf("data", "/home/u"), "/home/u/.local/share/quenzel7/server.ini");
  EXPECT_EQ(FileOf({}, "u"), "");
  EXPECT_EQ(FileOf({}, ""), "");
  EXPECT_EQ(FileOf({}, {}), "");
}

const std::vector<RegisteredClass> kClasses{{"Quenzel7.clsA", "{1}"}, {"Quenzel7.clsB", "{2}"}};

constexpr const char* kSections =
    "[Quenzel7.clsA]\nCLSID = {1}\nInprocServer32 = /lib/x.so\n"
    "\n"
    "[Quenzel7.clsB]\nCLSID = {2}\nInprocServer32 = /lib/x.so\n";

class Registration : public ::testing::Test {
 protected:
  std::string Path() const { return folder_.File("data/quenzel7/server.ini"); }
  std::string Text() const { return files::ReadWholeFile(Path(), "file"); }
  void Write(const std::string& text) const {
    fs::create_directories(folder_.File("data/quenzel7"));
    files::WriteWholeFile(Path(), text, "file");
  }
  static int ModeOf(const std::string& path) {
    struct stat status {};
    stat(path.c_str(), &status);
    return status.st_mode & 07777;
  }

  test::TemporaryFolder folder_;
  Environment data_{"XDG_DATA_HOME", folder_.File("data")};
  Environment home_{"HOME", folder_.File("home")};
};

TEST_F(Registration, WritesASectionForEachClass) {
  Register("/lib/x.so", kClasses);
  EXPECT_EQ(Text(), kSections);
}

TEST_F(Registration, OnlyTheUserSeesTheFileAndTheFoldersMadeForIt) {
  Register("/lib/x.so", kClasses);
  EXPECT_EQ(ModeOf(Path()), 0600);
  EXPECT_EQ(ModeOf(folder_.File("data/quenzel7")), 0700);
  EXPECT_EQ(ModeOf(folder_.File("data")), 0700);
}

TEST_F(Registration, FoldersThatAreThereStayAsTheyAre) {
  fs::create_directories(folder_.File("data"));
  fs::permissions(folder_.File("data"), fs::perms(0755));
  Register("/lib/x.so", kClasses);
  EXPECT_EQ(ModeOf(folder_.File("data")), 0755);
}

TEST_F(Registration, TakesTheEmptyPlacesOfItsOwnSectionsBehindThoseOfOthers) {
  Write("; mine\n[quenzel7.CLSOLD]\nCLSID = {9}\n[Other.thing]\nCLSID = {3}\n\n");
  Register("/lib/x.so", kClasses);
  EXPECT_EQ(Text(), std::string("; mine\n[Other.thing]\nCLSID = {3}\n\n") + kSections);
  const std::string before = Text();
  Register("/lib/x.so", kClasses);
  EXPECT_EQ(Text(), before);
}

TEST_F(Registration, TellsTheNewPlaceOfALibraryThatMoved) {
  Register("/old/x.so", kClasses);
  Register("/lib/x.so", kClasses);
  EXPECT_EQ(Text(), kSections);
}

TEST_F(Registration, TakesOnlyAPathThatCanStandInALine) {
  for (const std::string path : {"", "/a\nb", "/a\rb"}) {
    EXPECT_RAISES(5,
                  "registration file " + Path() + " cannot tell of the library \"" + path +
                      "\": its path must be one line that is not empty",
                  Register(path, kClasses));
  }
  EXPECT_FALSE(fs::exists(Path()));
}

TEST_F(Registration, TellsThatThereIsNoPlaceForIt) {
  const Environment data("XDG_DATA_HOME", {}), home("HOME", {});
  EXPECT_RAISES(76,
                "registration file cannot be written: neither XDG_DATA_HOME nor HOME is the path of a folder",
                Register("/lib/x.so", kClasses));
  Unregister();
}

TEST_F(Registration, TellsWhichFolderCannotBeMade) {
  const Environment data("XDG_DATA_HOME", "/proc/none");
  EXPECT_RAISES(
      76,
      "registration file /proc/none/quenzel7/server.ini cannot be written: folder /proc/none cannot be "
      "made: No such file or directory",
      Register("/lib/x.so", kClasses));
}

TEST_F(Registration, TellsWhatStandsInItsPlace) {
  files::WriteWholeFile(folder_.File("data"), "no folder", "file");
  EXPECT_RAISES(76,
                "registration file " + Path() + " cannot be written: folder " +
                    folder_.File("data/quenzel7") + " cannot be made: Not a directory",
                Register("/lib/x.so", kClasses));
  EXPECT_RAISES(76, "registration file " + Path() + " cannot be read: Not a directory", Unregister());
  fs::remove(folder_.File("data"));
  fs::create_directories(Path());
  EXPECT_RAISES(70, "registration file " + Path() + " cannot be read: Is a directory",
                Register("/lib/x.so", kClasses));
  EXPECT_RAISES(70, "registration file " + Path() + " cannot be read: Is a directory", Unregister());
}

TEST_F(Registration, UnregisteringTakesOurSectionsAlone) {
  Write(std::string("[Other.thing]\nCLSID = {3}\n\n") + kSections);
  Unregister();
  EXPECT_EQ(Text(), "[Other.thing]\nCLSID = {3}\n");
  EXPECT_EQ(ModeOf(Path()), 0600);
  Unregister();
  EXPECT_EQ(Text(), "[Other.thing]\nCLSID = {3}\n");
}

TEST_F(Registration, UnregisteringTakesTheFileWhenNothingIsLeft) {
  Register("/lib/x.so", kClasses);
  Unregister();
  EXPECT_FALSE(fs::exists(Path()));
  EXPECT_TRUE(fs::exists(folder_.File("data/quenzel7")));
  Unregister();
  EXPECT_FALSE(fs::exists(Path())) << "again, there is nothing to do";
}

}  // namespace
}  // namespace quenzel7::server
