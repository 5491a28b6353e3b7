#include "server/services/embedded_project_database.h"

#include <filesystem>

#include "platform/corvane1/project_file.h"
#include "tests/server/services/services_fixture.h"
#include "tests/support/empty_connection.h"
#include "tests/support/raises.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7::server {
namespace {

using automation::InvokeByName;
using automation::ObjectRef;
using automation::To;

class EmbeddedProjectDatabaseTest : public ServicesTest {
 protected:
  ado::ConnectionRef Open(const std::string& path) {
    return To<ado::ConnectionRef>(InvokeByName(*Service("ProjectDatabase"), "Open", {path}));
  }
  ado::ConnectionRef Open(const std::string& path, Long mode) {
    return To<ado::ConnectionRef>(InvokeByName(*Service("ProjectDatabase"), "Open", {path, mode}));
  }

  test::TemporaryFolder folder_;
  const std::string path_ = folder_.File("plant.qz7");
};

TEST_F(EmbeddedProjectDatabaseTest, HasTheseMembers) {
  EXPECT_EQ(EmbeddedProjectDatabase::ClassOf().name, "EmbeddedProjectDatabase");
  EXPECT_EQ(SlotsOf(EmbeddedProjectDatabase::ClassOf()),
            "call Open(String, [Long]) As Connection\n"
            "call Close()\n"
            "call OpenConnection() As Connection\n"
            "get Path() As String\n");
}

TEST_F(EmbeddedProjectDatabaseTest, OpensANewProjectForAllOfTheLibrary) {
  const ado::ConnectionRef connection = Open(path_);
  EXPECT_TRUE(std::filesystem::exists(path_));
  EXPECT_EQ(Platform::Current().projectDatabase->OpenConnection(), connection);
  EXPECT_EQ(Platform::Current().numberGenerator->NewUniqueNumber(), 1);
  EXPECT_EQ(To<ado::ConnectionRef>(InvokeByName(*Service("ProjectDatabase"), "OpenConnection")), connection);
  EXPECT_EQ(Told("ProjectDatabase", "Path"), folder_.Path());
}

TEST_F(EmbeddedProjectDatabaseTest, ClosesTheProject) {
  const ado::ConnectionRef connection = Open(path_);
  Called("ProjectDatabase", "Close");
  EXPECT_RAISES(3704, test::DescriptionOf([&] { connection->Execute("SELECT * FROM Numbers"); }),
                connection->Execute("SELECT * FROM Numbers"));
  EXPECT_RAISES(91, "no project is open", Called("ProjectDatabase", "OpenConnection"));
  EXPECT_RAISES(91, "no project is open", Told("ProjectDatabase", "Path"));
  EXPECT_RAISES(91, "no project is open", Platform::Current().projectDatabase->OpenConnection());
  Called("ProjectDatabase", "Close");
}

TEST_F(EmbeddedProjectDatabaseTest, OpensAnotherProjectAndLeavesTheFirstToWhoeverHasIt) {
  const ado::ConnectionRef first = Open(path_);
  const ado::ConnectionRef second = Open(folder_.File("other.qz7"));
  EXPECT_NE(first, second);
  EXPECT_EQ(Platform::Current().projectDatabase->OpenConnection(), second);
  EXPECT_TRUE(first->Execute("SELECT * FROM Numbers")->Eof());
}

TEST_F(EmbeddedProjectDatabaseTest, OpensInTheModeThatItIsTold) {
  EXPECT_EQ(test::ErrorOf([&] { Open(path_, 0); }), 76);
  EXPECT_EQ(test::ErrorOf([&] { Open(path_, 2); }), 76);
  EXPECT_FALSE(std::filesystem::exists(path_));
  Open(path_, 1)->Execute("INSERT INTO Numbers (Name, Next) VALUES ('a', 1)");
  Open(path_, 0)->Execute("INSERT INTO Numbers (Name, Next) VALUES ('b', 1)");
  EXPECT_EQ(
      test::ErrorOf([&] { Open(path_, 2)->Execute("INSERT INTO Numbers (Name, Next) VALUES ('c', 1)"); }),
      -2147467259);
}

TEST_F(EmbeddedProjectDatabaseTest, KeepsWhatIsOpenWhenItCannotOpen) {
  const ado::ConnectionRef connection = Open(path_);
  EXPECT_RAISES(5, "a project cannot be opened in mode 3: 0 to 2 are expected", Open(path_, 3));
  EXPECT_RAISES(5, "a project cannot be opened in mode -1: 0 to 2 are expected", Open(path_, -1));
  EXPECT_EQ(test::ErrorOf([&] { Open(folder_.File("none/plant.qz7")); }), 76);
  EXPECT_EQ(Platform::Current().projectDatabase->OpenConnection(), connection);
}

TEST_F(EmbeddedProjectDatabaseTest, AProjectInNoFileHasNoFolder) {
  Platform::Current().heldProject->Hold(std::make_shared<test::EmptyConnection>());
  EXPECT_EQ(Told("ProjectDatabase", "Path"), "");
}

}  // namespace
}  // namespace quenzel7::server
