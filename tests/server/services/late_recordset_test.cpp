#include "server/services/late_recordset.h"

#include "server/services/late_connection.h"
#include "tests/server/services/late_double.h"
#include "tests/support/empty_connection.h"
#include "tests/support/raises.h"

namespace quenzel7::server {
namespace {

using automation::Arguments;
using automation::ObjectRef;
using automation::Variant;
using Calls = std::vector<std::string>;

class LateRecordsetTest : public ::testing::Test {
 protected:
  const std::shared_ptr<LateDouble> host_ = NewHostObject();
  const std::shared_ptr<LateRecordset> rows_ = std::make_shared<LateRecordset>(host_);
};

TEST_F(LateRecordsetTest, PassesEachCallToTheHost) {
  for (const char* const name : {"Close", "AddNew", "Update", "Delete", "MoveFirst", "MoveNext", "Move"}) {
    host_->Giving(std::string("call ") + name, Variant());
  }
  rows_->AddNew();
  rows_->Update();
  rows_->Delete();
  rows_->MoveFirst();
  rows_->MoveNext();
  rows_->Move(-3);
  rows_->Close();
  EXPECT_EQ(host_->calls, (Calls{"call AddNew", "call Update", "call Delete", "call MoveFirst",
                                 "call MoveNext", "call Move Long:-3", "call Close"}));
  EXPECT_EQ(rows_->HostObject(), host_);
}

TEST_F(LateRecordsetTest, ReadsThePropertiesOfTheHost) {
  host_->Giving("get EOF", true).Giving("get BOF", false);
  host_->Giving("get RecordCount", Long{12}).Giving("get FieldCount", Integer{5});
  EXPECT_TRUE(rows_->Eof());
  EXPECT_FALSE(rows_->Bof());
  EXPECT_EQ(rows_->RecordCount(), 12);
  EXPECT_EQ(rows_->FieldCount(), 5);
  host_->Giving("get EOF", false).Giving("get BOF", true);
  EXPECT_FALSE(rows_->Eof());
  EXPECT_TRUE(rows_->Bof());
}

TEST_F(LateRecordsetTest, ReadsAndWritesTheValuesOfFields) {
  const auto field = NewHostObject();
  field->Giving("get Value", Long{5}).Giving("put Value", Variant());
  host_->Giving("call Fields", field);
  EXPECT_EQ(rows_->Get("Xs"), Variant(Long{5}));
  rows_->Put("Ys", "text");
  EXPECT_EQ(rows_->Fields("Zs").Value(), Variant(Long{5}));
  EXPECT_EQ(host_->calls, (Calls{"call Fields String:Xs", "call Fields String:Ys", "call Fields String:Zs"}));
  EXPECT_EQ(field->calls, (Calls{"get Value", "put Value String:text", "get Value"}));
}

TEST_F(LateRecordsetTest, AFieldIsAnObject) {
  host_->Giving("call Fields", Long{5});
  EXPECT_EQ(test::ErrorOf([&] { rows_->Get("Xs"); }), 13);
  EXPECT_EQ(test::ErrorOf([&] { rows_->Put("Xs", Long{1}); }), 13);
  host_->Giving("call Fields", ObjectRef());
  EXPECT_EQ(test::ErrorOf([&] { rows_->Get("Xs"); }), 91);
}

TEST_F(LateRecordsetTest, TheHostOpensOnItsOwnConnection) {
  host_->Giving("call Open", Variant());
  const auto connection = NewHostObject();
  ObjectRef given;
  host_->members["call Open"] = [&given](Arguments arguments) {
    given = arguments[1].Object();
    return Variant();
  };
  const auto late = std::make_shared<LateConnection>(connection);
  rows_->Open("SELECT *", *late, ado::adOpenStatic, ado::adLockPessimistic, ado::adCmdText);
  EXPECT_EQ(given, connection);
  EXPECT_EQ(host_->calls, (Calls{"call Open String:SELECT * Object:HostObject Long:3 Long:2 Long:1"}));

  const auto ours = std::make_shared<test::EmptyConnection>();
  rows_->Open("SELECT *", *ours, ado::adOpenKeyset, ado::adLockReadOnly, ado::adCmdText);
  EXPECT_EQ(given, ours);

  test::EmptyConnection heldByNobody;
  rows_->Open("SELECT *", heldByNobody, ado::adOpenKeyset, ado::adLockReadOnly, ado::adCmdText);
  EXPECT_EQ(given, nullptr);
}

TEST_F(LateRecordsetTest, ErrorsOfTheHostPassUp) {
  EXPECT_RAISES(438, "the host's object has no EOF", rows_->Eof());
  host_->Giving("get RecordCount", "many");
  EXPECT_EQ(test::ErrorOf([&] { rows_->RecordCount(); }), 13);
}

TEST_F(LateRecordsetTest, IsClosedWithoutAnObject) {
  LateRecordset closed(nullptr);
  test::EmptyConnection connection;
  constexpr const char* kText = "the recordset is closed: the statement gave no rows";
  EXPECT_EQ(closed.HostObject(), nullptr);
  EXPECT_RAISES(3704, kText,
                closed.Open("", connection, ado::adOpenStatic, ado::adLockReadOnly, ado::adCmdText));
  EXPECT_RAISES(3704, kText, closed.AddNew());
  EXPECT_RAISES(3704, kText, closed.Update());
  EXPECT_RAISES(3704, kText, closed.Delete());
  EXPECT_RAISES(3704, kText, closed.Eof());
  EXPECT_RAISES(3704, kText, closed.Bof());
  EXPECT_RAISES(3704, kText, closed.MoveFirst());
  EXPECT_RAISES(3704, kText, closed.MoveNext());
  EXPECT_RAISES(3704, kText, closed.Move(1));
  EXPECT_RAISES(3704, kText, closed.RecordCount());
  EXPECT_RAISES(3704, kText, closed.FieldCount());
  EXPECT_RAISES(3704, kText, closed.Get("Xs"));
  EXPECT_RAISES(3704, kText, closed.Put("Xs", Long{1}));
  closed.Close();
}

TEST_F(LateRecordsetTest, StandsInOnlyWhereItHasTo) {
  EXPECT_EQ(RecordsetOf(nullptr), nullptr);
  const auto ours = std::make_shared<test::EmptyRecordset>();
  EXPECT_EQ(RecordsetOf(ours), ours);
  const ado::RecordsetRef late = RecordsetOf(host_);
  EXPECT_EQ(HostObjectOf(late), host_);
}

}  // namespace
}  // namespace quenzel7::server
