#include "hosts/cli/project_target.h"

#include <gtest/gtest.h>

#include "hosts/cli/text_file.h"
#include "tests/hosts/cli/messages.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7::cli {
namespace {

namespace fs = std::filesystem;

class ProjectTargetTest : public ::testing::Test {
 protected:
  void Write(const std::string& path) { WriteTextFile(path, "project", "file"); }
  std::string Path() const { return folder_.File("p.qz7"); }

  quenzel7::test::TemporaryFolder folder_;
};

TEST_F(ProjectTargetTest, AProjectThatIsThereIsOpenedAtItsPlace) {
  Write(Path());
  {
    ProjectTarget target(Path());
    EXPECT_EQ(target.OpenPath(), Path());
    EXPECT_EQ(target.Mode(), corvane1::ProjectMode::Open);
    target.Commit();
  }
  EXPECT_TRUE(fs::exists(Path()));
}

TEST_F(ProjectTargetTest, ANewOneTakesItsPlaceWhenItIsCommitted) {
  Write(Path() + "-wal");
  {
    ProjectTarget target(Path());
    EXPECT_NE(target.OpenPath(), Path());
    EXPECT_EQ(target.Mode(), corvane1::ProjectMode::Create);
    Write(target.OpenPath());
    EXPECT_FALSE(fs::exists(Path()));
    target.Commit();
    EXPECT_TRUE(fs::exists(Path()));
    EXPECT_FALSE(fs::exists(Path() + "-wal"));
  }
  EXPECT_TRUE(fs::exists(Path()));
}

TEST_F(ProjectTargetTest, ANewOneThatIsNotCommittedIsRemoved) {
  std::string temporary;
  {
    const ProjectTarget target(Path());
    temporary = target.OpenPath();
    Write(temporary);
  }
  EXPECT_FALSE(fs::exists(temporary));
  EXPECT_FALSE(fs::exists(Path()));
}

TEST_F(ProjectTargetTest, ALinkThatLeadsNowhereIsNoNewProject) {
  fs::create_symlink("nowhere", Path());
  EXPECT_EQ(ProjectTarget(Path()).OpenPath(), Path());
}

TEST_F(ProjectTargetTest, TellsWhenTheProjectCannotTakeItsPlace) {
  ProjectTarget target(Path());
  EXPECT_EQ(test::MessageOf([&] { target.Commit(); }),
            "project " + Path() + " cannot be made: No such file or directory");
}

}  // namespace
}  // namespace quenzel7::cli
