#include "platform/ado/sqlite_query.h"

#include <sqlite3.h>

#include <algorithm>
#include <utility>

#include "platform/ado/row_taker.h"
#include "platform/ado/sqlite_database.h"
#include "platform/automation/automation_error.h"
#include "platform/automation/class_info.h"

namespace quenzel7::ado {
namespace {

using automation::AutomationError;
using automation::EqualFolded;

/// Writers that one shape keeps: the sets of columns that were written together.
constexpr std::size_t kMostWriters = 8;

std::string QuotedName(std::string_view name) {
  std::string quoted = "\"";
  for (const char c : name) {
    quoted += c;
    if (c == '"') quoted += c;
  }
  return quoted + "\"";
}

std::string QuotedNames(const std::vector<std::string>& names) {
  std::string list;
  for (const std::string& name : names) list.append(list.empty() ? "" : ",").append(QuotedName(name));
  return list;
}

std::string_view View(const char* text) { return text ? std::string_view(text) : std::string_view(); }

std::vector<std::string> ColumnNames(const SqliteStatement& query, int first) {
  std::vector<std::string> names;
  for (int column = first; column < query.ColumnCount(); ++column) {
    names.emplace_back(View(sqlite3_column_name(query.Handle(), column)));
  }
  return names;
}

}  // namespace

SqliteShape::SqliteShape(SqliteDatabase& database, const SqliteStatement& query, bool rowIds)
    : database_(database), columns_(ColumnNames(query, rowIds ? 1 : 0)) {
  sqlite3_stmt* const handle = query.Handle();
  const int first = rowIds ? 1 : 0;
  bool allInTable = rowIds;
  for (int column = first; column < query.ColumnCount(); ++column) {
    const bool isCurrency = EqualFolded(View(sqlite3_column_decltype(handle, column)), "CURRENCY");
    kinds_.push_back(isCurrency ? ColumnKind::Currency : ColumnKind::Plain);
    origins_.emplace_back(View(sqlite3_column_origin_name(handle, column)));
    allInTable = allInTable && !origins_.back().empty();
  }
  if (!allInTable) return;
  SqliteTable table;
  table.name = View(sqlite3_column_table_name(handle, 0));
  table.rowIdColumn = View(sqlite3_column_origin_name(handle, 0));
  if (table.name.empty()) return;
  int isNumbered = 0;
  if (sqlite3_table_column_metadata(database.Handle(), nullptr, table.name.c_str(), table.rowIdColumn.c_str(),
                                    nullptr, nullptr, nullptr, nullptr, &isNumbered) == SQLITE_OK &&
      isNumbered != 0) {
    table.numbers = &database.NumbersOf(table.name);
  }
  for (int column = 0; column < ColumnCount(); ++column) {
    if (EqualFolded(origins_[static_cast<std::size_t>(column)], table.rowIdColumn)) rowIdColumn_ = column;
  }
  table_ = std::move(table);
}

std::string SqliteShape::InsertText(const std::vector<std::uint8_t>& written, bool withNumber) const {
  std::string names;
  std::string places;
  const auto add = [&](const std::string& column) {
    names.append(names.empty() ? "" : ",").append(QuotedName(column));
    places += places.empty() ? "?" : ",?";
  };
  for (std::size_t column = 0; column < written.size(); ++column) {
    if (written[column]) add(origins_[column]);
  }
  if (withNumber) add(table_->rowIdColumn);
  return "INSERT INTO " + QuotedName(table_->name) + "(" + names + ") VALUES(" + places + ")";
}

std::string SqliteShape::UpdateText(const std::vector<std::uint8_t>& written) const {
  std::string changes;
  for (std::size_t column = 0; column < written.size(); ++column) {
    if (!written[column]) continue;
    if (!changes.empty()) changes += ',';
    changes += QuotedName(origins_[column]) += "=?";
  }
  return "UPDATE " + QuotedName(table_->name) + " SET " + changes + " WHERE rowid=?";
}

SqliteStatement& SqliteShape::WriterOf(WriterKind kind, const std::vector<std::uint8_t>& written) {
  const auto found = std::find_if(writers_.begin(), writers_.end(), [&](const Writer& writer) {
    return writer.kind == kind && writer.written == written;
  });
  if (found != writers_.end()) return *found->statement;
  auto statement = std::make_unique<SqliteStatement>(
      database_, kind == WriterKind::Update ? UpdateText(written)
                                            : InsertText(written, kind == WriterKind::InsertWithNumber));
  if (writers_.size() == kMostWriters) writers_.erase(writers_.begin());
  writers_.push_back({kind, written, std::move(statement)});
  return *writers_.back().statement;
}

SqliteStatement& SqliteShape::Insert(const std::vector<std::uint8_t>& written, bool withNumber) {
  return WriterOf(withNumber ? WriterKind::InsertWithNumber : WriterKind::Insert, written);
}

SqliteStatement& SqliteShape::Update(const std::vector<std::uint8_t>& written) {
  return WriterOf(WriterKind::Update, written);
}

SqliteStatement& SqliteShape::Delete() {
  if (!delete_) {
    delete_ = std::make_unique<SqliteStatement>(database_,
                                                "DELETE FROM " + QuotedName(table_->name) + " WHERE rowid=?");
  }
  return *delete_;
}

SqliteStatement& SqliteShape::Select() {
  if (!select_) {
    select_ = std::make_unique<SqliteStatement>(database_, "SELECT " + QuotedNames(origins_) + " FROM " +
                                                               QuotedName(table_->name) + " WHERE rowid=?");
  }
  return *select_;
}

SqliteQuery::SqliteQuery(SqliteDatabase& database, std::string_view statement, std::string_view shown,
                         Use use)
    : database_(database), use_(Use::Rows) {
  const TranslatedStatement jet = TranslateJet(statement);
  const bool numbered = use == Use::ChangeableRows || use == Use::Keys;
  if (numbered && jet.isSingleTableQuery) PrepareWithNumbers(jet, use);
  if (use_ == Use::Rows) statement_ = std::make_unique<SqliteStatement>(database, jet.text, shown);
  if (use == Use::TakenRows && jet.givesWholeRows) PrepareTaken(jet);
  isQuery_ = statement_->ColumnCount() > 0;
  writes_ = sqlite3_stmt_readonly(statement_->Handle()) == 0;
}

void SqliteQuery::PrepareWithNumbers(const TranslatedStatement& jet, Use use) {
  const std::string head = jet.text.substr(0, jet.selectListBegin);
  const std::string list = jet.text.substr(jet.selectListBegin, jet.selectListEnd - jet.selectListBegin);
  const std::string tail = jet.text.substr(jet.selectListEnd);
  wholeText_ = head + " rowid," + list + tail;
  std::unique_ptr<SqliteStatement> whole;
  try {
    whole = std::make_unique<SqliteStatement>(database_, wholeText_);
  } catch (const AutomationError&) {
    // Rows without a number, or a statement that is wrong altogether: its plain form will tell.
    return;
  }
  if (!SqliteShape(database_, *whole, true).Table()) return;
  use_ = use;
  statement_ = use == Use::Keys ? std::make_unique<SqliteStatement>(database_, head + " rowid " + tail)
                                : std::move(whole);
}

void SqliteQuery::PrepareTaken(const TranslatedStatement& jet) {
  const std::shared_ptr<SqliteShape> shape = Shape();
  const std::string call = std::string(RowTaker::kFunction) + "(" + QuotedNames(shape->Names()) + ")";
  std::unique_ptr<SqliteStatement> taken;
  try {
    taken = std::make_unique<SqliteStatement>(
        database_, jet.text.substr(0, jet.selectListBegin) + " " + call + jet.text.substr(jet.selectListEnd));
  } catch (const AutomationError&) {
    // More columns than a function can have arguments.
    return;
  }
  use_ = Use::TakenRows;
  wholeText_ = jet.text;
  statement_ = std::move(taken);
}

void SqliteQuery::TakeNoMore(std::string_view shown) {
  statement_ = std::make_unique<SqliteStatement>(database_, wholeText_, shown);
  use_ = Use::Rows;
  shape_.reset();
}

const std::shared_ptr<SqliteShape>& SqliteQuery::Shape() {
  if (use_ == Use::TakenRows) return shape_;
  const int recompiled = statement_->Recompiled();
  if (shape_ && recompiled == recompiled_) return shape_;
  recompiled_ = recompiled;
  if (use_ == Use::Keys) {
    shape_ = std::make_shared<SqliteShape>(database_, SqliteStatement(database_, wholeText_), true);
  } else {
    shape_ = std::make_shared<SqliteShape>(database_, *statement_, use_ == Use::ChangeableRows);
  }
  return shape_;
}

}  // namespace quenzel7::ado
