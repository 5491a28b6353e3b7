#include "platform/ado/sqlite_recordset.h"

#include <algorithm>
#include <utility>

#include "platform/ado/sqlite_connection.h"
#include "platform/ado/sqlite_database.h"
#include "platform/automation/array.h"
#include "platform/automation/automation_error.h"
#include "platform/automation/convert.h"

namespace quenzel7::ado {
namespace {

using automation::AutomationError;
using automation::ErrorNumber;
using automation::NullValue;
using automation::Variant;
using automation::VariantKind;

/// A value as a column holds it before the database has seen it: a value kind that Get gives.
Variant CellOf(const Variant& value, ColumnKind kind) {
  if (kind == ColumnKind::Currency && !value.IsNull() && !value.IsEmpty()) {
    return automation::To<Currency>(value);
  }
  switch (value.Kind()) {
    case VariantKind::Null:
    case VariantKind::Long:
    case VariantKind::Double:
    case VariantKind::String:
      return value;
    case VariantKind::Empty:
      return NullValue{};
    case VariantKind::Boolean:
    case VariantKind::Byte:
    case VariantKind::Integer:
      return automation::To<Long>(value);
    case VariantKind::Single:
    case VariantKind::Currency:
      return automation::To<Double>(value);
    case VariantKind::Array:
      if (value.Elements().Dimensions() == 1 && value.Elements().ElementKind() == VariantKind::Byte)
        return value;
      break;
    default:
      break;
  }
  throw AutomationError(ErrorNumber::TypeMismatch, std::string("a column cannot hold a value of kind ") +
                                                       automation::KindName(value.Kind()));
}

[[noreturn]] void RaiseRowGone(const SqliteTable& table, std::int64_t id) {
  throw AutomationError(ErrorNumber::Database, "row " + std::to_string(id) + " of " + table.name +
                                                   " has been deleted since it was read");
}

}  // namespace

SqliteRecordset::SqliteRecordset(std::shared_ptr<SqliteDatabase> database) : database_(std::move(database)) {}

void SqliteRecordset::Open(const std::string& source, Connection& connection, CursorType cursor,
                           LockType lock, CommandOption options) {
  if (shape_) throw AutomationError(ErrorNumber::NotAllowedInThisState, "the recordset is already open");
  if (cursor < adOpenForwardOnly || cursor > adOpenStatic || lock < adLockReadOnly ||
      lock > adLockOptimistic || options != adCmdText) {
    throw AutomationError(ErrorNumber::InvalidProcedureCall,
                          "a recordset cannot be opened with cursor type " + std::to_string(cursor) +
                              ", lock type " + std::to_string(lock) + " and option " +
                              std::to_string(options));
  }
  // A host may have wrapped the connection; the recordset then stays with the one that made it.
  if (const auto* sqlite = dynamic_cast<const SqliteConnection*>(&connection)) database_ = sqlite->Database();
  cursor_ = cursor;
  lock_ = lock;
  const bool onDemand = cursor == adOpenKeyset || cursor == adOpenDynamic;
  Run(source, onDemand                 ? SqliteQuery::Use::Keys
              : lock == adLockReadOnly ? SqliteQuery::Use::TakenRows
                                       : SqliteQuery::Use::ChangeableRows);
}

void SqliteRecordset::Execute(const std::string& statement) { Run(statement, SqliteQuery::Use::TakenRows); }

void SqliteRecordset::Run(const std::string& source, SqliteQuery::Use use) {
  database_->Observe(source);
  SqliteQuery* query = &database_->Prepare(source, use);
  if (query->ActualUse() == SqliteQuery::Use::TakenRows) {
    if (TakeRows(*query, source)) return;
    query->TakeNoMore(source);
    query = &database_->Prepare(source, use);
  }
  ReadRows(*query, source);
}

bool SqliteRecordset::TakeRows(SqliteQuery& query, const std::string& source) {
  SqliteStatement& statement = query.Statement();
  const std::shared_ptr<SqliteShape>& shape = query.Shape();
  const RowTaker::Taking taking(database_->Taker(), shape->Kinds(), cells_);
  bool inOrder = true;
  try {
    while (statement.Step(source)) {
      const std::int64_t number = statement.Integer(0);
      inOrder = inOrder && number == std::ssize(rows_);
      rows_.push_back({number, false});
    }
  } catch (...) {
    const bool isWrong = database_->IsStatementWrong();
    statement.Reset();
    Forget();
    if (isWrong) return false;
    throw;
  }
  if (statement.Recompiled() != 0) {
    // The table may have other columns now.
    Forget();
    return false;
  }
  if (!inOrder) {
    std::vector<std::size_t> order;
    for (const Row& row : rows_) order.push_back(static_cast<std::size_t>(row.id));
    cells_.Arrange(order, shape->Kinds().size());
  }
  changeable_ = onDemand_ = false;
  shape_ = shape;
  return true;
}

void SqliteRecordset::ReadRows(SqliteQuery& query, const std::string& source) {
  SqliteStatement& statement = query.Statement();
  // The columns are looked at after the first step, which may have compiled the statement again.
  bool atRow = statement.Step(source);
  if (!query.IsQuery()) return;
  try {
    std::shared_ptr<SqliteShape> shape = query.Shape();
    const int first = query.ActualUse() == SqliteQuery::Use::Rows ? 0 : 1;
    onDemand_ = query.ActualUse() == SqliteQuery::Use::Keys;
    if (onDemand_) cells_.Resize(shape->Kinds().size());
    for (; atRow; atRow = statement.Step(source)) {
      rows_.push_back({first == 1 ? statement.Integer(0) : 0, onDemand_});
      if (onDemand_) continue;
      const std::size_t place = cells_.Size();
      cells_.Resize(place + shape->Kinds().size());
      statement.ReadRow(first, shape->Kinds(), cells_, place);
    }
    changeable_ = lock_ != adLockReadOnly && shape->Table();
    shape_ = std::move(shape);
  } catch (...) {
    statement.Reset();
    Forget();
    throw;
  }
}

void SqliteRecordset::Forget() {
  shape_.reset();
  rows_.clear();
  cells_.Clear();
  written_.clear();
  position_ = 0;
  adding_ = deleted_ = changed_ = false;
}

void SqliteRecordset::Close() {
  // After its connection too a recordset can be closed.
  if (!shape_) RaiseClosed();
  Forget();
}

void SqliteRecordset::RaiseClosed() const {
  throw AutomationError(ErrorNumber::ObjectIsClosed,
                        shape_ ? "the connection of the recordset is closed" : "the recordset is closed");
}

void SqliteRecordset::RaiseNoRow() const {
  throw AutomationError(ErrorNumber::NoCurrentRow,
                        deleted_ ? "the current row has been deleted" : "the recordset stands on no row");
}

void SqliteRecordset::RaiseNotChangeable() const {
  throw AutomationError(ErrorNumber::RecordsetIsReadOnly,
                        lock_ == adLockReadOnly ? "the recordset was opened read-only"
                                                : "the recordset's rows are not plain rows of one table");
}

std::size_t SqliteRecordset::Column(std::string_view name) const {
  const int column = shape_->Find(name);
  if (column == ColumnIndex::kNone) {
    throw AutomationError(ErrorNumber::NoSuchColumn,
                          "the recordset has no column '" + std::string(name) + "'");
  }
  return static_cast<std::size_t>(column);
}

void SqliteRecordset::ReadCurrentRow() const {
  Row& row = CurrentRow();
  SqliteStatement& select = shape_->Select();
  select.Bind(1, row.id);
  if (!select.Step()) RaiseRowGone(*shape_->Table(), row.id);
  try {
    ReadColumns(select);
  } catch (...) {
    select.Reset();
    throw;
  }
  select.Reset();
  row.stale = false;
}

void SqliteRecordset::ReadColumns(const SqliteStatement& select) const {
  const std::vector<ColumnKind>& kinds = shape_->Kinds();
  if (changed_) {
    Cells found;
    found.Resize(kinds.size());
    select.ReadRow(0, kinds, found, 0);
    for (std::size_t column = 0; column < kinds.size(); ++column) {
      if (!written_[column]) cells_.Set(FirstCell() + column, found.Get(column));
    }
    return;
  }
  if (onDemand_) {
    // What the rows before held would be kept with them.
    cells_.Clear();
    cells_.Resize(kinds.size());
  }
  select.ReadRow(0, kinds, cells_, FirstCell());
}

void SqliteRecordset::AddNew() {
  RequireChangeable();
  Update();
  const SqliteTable& table = *shape_->Table();
  newNumber_ = table.numbers ? database_->NextNumber(table) : 0;
  const auto width = static_cast<std::size_t>(shape_->ColumnCount());
  position_ = std::ssize(rows_);
  adding_ = true;
  deleted_ = false;
  const std::size_t first = FirstCell();
  cells_.Resize(first);
  cells_.Resize(first + width);
  written_.assign(width, 0);
  if (table.numbers && shape_->RowIdColumn() != ColumnIndex::kNone) {
    cells_.SetLong(first + static_cast<std::size_t>(shape_->RowIdColumn()), newNumber_);
  }
}

void SqliteRecordset::Update() {
  RequireOpen();
  if (adding_) {
    InsertRow();
  } else if (changed_) {
    UpdateRow();
  }
}

int SqliteRecordset::BindWritten(SqliteStatement& statement) const {
  const std::size_t first = FirstCell();
  int parameter = 0;
  for (std::size_t column = 0; column < written_.size(); ++column) {
    if (written_[column]) statement.Bind(++parameter, cells_, first + column);
  }
  return parameter;
}

void SqliteRecordset::InsertRow() {
  database_->RequireUsable("AddNew");
  const int keyColumn = shape_->RowIdColumn();
  const bool keyPut = keyColumn != ColumnIndex::kNone && written_[static_cast<std::size_t>(keyColumn)];
  SqliteStatement& insert = shape_->Insert(written_, !keyPut);
  const int last = BindWritten(insert);
  if (!keyPut) {
    if (shape_->Table()->numbers) {
      insert.Bind(last + 1, newNumber_);
    } else {
      insert.BindNull(last + 1);
    }
  }
  database_->RunOnRow(insert);
  rows_.push_back({database_->LastRowId(), true});
  adding_ = changed_ = false;
  written_.clear();
}

void SqliteRecordset::UpdateRow() {
  database_->RequireUsable("Update");
  Row& row = CurrentRow();
  SqliteStatement& update = shape_->Update(written_);
  update.Bind(BindWritten(update) + 1, row.id);
  if (!database_->RunOnRow(update)) RaiseRowGone(*shape_->Table(), row.id);
  const int keyColumn = shape_->RowIdColumn();
  if (keyColumn != ColumnIndex::kNone && written_[static_cast<std::size_t>(keyColumn)]) {
    row.id = static_cast<std::int64_t>(
        automation::To<Double>(cells_.Get(FirstCell() + static_cast<std::size_t>(keyColumn))));
  }
  row.stale = true;
  changed_ = false;
  written_.clear();
}

void SqliteRecordset::Delete() {
  RequireChangeable();
  if (adding_) {
    throw AutomationError(ErrorNumber::NotAllowedInThisState,
                          "a row that was not yet written cannot be deleted");
  }
  RequireRow();
  database_->RequireUsable("Delete");
  const std::int64_t id = CurrentRow().id;
  SqliteStatement& statement = shape_->Delete();
  statement.Bind(1, id);
  if (!database_->RunOnRow(statement)) RaiseRowGone(*shape_->Table(), id);
  if (!onDemand_) cells_.Erase(FirstCell(), static_cast<std::size_t>(shape_->ColumnCount()));
  rows_.erase(rows_.begin() + position_);
  deleted_ = true;
  changed_ = false;
  written_.clear();
}

bool SqliteRecordset::Eof() const {
  RequireOpen();
  return !adding_ && !deleted_ && position_ >= std::ssize(rows_);
}

bool SqliteRecordset::Bof() const {
  RequireOpen();
  return !adding_ && !deleted_ && (position_ < 0 || rows_.empty());
}

void SqliteRecordset::MoveFirst() {
  Update();
  if (rows_.empty() && !deleted_) {
    throw AutomationError(ErrorNumber::NoCurrentRow, "the recordset has no rows");
  }
  GoTo(0);
}

void SqliteRecordset::Move(Long rows) {
  Update();
  if (rows == 0) return;
  if (rows > 0 ? Eof() : Bof()) {
    throw AutomationError(ErrorNumber::NoCurrentRow, rows > 0 ? "the recordset stands behind its last row"
                                                              : "the recordset stands before its first row");
  }
  // Where a row was deleted, the one behind it has moved up.
  GoTo(position_ + rows - (deleted_ && rows > 0 ? 1 : 0));
}

void SqliteRecordset::GoTo(std::int64_t position) {
  position_ = std::clamp<std::int64_t>(position, -1, std::ssize(rows_));
  deleted_ = false;
  if (onDemand_ && position_ >= 0 && position_ < std::ssize(rows_)) {
    CurrentRow().stale = true;
  }
}

Long SqliteRecordset::RecordCount() const {
  RequireOpen();
  return cursor_ == adOpenForwardOnly ? -1 : static_cast<Long>(rows_.size()) + (adding_ ? 1 : 0);
}

Long SqliteRecordset::FieldCount() const {
  RequireOpen();
  return shape_->ColumnCount();
}

Variant SqliteRecordset::Get(std::string_view name) const {
  RequireRow();
  const std::size_t column = Column(name);
  if (!adding_ && CurrentRow().stale && !(changed_ && written_[column])) {
    // The number of a row that was just written is asked for most of all.
    const std::int64_t id = CurrentRow().id;
    if (!onDemand_ && static_cast<int>(column) == shape_->RowIdColumn() && id == static_cast<Long>(id)) {
      return static_cast<Long>(id);
    }
    ReadCurrentRow();
  }
  return cells_.Get(FirstCell() + column);
}

void SqliteRecordset::Put(std::string_view name, const Variant& value) {
  RequireChangeable();
  RequireRow();
  const std::size_t column = Column(name);
  if (written_.empty()) written_.assign(static_cast<std::size_t>(shape_->ColumnCount()), 0);
  const ColumnKind kind = shape_->Kind(static_cast<int>(column));
  const std::size_t place = FirstCell() + column;
  if (const Long* number = value.If<Long>(); number && kind == ColumnKind::Plain) {
    cells_.SetLong(place, *number);
  } else {
    cells_.Set(place, CellOf(value, kind));
  }
  written_[column] = 1;
  changed_ = true;
}

}  // namespace quenzel7::ado
