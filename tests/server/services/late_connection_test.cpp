#include "server/services/late_connection.h"

#include "tests/server/services/late_double.h"
#include "tests/support/empty_connection.h"
#include "tests/support/raises.h"

namespace quenzel7::server {
namespace {

using automation::NullValue;
using automation::ObjectRef;
using automation::Variant;
using Calls = std::vector<std::string>;

class LateConnectionTest : public ::testing::Test {
 protected:
  const std::shared_ptr<LateDouble> host_ = NewHostObject();
  const std::shared_ptr<LateConnection> connection_ = std::make_shared<LateConnection>(host_);
};

TEST_F(LateConnectionTest, PassesEachCallToTheHost) {
  for (const char* const name : {"BeginTrans", "CommitTrans", "RollbackTrans", "Close"}) {
    host_->Giving(std::string("call ") + name, Variant());
  }
  connection_->BeginTrans();
  connection_->CommitTrans();
  connection_->RollbackTrans();
  connection_->Close();
  EXPECT_EQ(host_->calls, (Calls{"call BeginTrans", "call CommitTrans", "call RollbackTrans", "call Close"}));
  EXPECT_EQ(connection_->HostObject(), host_);
}

TEST_F(LateConnectionTest, AStatementGivesTheHostsRecordset) {
  const auto rows = NewHostObject();
  rows->Giving("get RecordCount", Long{4});
  host_->Giving("call Execute", rows);
  EXPECT_EQ(connection_->Execute("SELECT *")->RecordCount(), 4);
  EXPECT_EQ(host_->calls, (Calls{"call Execute String:SELECT *"}));
  const auto ours = std::make_shared<test::EmptyRecordset>();
  host_->Giving("call Execute", ours);
  EXPECT_EQ(connection_->Execute("SELECT *"), ours);
}

TEST_F(LateConnectionTest, AStatementMayGiveNothing) {
  for (const Variant& nothing : {Variant(), Variant(ObjectRef())}) {
    host_->Giving("call Execute", nothing);
    const ado::RecordsetRef closed = connection_->Execute("DELETE");
    EXPECT_EQ(test::ErrorOf([&] { closed->Eof(); }), 3704);
  }
  host_->Giving("call Execute", Long{3});
  EXPECT_EQ(test::ErrorOf([&] { connection_->Execute("DELETE"); }), 13);
}

TEST_F(LateConnectionTest, MakesTheHostsRecordsets) {
  const auto rows = NewHostObject();
  host_->Giving("call CreateRecordset", rows);
  EXPECT_EQ(HostObjectOf(connection_->CreateRecordset()), rows);
  const auto ours = std::make_shared<test::EmptyRecordset>();
  host_->Giving("call CreateRecordset", ours);
  EXPECT_EQ(connection_->CreateRecordset(), ours);
  host_->Giving("call CreateRecordset", ObjectRef());
  EXPECT_EQ(test::ErrorOf([&] { connection_->CreateRecordset(); }), 91);
  host_->Giving("call CreateRecordset", "rows");
  EXPECT_EQ(test::ErrorOf([&] { connection_->CreateRecordset(); }), 13);
}

TEST_F(LateConnectionTest, TellsItsFileIfTheHostDoes) {
  EXPECT_EQ(connection_->FilePath(), "");
  host_->Giving("get FilePath", "/plant/a.db");
  EXPECT_EQ(connection_->FilePath(), "/plant/a.db");
  host_->Giving("get FilePath", NullValue{});
  EXPECT_EQ(connection_->FilePath(), "");
}

TEST_F(LateConnectionTest, ErrorsOfTheHostPassUp) {
  EXPECT_RAISES(438, "the host's object has no BeginTrans", connection_->BeginTrans());
  EXPECT_RAISES(438, "the host's object has no Execute", connection_->Execute(""));
}

TEST_F(LateConnectionTest, StandsInOnlyWhereItHasTo) {
  EXPECT_EQ(ConnectionOf(nullptr), nullptr);
  const auto ours = std::make_shared<test::EmptyConnection>();
  EXPECT_EQ(ConnectionOf(ours), ours);
  EXPECT_EQ(HostObjectOf(ConnectionOf(host_)), host_);
}

}  // namespace
}  // namespace quenzel7::server
