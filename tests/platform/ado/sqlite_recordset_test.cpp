#include "platform/ado/sqlite_recordset.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "platform/automation/array.h"
#include "platform/automation/collection.h"
#include "tests/platform/ado/database_test.h"
#include "tests/platform/automation/allocation_watch.h"

namespace quenzel7::ado {
namespace {

using automation::Array;
using automation::NullValue;
using automation::To;
using automation::Variant;
using test::RaisedBy;

constexpr const char* kNoRow = "the recordset stands on no row";
constexpr CursorType kCursors[] = {adOpenForwardOnly, adOpenKeyset, adOpenDynamic, adOpenStatic};

class SqliteRecordsetTest : public DatabaseTest {
 protected:
  /// Elements 1 to `count`, with Xs 10, 20 ...
  void Fill(Long count) {
    for (Long row = 1; row <= count; ++row) {
      Run("INSERT INTO Elements(Xs) VALUES (" + std::to_string(row * 10) + ")");
    }
  }
  static Long Number(const RecordsetRef& recordset, const char* column) {
    return To<Long>(recordset->Get(column));
  }
  /// The values of Xs from the current row to the last.
  static std::vector<Long> Rest(const RecordsetRef& recordset) {
    std::vector<Long> values;
    for (; !recordset->Eof(); recordset->MoveNext()) values.push_back(Number(recordset, "Xs"));
    return values;
  }
};

// Opening and closing.

TEST_F(SqliteRecordsetTest, StandsOnTheFirstRowWhenOpened) {
  Fill(3);
  for (const CursorType cursor : kCursors) {
    const auto recordset = Open("SELECT * FROM Elements ORDER BY ID DESC", cursor);
    EXPECT_FALSE(recordset->Eof());
    EXPECT_FALSE(recordset->Bof());
    EXPECT_EQ(Rest(recordset), (std::vector<Long>{30, 20, 10})) << cursor;
    EXPECT_TRUE(recordset->Eof());
  }
}

TEST_F(SqliteRecordsetTest, WithoutRowsItIsAtBothEnds) {
  for (const CursorType cursor : kCursors) {
    const auto recordset = Open("SELECT * FROM Elements", cursor);
    EXPECT_TRUE(recordset->Eof());
    EXPECT_TRUE(recordset->Bof());
    EXPECT_RAISES(3021, kNoRow, recordset->Get("Xs"));
    EXPECT_RAISES(3021, kNoRow, recordset->Put("Xs", Long{1}));
    EXPECT_RAISES(3021, kNoRow, recordset->Delete());
    EXPECT_RAISES(3021, "the recordset has no rows", recordset->MoveFirst());
    EXPECT_RAISES(3021, "the recordset stands behind its last row", recordset->MoveNext());
    EXPECT_RAISES(3021, "the recordset stands before its first row", recordset->Move(-1));
  }
}

TEST_F(SqliteRecordsetTest, OpeningTwiceIsRefused) {
  const auto recordset = Open("SELECT * FROM Elements");
  EXPECT_RAISES(
      3219, "the recordset is already open",
      recordset->Open("SELECT * FROM Elements", *connection_, adOpenStatic, adLockOptimistic, adCmdText));
}

TEST_F(SqliteRecordsetTest, CanBeOpenedAgainAfterClosing) {
  Fill(2);
  const auto recordset = Open("SELECT * FROM Elements WHERE ID=1");
  recordset->Close();
  recordset->Open("SELECT * FROM Elements WHERE ID=2", *connection_, adOpenStatic, adLockReadOnly, adCmdText);
  EXPECT_EQ(Rest(recordset), (std::vector<Long>{20}));
  EXPECT_RAISES(3251, "the recordset was opened read-only", recordset->AddNew());
}

TEST_F(SqliteRecordsetTest, UnknownKindsOfOpeningAreRefused) {
  const auto recordset = connection_->CreateRecordset();
  const auto open = [&](int cursor, int lock, int option) {
    return test::RaisedBy([&] {
      recordset->Open("SELECT * FROM Elements", *connection_, static_cast<CursorType>(cursor),
                      static_cast<LockType>(lock), static_cast<CommandOption>(option));
    });
  };
  const auto refused = [](const std::string& kinds) {
    return test::Raised{5, "a recordset cannot be opened with " + kinds};
  };
  EXPECT_EQ(open(-1, 1, 1), refused("cursor type -1, lock type 1 and option 1"));
  EXPECT_EQ(open(4, 1, 1), refused("cursor type 4, lock type 1 and option 1"));
  EXPECT_EQ(open(3, 0, 1), refused("cursor type 3, lock type 0 and option 1"));
  EXPECT_EQ(open(3, 4, 1), refused("cursor type 3, lock type 4 and option 1"));
  EXPECT_EQ(open(3, 3, 0), refused("cursor type 3, lock type 3 and option 0"));
  EXPECT_EQ(open(3, 3, 2), refused("cursor type 3, lock type 3 and option 2"));
  EXPECT_EQ(open(0, 2, 1), test::Raised{});
}

TEST_F(SqliteRecordsetTest, NothingWorksWhileItIsClosed) {
  const auto recordset = connection_->CreateRecordset();
  const char* closed = "the recordset is closed";
  EXPECT_RAISES(3704, closed, recordset->Close());
  EXPECT_RAISES(3704, closed, recordset->AddNew());
  EXPECT_RAISES(3704, closed, recordset->Update());
  EXPECT_RAISES(3704, closed, recordset->Delete());
  EXPECT_RAISES(3704, closed, recordset->Eof());
  EXPECT_RAISES(3704, closed, recordset->Bof());
  EXPECT_RAISES(3704, closed, recordset->MoveFirst());
  EXPECT_RAISES(3704, closed, recordset->MoveNext());
  EXPECT_RAISES(3704, closed, recordset->Move(0));
  EXPECT_RAISES(3704, closed, recordset->RecordCount());
  EXPECT_RAISES(3704, closed, recordset->FieldCount());
  EXPECT_RAISES(3704, closed, recordset->Get("Xs"));
  EXPECT_RAISES(3704, closed, recordset->Put("Xs", Long{1}));
}

TEST_F(SqliteRecordsetTest, NothingWorksWhenItsConnectionIsClosed) {
  Fill(1);
  const auto recordset = Open("SELECT * FROM Elements");
  connection_->Close();
  const char* closed = "the connection of the recordset is closed";
  EXPECT_RAISES(3704, closed, recordset->Get("Xs"));
  EXPECT_RAISES(3704, closed, recordset->Put("Xs", Long{1}));
  EXPECT_RAISES(3704, closed, recordset->AddNew());
  EXPECT_RAISES(3704, closed, recordset->MoveNext());
  recordset->Close();
  EXPECT_RAISES(
      3704, "the connection is closed",
      recordset->Open("SELECT * FROM Elements", *connection_, adOpenStatic, adLockOptimistic, adCmdText));
}

TEST_F(SqliteRecordsetTest, KeepsTheDatabaseOpenWhenTheConnectionIsForgotten) {
  Fill(1);
  const auto recordset = Open("SELECT * FROM Elements");
  connection_.reset();
  recordset->Put("Xs", Long{11});
  recordset->Update();
  EXPECT_EQ(Elements(), (Lines{"1|11|Null|Null"}));
}

TEST_F(SqliteRecordsetTest, AFailedStatementLeavesItClosed) {
  const auto recordset = connection_->CreateRecordset();
  EXPECT_RAISES(
      kDatabaseError, "no such table: Nothing; in: SELECT * FROM Nothing",
      recordset->Open("SELECT * FROM Nothing", *connection_, adOpenStatic, adLockOptimistic, adCmdText));
  EXPECT_RAISES(3704, "the recordset is closed", recordset->Eof());
}

TEST_F(SqliteRecordsetTest, AQueryThatFailsAtALaterRowLeavesNothing) {
  Fill(2);
  Run("UPDATE Elements SET Xs=-9223372036854775807-1 WHERE ID=2");
  const auto recordset = connection_->CreateRecordset();
  for (int time = 0; time < 2; ++time) {
    EXPECT_RAISES(kDatabaseError, "integer overflow; in: SELECT abs(Xs) AS Ys FROM Elements WHERE ID>0",
                  recordset->Open("SELECT abs(Xs) AS Ys FROM Elements WHERE ID>0", *connection_, adOpenStatic,
                                  adLockReadOnly, adCmdText));
    EXPECT_RAISES(3704, "the recordset is closed", recordset->Eof());
  }
  recordset->Open("SELECT * FROM Elements WHERE ID=1", *connection_, adOpenStatic, adLockReadOnly, adCmdText);
  EXPECT_EQ(recordset->RecordCount(), 1);
  EXPECT_EQ(Number(recordset, "Xs"), 10);
}

TEST_F(SqliteRecordsetTest, AStatementWithoutRowsLeavesItClosed) {
  const auto recordset = Open("INSERT INTO Elements(Xs) VALUES(5)");
  EXPECT_RAISES(3704, "the recordset is closed", recordset->Eof());
  EXPECT_EQ(Elements(), (Lines{"1|5|Null|Null"}));
}

TEST_F(SqliteRecordsetTest, AConnectionThatAHostHasWrappedLeavesItWhereItWasMade) {
  class Wrapped final : public Connection {
   public:
    explicit Wrapped(ConnectionRef inner) : inner_(std::move(inner)) {}
    RecordsetRef Execute(const std::string& statement) override { return inner_->Execute(statement); }
    RecordsetRef CreateRecordset() override { return inner_->CreateRecordset(); }
    void BeginTrans() override {}
    void CommitTrans() override {}
    void RollbackTrans() override {}
    void Close() override {}

   private:
    ConnectionRef inner_;
  };
  Fill(1);
  Wrapped wrapped(connection_);
  EXPECT_EQ(Number(OpenRecordset(wrapped, "SELECT * FROM Elements", adOpenStatic, adLockReadOnly), "Xs"), 10);
}

TEST_F(SqliteRecordsetTest, OpensOnTheConnectionThatItIsGiven) {
  const auto other = OpenSqlite(folder_.File("other.db"), {.mode = OpenMode::Create});
  other->Execute("CREATE TABLE Elements(Xs)");
  other->Execute("INSERT INTO Elements VALUES(77)");
  const auto recordset = connection_->CreateRecordset();
  recordset->Open("SELECT * FROM Elements", *other, adOpenStatic, adLockReadOnly, adCmdText);
  EXPECT_EQ(Number(recordset, "Xs"), 77);
}

// Moving.

TEST_F(SqliteRecordsetTest, MovesWithinAndBeyondItsRows) {
  Fill(3);
  for (const CursorType cursor : kCursors) {
    const auto recordset = Open("SELECT * FROM Elements", cursor, adLockReadOnly);
    recordset->Move(2);
    EXPECT_EQ(Number(recordset, "Xs"), 30);
    recordset->Move(-1);
    EXPECT_EQ(Number(recordset, "Xs"), 20);
    recordset->Move(0);
    EXPECT_EQ(Number(recordset, "Xs"), 20);
    recordset->Move(-2);
    EXPECT_TRUE(recordset->Bof());
    EXPECT_FALSE(recordset->Eof());
    EXPECT_RAISES(3021, kNoRow, recordset->Get("Xs"));
    EXPECT_RAISES(3021, "the recordset stands before its first row", recordset->Move(-1));
    recordset->MoveNext();
    EXPECT_EQ(Number(recordset, "Xs"), 10);
    recordset->Move(3);
    EXPECT_TRUE(recordset->Eof());
    EXPECT_FALSE(recordset->Bof());
    EXPECT_RAISES(3021, kNoRow, recordset->Get("Xs"));
    EXPECT_RAISES(3021, "the recordset stands behind its last row", recordset->MoveNext());
    recordset->Move(-1);
    EXPECT_EQ(Number(recordset, "Xs"), 30);
    recordset->MoveFirst();
    EXPECT_EQ(Number(recordset, "Xs"), 10);
  }
}

TEST_F(SqliteRecordsetTest, MovesFarBeyondStopAtTheEnds) {
  Fill(2);
  const auto recordset = Open("SELECT * FROM Elements");
  recordset->Move(std::numeric_limits<Long>::max());
  EXPECT_TRUE(recordset->Eof());
  recordset->Move(-1);
  EXPECT_EQ(Number(recordset, "Xs"), 20);
  recordset->Move(std::numeric_limits<Long>::min());
  EXPECT_TRUE(recordset->Bof());
  recordset->Move(1);
  EXPECT_EQ(Number(recordset, "Xs"), 10);
}

TEST_F(SqliteRecordsetTest, AMoveByNothingStaysWhereItIs) {
  Fill(2);
  const auto recordset = Open("SELECT * FROM Elements", adOpenDynamic);
  recordset->Move(-1);
  recordset->Move(0);
  EXPECT_TRUE(recordset->Bof());
  recordset->MoveNext();
  recordset->Delete();
  recordset->Move(0);
  EXPECT_RAISES(3021, "the current row has been deleted", recordset->Get("Xs"));
  recordset->MoveNext();
  EXPECT_EQ(Number(recordset, "Xs"), 20);
  Run("UPDATE Elements SET Xs=21");
  recordset->Move(0);
  EXPECT_EQ(Number(recordset, "Xs"), 20);
}

TEST_F(SqliteRecordsetTest, CountsItsRows) {
  Fill(2);
  EXPECT_EQ(Open("SELECT * FROM Elements", adOpenForwardOnly)->RecordCount(), -1);
  for (const CursorType cursor : {adOpenKeyset, adOpenDynamic, adOpenStatic}) {
    const auto recordset = Open("SELECT * FROM Elements", cursor);
    EXPECT_EQ(recordset->RecordCount(), 2);
    recordset->AddNew();
    EXPECT_EQ(recordset->RecordCount(), 3);
    recordset->Update();
    EXPECT_EQ(recordset->RecordCount(), 3);
    recordset->Delete();
    EXPECT_EQ(recordset->RecordCount(), 2);
  }
}

TEST_F(SqliteRecordsetTest, CountsItsColumns) {
  EXPECT_EQ(Open("SELECT * FROM Elements")->FieldCount(), 8);
  EXPECT_EQ(Open("SELECT * FROM Elements", adOpenDynamic)->FieldCount(), 8);
  EXPECT_EQ(Open("SELECT Xs,ID FROM Elements", adOpenStatic, adLockReadOnly)->FieldCount(), 2);
}

// Reading.

TEST_F(SqliteRecordsetTest, GivesEachKindOfValue) {
  Run("INSERT INTO Elements "
      "VALUES(1,-2147483648,2147483647,'t\xC3\xA9xt',x'00FF10',0.5,12345678901234567,Null)");
  for (const CursorType cursor : kCursors) {
    const auto recordset = Open("SELECT * FROM Elements", cursor);
    EXPECT_EQ(recordset->Get("Xs"), Variant(std::numeric_limits<Long>::min()));
    EXPECT_EQ(recordset->Get("Ys"), Variant(std::numeric_limits<Long>::max()));
    EXPECT_EQ(recordset->Get("Name"), Variant("t\xC3\xA9xt"));
    EXPECT_EQ(recordset->Get("Data"), Variant(Array::OfBytes(std::vector<Byte>{0, 255, 16})));
    EXPECT_EQ(recordset->Get("Size"), Variant(0.5));
    EXPECT_EQ(recordset->Get("Price"), Variant(Currency{12345678901234567}));
    EXPECT_EQ(recordset->Get("Any"), Variant(NullValue{}));
  }
}

TEST_F(SqliteRecordsetTest, WholeNumbersBeyond32BitsAreReal) {
  Run("INSERT INTO Elements(Xs,Ys) VALUES(2147483648,-2147483649)");
  const auto recordset = Open("SELECT * FROM Elements");
  EXPECT_EQ(recordset->Get("Xs"), Variant(2147483648.0));
  EXPECT_EQ(recordset->Get("Ys"), Variant(-2147483649.0));
}

TEST_F(SqliteRecordsetTest, ACurrencyColumnWithARealNumberGivesItsAmount) {
  Run("INSERT INTO Elements(Price) VALUES(1.25)");
  EXPECT_EQ(Open("SELECT Price FROM Elements")->Get("Price"), Variant(Currency{12500}));
}

TEST_F(SqliteRecordsetTest, EmptyTextsAndBlocksAreNotNull) {
  Run("INSERT INTO Elements(Name,Data) VALUES('',x'')");
  const auto recordset = Open("SELECT * FROM Elements");
  EXPECT_EQ(recordset->Get("Name"), Variant(""));
  EXPECT_EQ(recordset->Get("Data"), Variant(Array::OfBytes({})));
  recordset->AddNew();
  recordset->Put("Name", "");
  recordset->Put("Data", Array::OfBytes({}));
  recordset->Update();
  EXPECT_EQ(recordset->Get("Name"), Variant(""));
  EXPECT_EQ(recordset->Get("Data"), Variant(Array::OfBytes({})));
}

TEST_F(SqliteRecordsetTest, TextsKeepZeroBytes) {
  const std::string text("a\0b", 3);
  const auto recordset = Open("SELECT * FROM Elements");
  recordset->AddNew();
  recordset->Put("Name", text);
  recordset->Update();
  EXPECT_EQ(recordset->Get("Name"), Variant(text));
}

TEST_F(SqliteRecordsetTest, ColumnsAreFoundWhateverTheirCase) {
  Fill(1);
  const auto recordset = Open("SELECT * FROM elements");
  EXPECT_EQ(recordset->Get("xS"), Variant(Long{10}));
  recordset->Put("XS", Long{11});
  EXPECT_EQ(recordset->Get("Xs"), Variant(Long{11}));
}

TEST_F(SqliteRecordsetTest, ColumnsHaveTheNamesOfTheQuery) {
  Fill(2);
  const auto recordset = Open("SELECT Max(Xs) AS Highest, Count(*) AS Number FROM Elements");
  EXPECT_EQ(recordset->Get("Highest"), Variant(Long{20}));
  EXPECT_EQ(recordset->Get("Number"), Variant(Long{2}));
  EXPECT_EQ(recordset->FieldCount(), 2);
}

TEST_F(SqliteRecordsetTest, AColumnThatIsNotThereIsAnError) {
  Fill(1);
  const auto recordset = Open("SELECT Xs FROM Elements");
  EXPECT_RAISES(3265, "the recordset has no column 'Ys'", recordset->Get("Ys"));
  EXPECT_RAISES(3265, "the recordset has no column 'Ys'", recordset->Put("Ys", Long{1}));
  EXPECT_RAISES(3265, "the recordset has no column 'rowid'", recordset->Get("rowid"));
}

TEST_F(SqliteRecordsetTest, AMissingRowComesBeforeAMissingColumn) {
  EXPECT_RAISES(3021, kNoRow, Open("SELECT Xs FROM Elements")->Get("Ys"));
}

TEST_F(SqliteRecordsetTest, AStaticCopyDoesNotSeeLaterChanges) {
  Fill(2);
  for (const CursorType cursor : {adOpenForwardOnly, adOpenStatic}) {
    Run("UPDATE Elements SET Xs=ID*10");
    const auto recordset = Open("SELECT * FROM Elements", cursor);
    Run("UPDATE Elements SET Xs=1");
    EXPECT_EQ(Rest(recordset), (std::vector<Long>{10, 20}));
  }
}

TEST_F(SqliteRecordsetTest, RowsReadOnDemandShowLaterChanges) {
  Fill(3);
  for (const CursorType cursor : {adOpenKeyset, adOpenDynamic}) {
    Run("UPDATE Elements SET Xs=ID*10");
    const auto recordset = Open("SELECT * FROM Elements", cursor);
    Run("UPDATE Elements SET Xs=Xs+1");
    EXPECT_EQ(Number(recordset, "Xs"), 11);
    Run("UPDATE Elements SET Xs=Xs+1");
    EXPECT_EQ(Number(recordset, "Xs"), 11) << "a row is read once while the recordset stands on it";
    recordset->MoveNext();
    EXPECT_EQ(Number(recordset, "Xs"), 22);
    recordset->MoveFirst();
    EXPECT_EQ(Number(recordset, "Xs"), 12);
  }
}

TEST_F(SqliteRecordsetTest, AValueThatBecameNullMeanwhileIsNullWhenReadAgain) {
  Run("INSERT INTO Elements(Xs,Name) VALUES(1,'n')");
  const auto onDemand = Open("SELECT * FROM Elements", adOpenDynamic);
  const auto copy = Open("SELECT * FROM Elements", adOpenStatic);
  EXPECT_EQ(onDemand->Get("Name"), Variant("n"));
  Run("UPDATE Elements SET Xs=Null, Name=Null");
  onDemand->MoveFirst();
  EXPECT_EQ(onDemand->Get("Name"), Variant(NullValue{}));
  EXPECT_EQ(onDemand->Get("Xs"), Variant(NullValue{}));
  copy->Put("Ys", Long{2});
  copy->Update();
  EXPECT_EQ(copy->Get("Name"), Variant(NullValue{}));
  EXPECT_EQ(copy->Get("Xs"), Variant(NullValue{}));
}

TEST_F(SqliteRecordsetTest, ARowReadOnDemandThatIsGoneIsAnError) {
  Fill(2);
  const auto recordset = Open("SELECT * FROM Elements", adOpenDynamic);
  recordset->MoveNext();
  Run("DELETE FROM Elements WHERE ID=2");
  const char* const gone = "row 2 of Elements has been deleted since it was read";
  EXPECT_RAISES(kDatabaseError, gone, recordset->Get("Xs"));
  recordset->Put("Xs", Long{1});
  EXPECT_EQ(Number(recordset, "Xs"), 1);
  EXPECT_RAISES(kDatabaseError, gone, recordset->Get("Ys"));
  EXPECT_RAISES(kDatabaseError, gone, recordset->Update());
}

TEST_F(SqliteRecordsetTest, WhatWasPutIsShownBesideWhatTheDatabaseHolds) {
  for (const CursorType cursor : kCursors) {
    Run("DELETE FROM Elements");
    Run("INSERT INTO Elements(ID,Xs,Ys,Name,Data) VALUES (1,10,20,'a',x'0102')");
    const auto row = Open("SELECT * FROM Elements", cursor);
    // A row that was just written is read anew.
    row->Put("Xs", Long{11});
    row->Update();
    row->Put("ID", Long{5});
    row->Put("Ys", Long{21});
    row->Put("Data", NullValue{});
    EXPECT_EQ(Number(row, "ID"), 5);
    EXPECT_EQ(Number(row, "Ys"), 21);
    EXPECT_EQ(Number(row, "Xs"), 11);
    EXPECT_EQ(To<std::string>(row->Get("Name")), "a");
    EXPECT_EQ(Number(row, "ID"), 5);
    EXPECT_EQ(Number(row, "Ys"), 21);
    EXPECT_TRUE(row->Get("Data").IsNull());
    row->Put("Name", std::string("b"));
    row->Update();
    EXPECT_EQ(Elements(), (Lines{"5|11|21|b"})) << cursor;
    EXPECT_EQ(Rows("SELECT Data FROM Elements", {"Data"}), (Lines{"Null"}));
  }
}

TEST_F(SqliteRecordsetTest, WhatWasPutStaysWhenTheRestCannotBeRead) {
  for (const CursorType cursor : {adOpenKeyset, adOpenDynamic}) {
    Run("DELETE FROM Elements");
    Run("INSERT INTO Elements(ID,Xs,Price) VALUES (1,10,1e300)");
    const auto row = Open("SELECT * FROM Elements", cursor);
    row->Put("Xs", Long{11});
    EXPECT_EQ(test::ErrorOf([&] { row->Get("Ys"); }), 6);
    row->Update();
    EXPECT_EQ(Rows("SELECT Xs FROM Elements", {"Xs"}), (Lines{"11"}));
  }
}

TEST_F(SqliteRecordsetTest, RowsReadOnDemandAreForgottenAtTheNext) {
  for (int row = 0; row < 500; ++row) Run("INSERT INTO Elements(Data) VALUES (x'01'), (Null)");
  const auto recordset = Open("SELECT * FROM Elements", adOpenKeyset);
  const automation::AllocationWatch watch;
  for (; !recordset->Eof(); recordset->MoveNext()) recordset->Get("Data");
  EXPECT_LT(watch.Biggest(), 1000u);
}

TEST_F(SqliteRecordsetTest, QueriesOfMoreThanPlainRowsAreCopiedWhateverTheCursor) {
  Fill(2);
  for (const CursorType cursor : kCursors) {
    EXPECT_EQ(Number(Open("SELECT COUNT(*) AS Xs FROM Elements", cursor), "Xs"), 2);
    EXPECT_EQ(Rest(Open("SELECT DISTINCT Xs FROM Elements ORDER BY Xs", cursor)),
              (std::vector<Long>{10, 20}));
    EXPECT_EQ(Rest(Open("SELECT a.Xs FROM Elements AS a INNER JOIN Elements AS b ON a.ID=b.ID", cursor)),
              (std::vector<Long>{10, 20}));
  }
}

// Adding rows.

TEST_F(SqliteRecordsetTest, ANewRowIsWrittenByUpdate) {
  for (const CursorType cursor : kCursors) {
    const auto other = OpenSqlite(folder_.File(std::to_string(cursor)), {.mode = OpenMode::Create});
    other->Execute("CREATE TABLE Elements(ID INTEGER PRIMARY KEY AUTOINCREMENT, Xs, Ys, Name)");
    const auto recordset =
        OpenRecordset(*other, "SELECT * FROM Elements WHERE ID=-1", cursor, adLockOptimistic);
    recordset->AddNew();
    EXPECT_FALSE(recordset->Eof());
    EXPECT_FALSE(recordset->Bof());
    recordset->Put("Xs", Long{5});
    recordset->Put("Name", "n");
    EXPECT_EQ(Number(other->Execute("SELECT COUNT(*) AS N FROM Elements"), "N"), 0);
    recordset->Update();
    EXPECT_FALSE(recordset->Eof());
    EXPECT_EQ(Number(recordset, "ID"), 1);
    EXPECT_EQ(Number(recordset, "Xs"), 5);
    EXPECT_EQ(recordset->Get("Ys"), Variant(NullValue{}));
    EXPECT_EQ(recordset->Get("Name"), Variant("n"));
    const auto row = other->Execute("SELECT * FROM Elements");
    EXPECT_EQ(Number(row, "ID"), 1);
    EXPECT_EQ(Number(row, "Xs"), 5);
    EXPECT_EQ(row->Get("Ys"), Variant(NullValue{}));
    EXPECT_EQ(row->Get("Name"), Variant("n"));
  }
}

TEST_F(SqliteRecordsetTest, ANewRowShowsItsNumberAndNullsBeforeUpdate) {
  Fill(3);
  const auto recordset = Open("SELECT * FROM Elements WHERE ID=2");
  recordset->AddNew();
  EXPECT_EQ(recordset->Get("ID"), Variant(Long{4}));
  EXPECT_EQ(recordset->Get("Xs"), Variant(NullValue{}));
  recordset->Update();
  EXPECT_EQ(Elements().back(), "4|Null|Null|Null");
}

TEST_F(SqliteRecordsetTest, NumbersOfDeletedRowsNeverComeBack) {
  Fill(3);
  Run("DELETE FROM Elements");
  const auto recordset = Open("SELECT * FROM Elements");
  recordset->AddNew();
  EXPECT_EQ(Number(recordset, "ID"), 4);
  recordset->Update();
  recordset->Delete();
  recordset->AddNew();
  EXPECT_EQ(Number(recordset, "ID"), 5);
}

TEST_F(SqliteRecordsetTest, TheNumberOfADroppedRowIsNotShownAgain) {
  const auto dropped = Open("SELECT * FROM Elements");
  dropped->AddNew();
  EXPECT_EQ(Number(dropped, "ID"), 1);
  dropped->Close();
  const auto recordset = Open("SELECT * FROM Elements");
  recordset->AddNew();
  EXPECT_EQ(Number(recordset, "ID"), 2);
  recordset->Update();
  EXPECT_EQ(Elements(), (Lines{"2|Null|Null|Null"}));
}

TEST_F(SqliteRecordsetTest, TwoNewRowsAtATimeHaveDifferentNumbers) {
  for (const bool inTransaction : {false, true}) {
    Run("DELETE FROM Elements");
    if (inTransaction) connection_->BeginTrans();
    const auto first = Open("SELECT * FROM Elements");
    const auto second = Open("SELECT Xs FROM Elements");
    const auto third = Open("SELECT * FROM Elements");
    first->AddNew();
    second->AddNew();
    third->AddNew();
    const Long number = Number(first, "ID");
    EXPECT_EQ(Number(third, "ID"), number + 2);
    second->Update();
    third->Update();
    first->Update();
    if (inTransaction) connection_->CommitTrans();
    EXPECT_EQ(Rows("SELECT * FROM Elements ORDER BY ID", {"ID"}),
              (Lines{std::to_string(number), std::to_string(number + 1), std::to_string(number + 2)}));
  }
}

TEST_F(SqliteRecordsetTest, NumbersOfARolledBackTransactionAreNotShownAgain) {
  connection_->BeginTrans();
  const auto recordset = Open("SELECT * FROM Elements");
  recordset->AddNew();
  recordset->Update();
  EXPECT_EQ(Number(recordset, "ID"), 1);
  connection_->RollbackTrans();
  recordset->AddNew();
  EXPECT_EQ(Number(recordset, "ID"), 2);
  recordset->Update();
  EXPECT_EQ(Elements(), (Lines{"2|Null|Null|Null"}));
}

TEST_F(SqliteRecordsetTest, NumbersGivenByStatementsCount) {
  for (const bool inTransaction : {false, true}) {
    Run("DELETE FROM Elements");
    if (inTransaction) connection_->BeginTrans();
    const auto recordset = Open("SELECT * FROM Elements");
    recordset->AddNew();
    recordset->Update();
    const Long number = Number(recordset, "ID");
    Run("INSERT INTO Elements(ID) VALUES(" + std::to_string(number + 10) + ")");
    recordset->AddNew();
    EXPECT_EQ(Number(recordset, "ID"), number + 11);
    recordset->Update();
    if (inTransaction) connection_->CommitTrans();
  }
}

TEST_F(SqliteRecordsetTest, NumbersGivenByAnotherConnectionCount) {
  const auto other = OpenSqlite(Path());
  const auto recordset = Open("SELECT * FROM Elements");
  recordset->AddNew();
  recordset->Update();
  other->Execute("INSERT INTO Elements(Xs) VALUES(1)");
  recordset->AddNew();
  EXPECT_EQ(Number(recordset, "ID"), 3);
  recordset->Update();
  other->Execute("INSERT INTO Elements(Xs) VALUES(1)");
  connection_->BeginTrans();
  recordset->AddNew();
  EXPECT_EQ(Number(recordset, "ID"), 5);
  recordset->Update();
  connection_->CommitTrans();
}

TEST_F(SqliteRecordsetTest, NumbersGivenByTriggersCount) {
  Run("CREATE TRIGGER Copy AFTER INSERT ON Links BEGIN INSERT INTO Elements(Xs) VALUES(new.Place); END");
  connection_->BeginTrans();
  const auto elements = Open("SELECT * FROM Elements");
  elements->AddNew();
  elements->Update();
  const auto links = Open("SELECT * FROM Links");
  links->AddNew();
  links->Update();
  elements->AddNew();
  EXPECT_EQ(Number(elements, "ID"), 3);
  elements->Update();
  connection_->CommitTrans();
}

TEST_F(SqliteRecordsetTest, ANumberThatAnotherConnectionTookMeanwhileIsAnError) {
  const auto recordset = Open("SELECT * FROM Elements");
  recordset->AddNew();
  OpenSqlite(Path())->Execute("INSERT INTO Elements(Xs) VALUES(1)");
  EXPECT_RAISES(kDatabaseError,
                "UNIQUE constraint failed: Elements.ID; in: INSERT INTO \"Elements\"(\"ID\") VALUES(?)",
                recordset->Update());
}

TEST_F(SqliteRecordsetTest, ANumberThatIsPutIsTheRowsNumber) {
  const auto recordset = Open("SELECT * FROM Elements");
  recordset->AddNew();
  recordset->Put("ID", Long{70});
  recordset->Put("Xs", Long{1});
  EXPECT_EQ(Number(recordset, "ID"), 70);
  recordset->Update();
  EXPECT_EQ(Number(recordset, "ID"), 70);
  recordset->AddNew();
  EXPECT_EQ(Number(recordset, "ID"), 71);
  recordset->Update();
  EXPECT_EQ(Elements(), (Lines{"70|1|Null|Null", "71|Null|Null|Null"}));
}

TEST_F(SqliteRecordsetTest, TheLastNumberIsTheHighestOf32Bits) {
  Run("INSERT INTO Elements(ID) VALUES(2147483646)");
  const auto recordset = Open("SELECT * FROM Elements");
  recordset->AddNew();
  EXPECT_EQ(Number(recordset, "ID"), 2147483647);
  recordset->Update();
  EXPECT_RAISES(6, "overflow: table Elements has no number left for a new row", recordset->AddNew());
}

TEST_F(SqliteRecordsetTest, AKeyThatTheDatabaseDoesNotNumberIsNullUntilItIsWritten) {
  Run("CREATE TABLE Trends(TrendID INTEGER PRIMARY KEY, Name)");
  Run("INSERT INTO Trends VALUES(8,'a')");
  const auto recordset = Open("SELECT * FROM Trends");
  recordset->AddNew();
  EXPECT_EQ(recordset->Get("TrendID"), Variant(NullValue{}));
  recordset->Put("Name", "b");
  recordset->Update();
  EXPECT_EQ(recordset->Get("TrendID"), Variant(Long{9}));
  EXPECT_EQ(recordset->Get("Name"), Variant("b"));
}

TEST_F(SqliteRecordsetTest, RowsWithoutAKeyAreWrittenAndFoundAgain) {
  const auto recordset = Open("SELECT * FROM Links");
  for (Long place = 0; place < 3; ++place) {
    recordset->AddNew();
    recordset->Put("Element", Long{1});
    recordset->Put("Place", place);
    recordset->Update();
  }
  const auto second = Open("SELECT * FROM Links WHERE Place=1", adOpenDynamic);
  second->Put("Place", Long{7});
  second->Update();
  EXPECT_EQ(Rows("SELECT * FROM Links ORDER BY Place", {"Element", "Place"}), (Lines{"1|0", "1|2", "1|7"}));
  recordset->MoveFirst();
  recordset->Delete();
  EXPECT_EQ(Rows("SELECT * FROM Links ORDER BY Place", {"Element", "Place"}), (Lines{"1|2", "1|7"}));
}

TEST_F(SqliteRecordsetTest, ARefusedNewRowStaysTheCurrentOneAndCanBeMended) {
  Run("CREATE TABLE Named(ID INTEGER PRIMARY KEY AUTOINCREMENT, Name TEXT NOT NULL)");
  const auto recordset = Open("SELECT * FROM Named");
  recordset->AddNew();
  EXPECT_RAISES(kDatabaseError,
                "NOT NULL constraint failed: Named.Name; in: INSERT INTO \"Named\"(\"ID\") VALUES(?)",
                recordset->Update());
  recordset->Put("Name", "n");
  recordset->Update();
  EXPECT_EQ(Rows("SELECT * FROM Named", {"ID", "Name"}), (Lines{"1|n"}));
}

TEST_F(SqliteRecordsetTest, ClosingForgetsANewRow) {
  const auto recordset = Open("SELECT * FROM Elements");
  recordset->AddNew();
  recordset->Put("Xs", Long{1});
  recordset->Close();
  EXPECT_EQ(Elements(), Lines{});
  recordset->Open("SELECT * FROM Elements", *connection_, adOpenStatic, adLockOptimistic, adCmdText);
  EXPECT_TRUE(recordset->Eof());
  recordset->Update();
  EXPECT_EQ(Elements(), Lines{});
}

TEST_F(SqliteRecordsetTest, AddNewAndMovesWriteWhatWasPut) {
  Fill(1);
  const auto recordset = Open("SELECT * FROM Elements");
  recordset->Put("Xs", Long{11});
  recordset->AddNew();
  recordset->Put("Xs", Long{22});
  recordset->AddNew();
  recordset->Put("Xs", Long{33});
  recordset->MoveFirst();
  recordset->Put("Ys", Long{1});
  recordset->MoveNext();
  EXPECT_EQ(Number(recordset, "Xs"), 22);
  EXPECT_EQ(Elements(), (Lines{"1|11|1|Null", "2|22|Null|Null", "3|33|Null|Null"}));
}

// Changing rows.

TEST_F(SqliteRecordsetTest, UpdateWritesTheColumnsThatWerePut) {
  Fill(2);
  for (const CursorType cursor : kCursors) {
    const auto recordset = Open("SELECT * FROM Elements", cursor);
    recordset->MoveNext();
    recordset->Put("Ys", Long{cursor});
    recordset->Put("Name", "n");
    // What others changed in other columns stays.
    Run("UPDATE Elements SET Xs=" + std::to_string(100 + cursor) + " WHERE ID=2");
    recordset->Update();
    EXPECT_EQ(Elements(), (Lines{"1|10|Null|Null",
                                 "2|" + std::to_string(100 + cursor) + "|" + std::to_string(cursor) + "|n"}));
    EXPECT_EQ(Number(recordset, "Xs"), 100 + cursor);
  }
}

TEST_F(SqliteRecordsetTest, WhatWasPutIsSeenAtOnceAndWrittenLater) {
  Fill(1);
  const auto recordset = Open("SELECT * FROM Elements");
  recordset->Put("Xs", Long{5});
  EXPECT_EQ(Number(recordset, "Xs"), 5);
  EXPECT_EQ(Elements(), (Lines{"1|10|Null|Null"}));
  recordset->Close();
  EXPECT_EQ(Elements(), (Lines{"1|10|Null|Null"}));
}

TEST_F(SqliteRecordsetTest, UpdateWithoutAChangeDoesNothing) {
  Fill(1);
  const auto recordset = Open("SELECT * FROM Elements");
  Run("DELETE FROM Elements");
  recordset->Update();
  EXPECT_EQ(Elements(), Lines{});
  EXPECT_EQ(Number(recordset, "Xs"), 10);
}

TEST_F(SqliteRecordsetTest, ASecondUpdateDoesNotWriteTheFirstChangeAgain) {
  Fill(1);
  const auto recordset = Open("SELECT * FROM Elements");
  recordset->Put("Xs", Long{5});
  recordset->Update();
  Run("UPDATE Elements SET Xs=6");
  recordset->Put("Ys", Long{7});
  recordset->Update();
  EXPECT_EQ(Elements(), (Lines{"1|6|7|Null"}));
}

TEST_F(SqliteRecordsetTest, AfterUpdateTheRowShowsWhatTheDatabaseHolds) {
  const auto recordset = Open("SELECT * FROM Elements");
  recordset->AddNew();
  recordset->Put("Xs", "12");
  recordset->Put("Size", Long{3});
  recordset->Put("Name", Long{4});
  EXPECT_EQ(recordset->Get("Xs"), Variant("12"));
  recordset->Update();
  EXPECT_EQ(recordset->Get("Xs"), Variant(Long{12}));
  EXPECT_EQ(recordset->Get("Size"), Variant(3.0));
  EXPECT_EQ(recordset->Get("Name"), Variant("4"));
  recordset->Put("Xs", "13");
  recordset->Update();
  EXPECT_EQ(recordset->Get("Xs"), Variant(Long{13}));
}

TEST_F(SqliteRecordsetTest, ADefaultOfTheTableShowsAfterUpdate) {
  Run("CREATE TABLE Defaults(ID INTEGER PRIMARY KEY AUTOINCREMENT, A DEFAULT 7, B)");
  const auto recordset = Open("SELECT * FROM Defaults");
  recordset->AddNew();
  recordset->Put("B", Long{1});
  EXPECT_EQ(recordset->Get("A"), Variant(NullValue{}));
  recordset->Update();
  EXPECT_EQ(recordset->Get("A"), Variant(Long{7}));
}

TEST_F(SqliteRecordsetTest, EachKindOfValueIsTaken) {
  struct Case {
    Variant put;
    Variant got;
  };
  const std::vector<Byte> bytes = {1, 2, 0};
  const Case cases[] = {
      {Variant(), NullValue{}},
      {NullValue{}, NullValue{}},
      {true, Long{-1}},
      {false, Long{0}},
      {Byte{255}, Long{255}},
      {Integer{-32768}, Long{-32768}},
      {Long{70000}, Long{70000}},
      {Single{0.25f}, Double{0.25}},
      {Double{1e300}, Double{1e300}},
      {Currency{12500}, Double{1.25}},
      {"text", "text"},
      {Array::OfBytes(bytes), Array::OfBytes(bytes)},
  };
  const auto recordset = Open("SELECT * FROM Elements");
  for (const Case& value : cases) {
    recordset->AddNew();
    recordset->Put("Any", value.put);
    EXPECT_EQ(recordset->Get("Any"), value.got) << "before Update";
    recordset->Update();
    EXPECT_EQ(recordset->Get("Any"), value.got) << "after Update";
  }
}

TEST_F(SqliteRecordsetTest, ACurrencyColumnKeepsEveryBit) {
  const auto recordset = Open("SELECT * FROM Elements");
  for (const std::int64_t amount : {INT64_MIN, INT64_MAX, std::int64_t{-1}, std::int64_t{9007199254740993}}) {
    recordset->AddNew();
    recordset->Put("Price", Currency{amount});
    EXPECT_EQ(recordset->Get("Price"), Variant(Currency{amount}));
    recordset->Update();
    EXPECT_EQ(recordset->Get("Price"), Variant(Currency{amount}));
  }
  recordset->AddNew();
  recordset->Put("Price", Long{3});
  EXPECT_EQ(recordset->Get("Price"), Variant(Currency{30000}));
  recordset->Put("Price", NullValue{});
  EXPECT_EQ(recordset->Get("Price"), Variant(NullValue{}));
  recordset->Put("Price", Variant());
  EXPECT_EQ(recordset->Get("Price"), Variant(NullValue{}));
  EXPECT_RAISES(13, "type mismatch: \"much\" is not a number", recordset->Put("Price", "much"));
}

TEST_F(SqliteRecordsetTest, ObjectsAndOtherArraysAreRefused) {
  Fill(1);
  const auto recordset = Open("SELECT * FROM Elements");
  EXPECT_RAISES(13, "a column cannot hold a value of kind Object",
                recordset->Put("Any", std::make_shared<automation::Collection>()));
  EXPECT_RAISES(13, "a column cannot hold a value of kind Array",
                recordset->Put("Any", Array::OfSize(automation::VariantKind::Long, 1)));
  EXPECT_RAISES(13, "a column cannot hold a value of kind Array",
                recordset->Put("Any", Array(automation::VariantKind::Byte, {0, 1}, {0, 1})));
  recordset->Update();
  EXPECT_EQ(recordset->Get("Any"), Variant(NullValue{}));
}

TEST_F(SqliteRecordsetTest, TheKeyOfARowCanBeChanged) {
  Fill(1);
  const auto recordset = Open("SELECT * FROM Elements");
  recordset->Put("ID", Long{50});
  recordset->Update();
  EXPECT_EQ(Number(recordset, "ID"), 50);
  recordset->Put("Xs", Long{51});
  recordset->Update();
  EXPECT_EQ(Elements(), (Lines{"50|51|Null|Null"}));
}

TEST_F(SqliteRecordsetTest, AReadOnlyRecordsetRefusesChanges) {
  Fill(1);
  for (const CursorType cursor : kCursors) {
    const auto recordset = Open("SELECT * FROM Elements", cursor, adLockReadOnly);
    const char* refusal = "the recordset was opened read-only";
    EXPECT_RAISES(3251, refusal, recordset->AddNew());
    EXPECT_RAISES(3251, refusal, recordset->Put("Xs", Long{1}));
    EXPECT_RAISES(3251, refusal, recordset->Delete());
    EXPECT_RAISES(3251, refusal, recordset->Put("Nothing", Long{1}));
    recordset->Update();
  }
  EXPECT_EQ(Elements(), (Lines{"1|10|Null|Null"}));
}

TEST_F(SqliteRecordsetTest, PessimisticLocksWriteTheSame) {
  Fill(1);
  const auto recordset = Open("SELECT * FROM Elements", adOpenStatic, adLockPessimistic);
  recordset->Put("Xs", Long{1});
  recordset->Update();
  EXPECT_EQ(Elements(), (Lines{"1|1|Null|Null"}));
}

TEST_F(SqliteRecordsetTest, WhatIsNoPlainRowOfOneTableCannotBeChanged) {
  Fill(1);
  Run("CREATE VIEW Shown AS SELECT * FROM Elements");
  Run("CREATE TABLE Keyed(Name TEXT PRIMARY KEY) WITHOUT ROWID");
  Run("INSERT INTO Keyed VALUES('a')");
  for (const char* query :
       {"SELECT Count(*) AS Xs FROM Elements", "SELECT Xs+1 AS Xs FROM Elements",
        "SELECT DISTINCT Xs FROM Elements", "SELECT * FROM Shown", "SELECT * FROM Keyed", "SELECT 1 AS Xs"}) {
    for (const CursorType cursor : kCursors) {
      const auto recordset = Open(query, cursor);
      EXPECT_FALSE(recordset->Eof()) << query;
      EXPECT_RAISES(3251, "the recordset's rows are not plain rows of one table", recordset->AddNew());
      EXPECT_RAISES(3251, "the recordset's rows are not plain rows of one table",
                    recordset->Put("Xs", Long{1}));
    }
  }
}

TEST_F(SqliteRecordsetTest, ColumnsUnderAnotherNameAreWrittenToTheirOwn) {
  Fill(1);
  const auto recordset = Open("SELECT Xs AS Ys, Ys AS Xs FROM Elements AS e");
  recordset->Put("Ys", Long{1});
  recordset->Put("Xs", Long{2});
  recordset->Update();
  EXPECT_EQ(Elements(), (Lines{"1|1|2|Null"}));
}

TEST_F(SqliteRecordsetTest, ARowThatWasDeletedMeanwhileCannotBeUpdated) {
  Fill(1);
  const auto recordset = Open("SELECT * FROM Elements");
  recordset->Put("Xs", Long{1});
  OpenSqlite(Path())->Execute("DELETE FROM Elements");
  EXPECT_RAISES(kDatabaseError, "row 1 of Elements has been deleted since it was read", recordset->Update());
  EXPECT_EQ(Elements(), Lines{});
}

TEST_F(SqliteRecordsetTest, ARowThatWasDeletedAfterUpdateCannotBeReadAgain) {
  Fill(1);
  const auto recordset = Open("SELECT * FROM Elements");
  recordset->Put("Xs", Long{1});
  recordset->Update();
  Run("DELETE FROM Elements");
  EXPECT_EQ(Number(recordset, "ID"), 1);
  EXPECT_RAISES(kDatabaseError, "row 1 of Elements has been deleted since it was read", recordset->Get("Xs"));
}

// Deleting rows.

TEST_F(SqliteRecordsetTest, DeleteTakesTheCurrentRow) {
  for (const CursorType cursor : kCursors) {
    Run("DELETE FROM Elements");
    Fill(3);
    const auto recordset = Open("SELECT * FROM Elements ORDER BY Xs", cursor);
    recordset->MoveNext();
    recordset->Delete();
    EXPECT_EQ(Rows("SELECT Xs FROM Elements ORDER BY Xs", {"Xs"}), (Lines{"10", "30"}));
    EXPECT_FALSE(recordset->Eof());
    EXPECT_FALSE(recordset->Bof());
    EXPECT_RAISES(3021, "the current row has been deleted", recordset->Get("Xs"));
    EXPECT_RAISES(3021, "the current row has been deleted", recordset->Put("Xs", Long{1}));
    EXPECT_RAISES(3021, "the current row has been deleted", recordset->Delete());
    recordset->MoveNext();
    EXPECT_EQ(Number(recordset, "Xs"), 30);
    recordset->Move(-1);
    EXPECT_EQ(Number(recordset, "Xs"), 10);
  }
}

TEST_F(SqliteRecordsetTest, MovesFromADeletedRowCountFromItsPlace) {
  Fill(5);
  const auto recordset = Open("SELECT * FROM Elements");
  recordset->Move(2);
  recordset->Delete();
  recordset->Move(-1);
  EXPECT_EQ(Number(recordset, "Xs"), 20);
  recordset->Delete();
  recordset->Move(2);
  EXPECT_EQ(Number(recordset, "Xs"), 50);
}

TEST_F(SqliteRecordsetTest, DeletingAllRowsEndsAtTheEnd) {
  Fill(2);
  const auto recordset = Open("SELECT * FROM Elements", adOpenDynamic);
  while (!recordset->Eof()) {
    recordset->Delete();
    recordset->MoveNext();
  }
  EXPECT_TRUE(recordset->Bof());
  EXPECT_EQ(Elements(), Lines{});
}

TEST_F(SqliteRecordsetTest, MoveFirstLeavesADeletedRow) {
  Fill(2);
  const auto recordset = Open("SELECT * FROM Elements");
  recordset->Delete();
  recordset->MoveFirst();
  EXPECT_EQ(Number(recordset, "Xs"), 20);
  recordset->Delete();
  recordset->MoveFirst();
  EXPECT_TRUE(recordset->Eof());
}

TEST_F(SqliteRecordsetTest, ADeletedRowForgetsWhatWasPut) {
  Fill(2);
  const auto recordset = Open("SELECT * FROM Elements");
  recordset->Put("Xs", Long{1});
  recordset->Delete();
  recordset->MoveNext();
  EXPECT_EQ(Elements(), (Lines{"2|20|Null|Null"}));
}

TEST_F(SqliteRecordsetTest, WhatWasPutIntoADeletedRowIsNotWrittenToTheNext) {
  Fill(2);
  const auto recordset = Open("SELECT * FROM Elements");
  recordset->Put("Xs", Long{1});
  recordset->Delete();
  recordset->MoveNext();
  Run("UPDATE Elements SET Xs=77");
  recordset->Put("Ys", Long{2});
  recordset->Update();
  EXPECT_EQ(Elements(), (Lines{"2|77|2|Null"}));
}

TEST_F(SqliteRecordsetTest, DeletingARowThatIsGoneIsAnError) {
  Fill(1);
  const auto recordset = Open("SELECT * FROM Elements");
  Run("DELETE FROM Elements");
  EXPECT_RAISES(kDatabaseError, "row 1 of Elements has been deleted since it was read", recordset->Delete());
}

TEST_F(SqliteRecordsetTest, ANewRowCannotBeDeletedBeforeItIsWritten) {
  Fill(1);
  const auto recordset = Open("SELECT * FROM Elements");
  recordset->AddNew();
  EXPECT_RAISES(3219, "a row that was not yet written cannot be deleted", recordset->Delete());
  recordset->Update();
  recordset->Delete();
  EXPECT_EQ(Elements(), (Lines{"1|10|Null|Null"}));
}

TEST_F(SqliteRecordsetTest, AddNewLeavesADeletedRow) {
  Fill(1);
  const auto recordset = Open("SELECT * FROM Elements");
  recordset->Delete();
  recordset->AddNew();
  recordset->Put("Xs", Long{5});
  recordset->Update();
  EXPECT_EQ(Number(recordset, "Xs"), 5);
}

// Changes of the schema.

TEST_F(SqliteRecordsetTest, AColumnThatWasDroppedMeanwhileIsAnErrorAndNoText) {
  Fill(1);
  const auto recordset = Open("SELECT ID, Name FROM Elements", adOpenDynamic);
  OpenSqlite(Path())->Execute("ALTER TABLE Elements DROP COLUMN Name");
  EXPECT_RAISES(kDatabaseError,
                "no such column: Name; in: SELECT \"ID\",\"Name\" FROM \"Elements\" WHERE rowid=?",
                recordset->Get("Name"));
}

// Rows that are only read, and all of their columns.

TEST_F(SqliteRecordsetTest, ReadOnlyRowsComeInTheOrderOfTheQuery) {
  // Without an index the engine finds them in another order.
  for (const char* xs : {"30", "10", "NULL", "20"}) {
    Run("INSERT INTO Elements(Xs,Name) VALUES(" + std::string(xs) + ",'x' || " + xs + ")");
  }
  const auto recordset =
      Open("SELECT * FROM Elements WHERE Xs>0 ORDER BY Xs DESC", adOpenStatic, adLockReadOnly);
  EXPECT_EQ(recordset->RecordCount(), 3);
  Lines names;
  for (; !recordset->Eof(); recordset->MoveNext()) {
    names.push_back(To<std::string>(recordset->Get("ID")) + recordset->Get("Name").Text());
  }
  EXPECT_EQ(names, (Lines{"1x30", "4x20", "2x10"}));
  recordset->MoveFirst();
  EXPECT_EQ(Rest(recordset), (std::vector<Long>{30, 20, 10}));
}

TEST_F(SqliteRecordsetTest, ReadOnlyRowsInTheOrderOfAColumnsPlaceComeInThatOrder) {
  for (const char* values : {"1,9", "3,8", "2,7"})
    Run("INSERT INTO Links VALUES(" + std::string(values) + ")");
  EXPECT_EQ(Rows("SELECT * FROM Links ORDER BY 1", {"Element"}), (Lines{"1", "2", "3"}));
  EXPECT_EQ(Rows("SELECT * FROM Links ORDER BY 2", {"Element"}), (Lines{"2", "3", "1"}));
}

TEST_F(SqliteRecordsetTest, OneQueryReadsDifferentRowsEachTime) {
  Fill(3);
  for (const Long id : {3, 1, 2, 4, 3}) {
    const auto recordset =
        Open("SELECT * FROM Elements WHERE ID=" + std::to_string(id), adOpenStatic, adLockReadOnly);
    EXPECT_EQ(Rest(recordset), id == 4 ? std::vector<Long>{} : std::vector<Long>{id * 10});
  }
}

TEST_F(SqliteRecordsetTest, TwoReadOnlyCopiesOfOneQueryDoNotMeet) {
  Fill(2);
  const auto first = Open("SELECT * FROM Elements WHERE ID=1", adOpenStatic, adLockReadOnly);
  Run("UPDATE Elements SET Xs=11 WHERE ID=1");
  const auto second = Open("SELECT * FROM Elements WHERE ID=1", adOpenStatic, adLockReadOnly);
  EXPECT_EQ(Number(first, "Xs"), 10);
  EXPECT_EQ(Number(second, "Xs"), 11);
}

TEST_F(SqliteRecordsetTest, EachWayOfOpeningFollowsEachOtherInOneRecordset) {
  Fill(3);
  const auto recordset = connection_->CreateRecordset();
  for (const CursorType cursor :
       {adOpenStatic, adOpenKeyset, adOpenForwardOnly, adOpenDynamic, adOpenStatic}) {
    for (const LockType lock : {adLockReadOnly, adLockOptimistic, adLockReadOnly}) {
      recordset->Open("SELECT * FROM Elements", *connection_, cursor, lock, adCmdText);
      EXPECT_EQ(Rest(recordset), (std::vector<Long>{10, 20, 30})) << cursor << ' ' << lock;
      recordset->MoveFirst();
      if (lock == adLockReadOnly) {
        EXPECT_RAISES(3251, "the recordset was opened read-only", recordset->Put("Xs", Long{1}));
      } else {
        recordset->Put("Xs", Long{1});
      }
      recordset->Close();
    }
  }
}

TEST_F(SqliteRecordsetTest, AnAmountThatDoesNotFitIsAnOverflow) {
  Fill(2);
  Run("UPDATE Elements SET Price=1e300 WHERE ID=2");
  const auto recordset = connection_->CreateRecordset();
  for (const LockType lock : {adLockReadOnly, adLockOptimistic, adLockReadOnly}) {
    EXPECT_EQ(test::ErrorOf([&] {
                recordset->Open("SELECT * FROM Elements", *connection_, adOpenStatic, lock, adCmdText);
              }),
              6)
        << lock;
    EXPECT_RAISES(3704, "the recordset is closed", recordset->Eof());
  }
  Run("UPDATE Elements SET Price=2.5 WHERE ID=2");
  recordset->Open("SELECT * FROM Elements", *connection_, adOpenStatic, adLockReadOnly, adCmdText);
  EXPECT_EQ(recordset->RecordCount(), 2);
  EXPECT_TRUE(recordset->Get("Price").IsNull());
  recordset->MoveNext();
  EXPECT_EQ(recordset->Get("Price"), Variant(Currency{25000}));
}

TEST_F(SqliteRecordsetTest, AQueryOfWholeRowsThatFailsAtALaterRowLeavesNothing) {
  Fill(3);
  Run("UPDATE Elements SET Ys=-9223372036854775807-1 WHERE ID=3");
  const auto recordset = connection_->CreateRecordset();
  const auto open = [&](const char* query) {
    recordset->Open(query, *connection_, adOpenStatic, adLockReadOnly, adCmdText);
  };
  for (int time = 0; time < 2; ++time) {
    EXPECT_RAISES(kDatabaseError, "integer overflow; in: SELECT * FROM Elements WHERE Xs>0 OR abs(Ys)>0",
                  (Run("UPDATE Elements SET Xs=NULL WHERE ID=3"),
                   open("SELECT * FROM Elements WHERE Xs>0 OR abs(Ys)>0")));
    EXPECT_RAISES(3704, "the recordset is closed", recordset->Eof());
  }
  open("SELECT * FROM Elements WHERE ID=1");
  EXPECT_EQ(Rest(recordset), std::vector<Long>{10});
}

TEST_F(SqliteRecordsetTest, AQueryOfWholeRowsThatIsInterruptedLeavesNothing) {
  Fill(100);
  const auto recordset = connection_->CreateRecordset();
  const auto open = [&] {
    recordset->Open("SELECT * FROM Elements", *connection_, adOpenStatic, adLockReadOnly, adCmdText);
  };
  // Less than the engine's steps for a hundred rows, more than those for one.
  sqlite3_progress_handler(
      connection_->Database()->Handle(), 500, [](void*) { return 1; }, nullptr);
  EXPECT_RAISES(kDatabaseError, "interrupted; in: SELECT * FROM Elements", open());
  EXPECT_RAISES(3704, "the recordset is closed", recordset->Eof());
  sqlite3_progress_handler(connection_->Database()->Handle(), 0, nullptr, nullptr);
  open();
  EXPECT_EQ(recordset->RecordCount(), 100);
  EXPECT_EQ(Number(recordset, "Xs"), 10);
}

TEST_F(SqliteRecordsetTest, AQueryOfALockedTableIsTriedOnce) {
  const auto own = OpenSqlite(folder_.File("locked.db"), {.mode = OpenMode::Create});
  own->Execute("PRAGMA journal_mode=DELETE");
  own->Execute("CREATE TABLE T(A)");
  const auto other = OpenSqlite(folder_.File("locked.db"), {.mode = OpenMode::ReadOnly});
  EXPECT_TRUE(other->Execute("SELECT * FROM T")->Eof());
  int waits = 0;
  const auto countAndGiveUp = [](void* count, int) {
    ++*static_cast<int*>(count);
    return 0;
  };
  sqlite3_busy_handler(other->Database()->Handle(), countAndGiveUp, &waits);
  own->Execute("BEGIN EXCLUSIVE");
  EXPECT_RAISES(kDatabaseError, "database is locked; in: SELECT * FROM T", other->Execute("SELECT * FROM T"));
  EXPECT_EQ(waits, 1);
  own->Execute("ROLLBACK");
  EXPECT_TRUE(other->Execute("SELECT * FROM T")->Eof());
}

TEST_F(SqliteRecordsetTest, ReadOnlyRowsOfAChangedTableHaveTheColumnsThatItHasNow) {
  Fill(2);
  const std::string query = "SELECT * FROM Elements WHERE ID=2";
  EXPECT_EQ(Run(query)->FieldCount(), 8);
  const auto other = OpenSqlite(Path());
  other->Execute("ALTER TABLE Elements ADD COLUMN More DEFAULT 4");
  for (int time = 0; time < 2; ++time) {
    const auto added = Run(query);
    EXPECT_EQ(added->FieldCount(), 9);
    EXPECT_EQ(Number(added, "More"), 4);
    EXPECT_EQ(Number(added, "Xs"), 20);
    added->MoveNext();
    EXPECT_TRUE(added->Eof());
  }
  other->Execute("ALTER TABLE Elements DROP COLUMN Xs");
  EXPECT_EQ(Run(query)->FieldCount(), 8);
  EXPECT_EQ(Number(Run(query), "More"), 4);
}

TEST_F(SqliteRecordsetTest, ReadOnlyRowsOfATableThatLostAColumnAreReadOn) {
  Fill(2);
  const std::string query = "SELECT * FROM Elements WHERE ID=2";
  EXPECT_EQ(Number(Run(query), "Xs"), 20);
  OpenSqlite(Path())->Execute("ALTER TABLE Elements DROP COLUMN Name");
  for (int time = 0; time < 2; ++time) {
    const auto recordset = Run(query);
    EXPECT_EQ(recordset->FieldCount(), 7);
    EXPECT_EQ(Number(recordset, "Xs"), 20);
    EXPECT_RAISES(3265, "the recordset has no column 'Name'", recordset->Get("Name"));
  }
}

TEST_F(SqliteRecordsetTest, ReadOnlyRowsOfATableThatIsGoneAreAnErrorUntilItIsBack) {
  Run("INSERT INTO Links VALUES(1,2)");
  EXPECT_EQ(Rows("SELECT * FROM Links", {"Place"}), Lines{"2"});
  EXPECT_EQ(Run("SELECT * FROM Links")->FieldCount(), 2);
  Run("DROP TABLE Links");
  EXPECT_RAISES(kDatabaseError, "no such table: Links; in: SELECT * FROM Links", Run("SELECT * FROM Links"));
  Run("CREATE TABLE Links(Place, Element, Kind)");
  Run("INSERT INTO Links VALUES(5,6,7)");
  const auto recordset = Run("SELECT * FROM Links");
  EXPECT_EQ(recordset->FieldCount(), 3);
  EXPECT_EQ(Number(recordset, "Place"), 5);
  EXPECT_EQ(Number(recordset, "Kind"), 7);
}

TEST_F(SqliteRecordsetTest, AColumnThatWasAddedShowsAtTheNextOpening) {
  Fill(1);
  for (const CursorType cursor : {adOpenStatic, adOpenDynamic}) {
    EXPECT_EQ(Open("SELECT * FROM Elements", cursor)->FieldCount(), cursor == adOpenStatic ? 8 : 9);
    const auto before = Open("SELECT * FROM Elements", cursor);
    OpenSqlite(Path())->Execute("ALTER TABLE Elements ADD COLUMN More" + std::to_string(cursor) +
                                " DEFAULT 4");
    const auto after = Open("SELECT * FROM Elements", cursor);
    EXPECT_EQ(after->FieldCount(), before->FieldCount() + 1);
    EXPECT_EQ(Number(after, ("More" + std::to_string(cursor)).c_str()), 4);
    EXPECT_EQ(Number(before, "Xs"), 10);
  }
}

}  // namespace
}  // namespace quenzel7::ado
