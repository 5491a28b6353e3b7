#include "platform/ado/connection.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/automation/call_by_name.h"
#include "tests/platform/ado/database_test.h"

namespace quenzel7::ado {
namespace {

using automation::GetByName;
using automation::InvokeByName;
using automation::To;
using automation::Variant;

class ConnectionTest : public DatabaseTest {};

TEST_F(ConnectionTest, PublishesItsMembersInOrder) {
  EXPECT_EQ(connection_->Class().name, "Connection");
  EXPECT_EQ(connection_->Class().create, nullptr);
  EXPECT_EQ(connection_->Class().Default().Name(), "Connection");
  EXPECT_EQ(connection_->Class().Default().Slots(),
            (std::vector<std::string>{"call Execute(String) As Recordset",
                                      "call CreateRecordset() As Recordset", "call BeginTrans()",
                                      "call CommitTrans()", "call RollbackTrans()", "call Close()"}));
}

TEST_F(ConnectionTest, ExecutesByName) {
  InvokeByName(*connection_, "execute", {"INSERT INTO Elements(Xs) VALUES(5)"});
  const auto rows = To<RecordsetRef>(InvokeByName(*connection_, "Execute", {"SELECT * FROM Elements"}));
  EXPECT_EQ(rows->Get("Xs"), Variant(Long{5}));
}

TEST_F(ConnectionTest, MakesRecordsetsByName) {
  const auto recordset = To<RecordsetRef>(InvokeByName(*connection_, "CreateRecordset"));
  InvokeByName(*recordset, "Open", {"SELECT * FROM Elements", connection_, Long{3}, Long{1}});
  EXPECT_TRUE(recordset->Eof());
}

TEST_F(ConnectionTest, BracketsByName) {
  InvokeByName(*connection_, "BeginTrans");
  Run("INSERT INTO Elements(Xs) VALUES(1)");
  InvokeByName(*connection_, "RollbackTrans");
  InvokeByName(*connection_, "BeginTrans");
  Run("INSERT INTO Elements(Xs) VALUES(2)");
  InvokeByName(*connection_, "CommitTrans");
  EXPECT_EQ(Rows("SELECT * FROM Elements", {"Xs"}), (Lines{"2"}));
}

TEST_F(ConnectionTest, ClosesByName) {
  InvokeByName(*connection_, "Close");
  EXPECT_RAISES(3704, "the connection is closed", Run("SELECT * FROM Elements"));
}

TEST_F(ConnectionTest, ATransactionThatIsCommittedLasts) {
  {
    Transaction transaction(*connection_);
    Run("INSERT INTO Elements(Xs) VALUES(1)");
    EXPECT_EQ(Rows("SELECT * FROM Elements", {"Xs"}), Lines{});
    transaction.Commit();
    EXPECT_EQ(Rows("SELECT * FROM Elements", {"Xs"}), (Lines{"1"}));
  }
  EXPECT_EQ(Rows("SELECT * FROM Elements", {"Xs"}), (Lines{"1"}));
  connection_->BeginTrans();
}

TEST_F(ConnectionTest, ACommittedTransactionLeavesTheNextOneAlone) {
  {
    Transaction transaction(*connection_);
    transaction.Commit();
    connection_->BeginTrans();
    Run("INSERT INTO Elements(Xs) VALUES(1)");
  }
  connection_->CommitTrans();
  EXPECT_EQ(Rows("SELECT * FROM Elements", {"Xs"}), (Lines{"1"}));
}

TEST_F(ConnectionTest, ATransactionThatIsLeftIsRolledBack) {
  {
    const Transaction transaction(*connection_);
    Run("INSERT INTO Elements(Xs) VALUES(1)");
  }
  EXPECT_EQ(Rows("SELECT * FROM Elements", {"Xs"}), Lines{});
  connection_->BeginTrans();
}

TEST_F(ConnectionTest, ATransactionWhoseConnectionWasClosedEndsInSilence) {
  {
    const Transaction transaction(*connection_);
    Run("INSERT INTO Elements(Xs) VALUES(1)");
    connection_->Close();
  }
  EXPECT_EQ(Rows("SELECT * FROM Elements", {"Xs"}), Lines{});
}

TEST_F(ConnectionTest, ATransactionWithinATransactionIsRefusedAndLeavesTheOuterOne) {
  Transaction outer(*connection_);
  Run("INSERT INTO Elements(Xs) VALUES(1)");
  EXPECT_RAISES(3219, "a transaction is already open", Transaction(*connection_));
  outer.Commit();
  EXPECT_EQ(Rows("SELECT * FROM Elements", {"Xs"}), (Lines{"1"}));
}

TEST_F(ConnectionTest, OpenRecordsetOpensForStatements) {
  Run("INSERT INTO Elements(Xs) VALUES(1)");
  const auto recordset = OpenRecordset(*connection_, "SELECT * FROM Elements", adOpenStatic, adLockReadOnly);
  EXPECT_EQ(recordset->Get("Xs"), Variant(Long{1}));
  EXPECT_RAISES(3251, "the recordset was opened read-only", recordset->AddNew());
}

TEST_F(ConnectionTest, IsToldFromOthersWhetherTheyLiveOrHaveGone) {
  std::weak_ptr<Connection> noted;
  EXPECT_FALSE(IsSameConnection(nullptr, noted));
  EXPECT_FALSE(IsSameConnection(connection_, noted));
  noted = connection_;
  EXPECT_TRUE(IsSameConnection(connection_, noted));
  EXPECT_FALSE(IsSameConnection(nullptr, noted));
  const ConnectionRef other = OpenSqlite(Path());
  EXPECT_FALSE(IsSameConnection(other, noted));
  EXPECT_FALSE(IsSameConnection(connection_, other));
  connection_ = nullptr;
  ASSERT_TRUE(noted.expired());
  EXPECT_FALSE(IsSameConnection(other, noted));
  EXPECT_FALSE(IsSameConnection(OpenSqlite(Path()), noted));
}

}  // namespace
}  // namespace quenzel7::ado
