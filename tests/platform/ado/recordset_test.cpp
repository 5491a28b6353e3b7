#include "platform/ado/recordset.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/automation/call_by_name.h"
#include "tests/platform/ado/database_test.h"

namespace quenzel7::ado {
namespace {

using automation::GetByName;
using automation::InvokeByName;
using automation::ObjectRef;
using automation::PutByName;
using automation::To;
using automation::Variant;

class RecordsetTest : public DatabaseTest {
 protected:
  void SetUp() override {
    DatabaseTest::SetUp();
    Run("INSERT INTO Elements(Xs) VALUES(10)");
    Run("INSERT INTO Elements(Xs) VALUES(20)");
    Run("INSERT INTO Elements(Xs) VALUES(30)");
    recordset_ = Open("SELECT * FROM Elements ORDER BY ID");
  }
  static Variant Value(const RecordsetRef& recordset, const char* column) {
    return GetByName(*To<ObjectRef>(InvokeByName(*recordset, "Fields", {column})), "Value");
  }

  RecordsetRef recordset_;
};

TEST_F(RecordsetTest, PublishesItsMembersInOrder) {
  EXPECT_EQ(recordset_->Class().name, "Recordset");
  EXPECT_EQ(recordset_->Class().create, nullptr);
  EXPECT_EQ(recordset_->Class().Default().Name(), "Recordset");
  EXPECT_EQ(recordset_->Class().Default().Slots(),
            (std::vector<std::string>{"call Open(String, Connection, CursorType, LockType, [CommandOption])",
                                      "call Close()", "call AddNew()", "call Update()", "call Delete()",
                                      "get EOF() As Boolean", "get BOF() As Boolean", "call MoveFirst()",
                                      "call MoveNext()", "call Move(Long)", "get RecordCount() As Long",
                                      "get FieldCount() As Long", "call Fields(String) As Field"}));
}

TEST_F(RecordsetTest, PublishesTheKindsOfOpening) {
  const automation::Member* open = recordset_->Class().Default().Find("Open");
  const auto members = [open](std::size_t parameter) {
    std::vector<std::string> lines;
    for (const automation::EnumMember& member : open->parameters[parameter].type.enumeration->members) {
      lines.push_back(std::string(member.name) + " " + std::to_string(member.value));
    }
    return lines;
  };
  EXPECT_EQ(members(2),
            (Lines{"adOpenForwardOnly 0", "adOpenKeyset 1", "adOpenDynamic 2", "adOpenStatic 3"}));
  EXPECT_EQ(members(3), (Lines{"adLockReadOnly 1", "adLockPessimistic 2", "adLockOptimistic 3"}));
  EXPECT_EQ(members(4), (Lines{"adCmdText 1"}));
}

TEST_F(RecordsetTest, OpensByName) {
  const auto recordset = connection_->CreateRecordset();
  InvokeByName(*recordset, "Open", {"SELECT * FROM Elements WHERE ID=2", connection_, Long{3}, Long{3}});
  EXPECT_EQ(recordset->Get("Xs"), Variant(Long{20}));
  InvokeByName(*recordset, "Close");
  InvokeByName(*recordset, "Open",
               {"SELECT * FROM Elements WHERE ID=3", connection_, Long{3}, Long{3}, Long{1}});
  EXPECT_EQ(recordset->Get("Xs"), Variant(Long{30}));
  InvokeByName(*recordset, "Close");
  EXPECT_RAISES(
      5, "a recordset cannot be opened with cursor type 3, lock type 3 and option 2",
      InvokeByName(*recordset, "Open", {"SELECT * FROM Elements", connection_, Long{3}, Long{3}, Long{2}}));
}

TEST_F(RecordsetTest, WalksByName) {
  EXPECT_EQ(GetByName(*recordset_, "RecordCount"), Variant(Long{3}));
  EXPECT_EQ(GetByName(*recordset_, "FieldCount"), Variant(Long{8}));
  EXPECT_EQ(GetByName(*recordset_, "BOF"), Variant(false));
  InvokeByName(*recordset_, "MoveNext");
  EXPECT_EQ(Value(recordset_, "Xs"), Variant(Long{20}));
  InvokeByName(*recordset_, "Move", {Long{-2}});
  EXPECT_EQ(GetByName(*recordset_, "Bof"), Variant(true));
  InvokeByName(*recordset_, "Move", {Long{4}});
  EXPECT_EQ(GetByName(*recordset_, "Eof"), Variant(true));
  InvokeByName(*recordset_, "MoveFirst");
  EXPECT_EQ(GetByName(*recordset_, "EOF"), Variant(false));
  EXPECT_EQ(Value(recordset_, "Xs"), Variant(Long{10}));
}

TEST_F(RecordsetTest, ChangesByName) {
  InvokeByName(*recordset_, "AddNew");
  PutByName(*To<ObjectRef>(InvokeByName(*recordset_, "Fields", {"Xs"})), "Value", Long{40});
  InvokeByName(*recordset_, "Update");
  InvokeByName(*recordset_, "MoveFirst");
  InvokeByName(*recordset_, "Delete");
  EXPECT_EQ(Rows("SELECT * FROM Elements ORDER BY ID", {"Xs"}), (Lines{"20", "30", "40"}));
}

TEST_F(RecordsetTest, FieldsByNamePublishNameAndValue) {
  const ObjectRef field = To<ObjectRef>(InvokeByName(*recordset_, "Fields", {"xs"}));
  EXPECT_EQ(field->Class().name, "Field");
  EXPECT_EQ(field->Class().create, nullptr);
  EXPECT_EQ(field->Class().Default().Name(), "Field");
  EXPECT_EQ(field->Class().Default().Slots(),
            (Lines{"get Name() As String", "get Value() As Variant", "put Value(Variant)"}));
  EXPECT_EQ(GetByName(*field, "Name"), Variant("xs"));
  EXPECT_EQ(GetByName(*field, "Value"), Variant(Long{10}));
}

TEST_F(RecordsetTest, AFieldByNameFollowsTheCurrentRowAndKeepsTheRecordset) {
  const ObjectRef field = To<ObjectRef>(InvokeByName(*recordset_, "Fields", {"Xs"}));
  recordset_->MoveNext();
  recordset_.reset();
  EXPECT_EQ(GetByName(*field, "Value"), Variant(Long{20}));
}

TEST_F(RecordsetTest, AFieldByNameRaisesWhatTheRecordsetRaises) {
  const ObjectRef field = To<ObjectRef>(InvokeByName(*recordset_, "Fields", {"Nothing"}));
  EXPECT_RAISES(3265, "the recordset has no column 'Nothing'", GetByName(*field, "Value"));
  EXPECT_RAISES(3265, "the recordset has no column 'Nothing'", PutByName(*field, "Value", Long{1}));
}

TEST_F(RecordsetTest, FieldsReadAndWriteTheCurrentRow) {
  EXPECT_EQ(recordset_->Fields("xs").Value(), Variant(Long{10}));
  recordset_->Fields("xs").Value(Long{11});
  EXPECT_EQ(recordset_->Get("Xs"), Variant(Long{11}));
  EXPECT_RAISES(3265, "the recordset has no column 'Nothing'", recordset_->Fields("Nothing").Value());
}

}  // namespace
}  // namespace quenzel7::ado
