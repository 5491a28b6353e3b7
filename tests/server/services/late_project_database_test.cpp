#include "server/services/late_project_database.h"

#include "server/services/late_connection.h"
#include "tests/server/services/late_double.h"
#include "tests/support/empty_connection.h"
#include "tests/support/raises.h"

namespace quenzel7::server {
namespace {

using automation::Arguments;
using automation::NullValue;
using automation::ObjectRef;
using automation::Variant;
using Calls = std::vector<std::string>;

constexpr const char* kNoProject = "no project is open: the host gave no connection";

class LateProjectDatabaseTest : public ::testing::Test {
 protected:
  const std::shared_ptr<LateDouble> host_ = NewHostObject();
  const std::shared_ptr<LateProjectDatabase> database_ = std::make_shared<LateProjectDatabase>(host_);
};

TEST_F(LateProjectDatabaseTest, AConnectionOfTheLibraryIsUsedAsItIs) {
  for (int round = 0; round < 2; ++round) {
    const auto ours = std::make_shared<test::EmptyConnection>();
    host_->Giving("call OpenConnection", ours);
    EXPECT_EQ(database_->OpenConnection(), ours);
  }
  EXPECT_EQ(host_->calls, (Calls{"call OpenConnection", "call OpenConnection"}));
  EXPECT_EQ(database_->HostObject(), host_);
}

TEST_F(LateProjectDatabaseTest, KeepsNoConnectionOfTheLibrary) {
  auto ours = std::make_shared<test::EmptyConnection>();
  const std::weak_ptr<ado::Connection> watched = ours;
  host_->Giving("call OpenConnection", std::move(ours));
  database_->OpenConnection();
  host_->members.clear();
  EXPECT_TRUE(watched.expired());
}

TEST_F(LateProjectDatabaseTest, TheSameObjectOfTheHostIsTheSameConnection) {
  const auto first = NewHostObject();
  host_->Giving("call OpenConnection", first);
  const ado::ConnectionRef connection = database_->OpenConnection();
  EXPECT_EQ(HostObjectOf(connection), first);
  EXPECT_EQ(database_->OpenConnection(), connection);
  const auto second = NewHostObject();
  host_->Giving("call OpenConnection", second);
  const ado::ConnectionRef next = database_->OpenConnection();
  EXPECT_EQ(HostObjectOf(next), second);
  EXPECT_EQ(database_->OpenConnection(), next);
}

TEST_F(LateProjectDatabaseTest, LetsGoOfAConnectionThatTheHostGivesNoLonger) {
  auto connection = NewHostObject();
  const std::weak_ptr<LateDouble> watched = connection;
  host_->Giving("call OpenConnection", std::move(connection));
  database_->OpenConnection();
  host_->Giving("call OpenConnection", ObjectRef());
  EXPECT_FALSE(watched.expired());
  EXPECT_RAISES(91, kNoProject, database_->OpenConnection());
  EXPECT_TRUE(watched.expired());
  EXPECT_RAISES(91, kNoProject, database_->OpenConnection());
}

TEST_F(LateProjectDatabaseTest, NeedsAConnection) {
  host_->Giving("call OpenConnection", Variant());
  EXPECT_RAISES(91, kNoProject, database_->OpenConnection());
  host_->Giving("call OpenConnection", "plant.db");
  EXPECT_EQ(test::ErrorOf([&] { database_->OpenConnection(); }), 13);
  host_->members.clear();
  EXPECT_RAISES(438, "the host's object has no OpenConnection", database_->OpenConnection());
}

TEST_F(LateProjectDatabaseTest, TellsThePathThatTheHostTells) {
  host_->Giving("get Path", "/plant");
  EXPECT_EQ(database_->Path(), "/plant");
  EXPECT_EQ(host_->calls, (Calls{"get Path"}));
}

TEST_F(LateProjectDatabaseTest, ElseItsPathIsTheFolderOfTheConnectionsFile) {
  const auto connection = NewHostObject();
  host_->Giving("call OpenConnection", connection);
  EXPECT_EQ(database_->Path(), "");
  connection->Giving("get FilePath", "/plant/a.db");
  EXPECT_EQ(database_->Path(), "/plant");
  host_->Giving("get Path", NullValue{});
  EXPECT_EQ(database_->Path(), "/plant");
  host_->Giving("call OpenConnection", ObjectRef());
  EXPECT_RAISES(91, kNoProject, database_->Path());
}

TEST_F(LateProjectDatabaseTest, LivesWhileTheHostIsAsked) {
  const auto connection = NewHostObject();
  auto database = std::make_shared<LateProjectDatabase>(host_);
  const std::weak_ptr<LateProjectDatabase> watched = database;
  bool lived = false;
  const auto letGo = [&](Variant given) {
    return [&, given](Arguments) {
      database.reset();
      lived = !watched.expired();
      return given;
    };
  };
  host_->members["call OpenConnection"] = letGo(connection);
  LateProjectDatabase* const asked = database.get();
  EXPECT_EQ(HostObjectOf(asked->OpenConnection()), connection);
  EXPECT_TRUE(lived);
  EXPECT_TRUE(watched.expired());
}

}  // namespace
}  // namespace quenzel7::server
