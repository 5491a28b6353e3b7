#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/automation/object.h"
#include "platform/automation/variant.h"

namespace quenzel7::ado {

class Connection;

/// How a recordset moves and what it sees of others' changes. Static and forward-only recordsets are a copy
/// of the rows at the time of opening; the others read on demand.
enum CursorType : Long { adOpenForwardOnly = 0, adOpenKeyset = 1, adOpenDynamic = 2, adOpenStatic = 3 };

/// Whether rows can be changed. Only adLockReadOnly forbids it; the other kinds write at Update.
enum LockType : Long { adLockReadOnly = 1, adLockPessimistic = 2, adLockOptimistic = 3 };

/// What the source text is; only statements are known here.
enum CommandOption : Long { adCmdText = 1 };

class Recordset;

/// One column of a recordset's current row, found by name without regard to case.
class Field {
 public:
  Field(Recordset& recordset, std::string_view name) : recordset_(recordset), name_(name) {}

  /// What late-bound hosts see of a column: theirs is an object of its own.
  static const automation::ClassInfo& ClassOf();

  /// The value in the current row. Errors of Recordset::Get.
  automation::Variant Value() const;
  /// Writes the value; it reaches the database with Update. Errors of Recordset::Put.
  void Value(const automation::Variant& value);

 private:
  Recordset& recordset_;
  std::string_view name_;
};

/// The rows that a query gave, one of them the current one. Hosts may bring their own; OpenProject gives one
/// on SQLite.
///
/// Errors: 3704 when it is not open; 3021 where a current row is needed and there is none; 3251 for a change
/// under adLockReadOnly, or of rows that are no plain rows of one table; 3265 for a column that it does not
/// have; the engine's own message under the database error number.
class Recordset : public automation::Object {
 public:
  static constexpr std::string_view kClassName = "Recordset";

  static const automation::ClassInfo& ClassOf();
  const automation::ClassInfo& Class() const override { return ClassOf(); }

  /// Runs a query on a connection and stands on the first row, if there is one. Error 3219 when already open.
  virtual void Open(const std::string& source, Connection& connection, CursorType cursor, LockType lock,
                    CommandOption options) = 0;
  /// Forgets the rows, and whatever was not yet written by Update.
  virtual void Close() = 0;

  /// Begins a new row, which becomes the current one. A column that the database numbers by itself shows the
  /// number that the row is going to have; the other columns are Null.
  virtual void AddNew() = 0;
  /// Writes the new row, or what was changed in the current one. Does nothing when nothing was changed.
  virtual void Update() = 0;
  /// Deletes the current row from the database; it stays the current one until the next move.
  virtual void Delete() = 0;

  /// True when there is no row at all, or when a move went past the last / before the first one.
  virtual bool Eof() const = 0;
  virtual bool Bof() const = 0;
  virtual void MoveFirst() = 0;
  virtual void MoveNext() = 0;
  /// Moves by a number of rows, backward when negative.
  virtual void Move(Long rows) = 0;
  /// Number of rows; -1 for a forward-only recordset.
  virtual Long RecordCount() const = 0;
  /// Number of columns.
  virtual Long FieldCount() const = 0;

  /// The value of a column in the current row, as the database gives it: Null, Long (whole numbers that fit
  /// 32 bits), Double, Currency (of a column declared so), String, or an array of bytes.
  virtual automation::Variant Get(std::string_view column) const = 0;
  virtual void Put(std::string_view column, const automation::Variant& value) = 0;

  /// A column of the current row.
  Field Fields(std::string_view name) { return Field(*this, name); }
};

using RecordsetRef = std::shared_ptr<Recordset>;

inline automation::Variant Field::Value() const { return recordset_.Get(name_); }
inline void Field::Value(const automation::Variant& value) { recordset_.Put(name_, value); }

}  // namespace quenzel7::ado
