#pragma once

#include <span>
#include <string_view>

#include "platform/ado/cells.h"
#include "platform/ado/sqlite_value.h"

struct sqlite3;
struct sqlite3_context;

namespace quenzel7::ado {

/// Copies whole rows while the engine finds them. It is a function of the database's statements that is
/// handed the columns of a row as its arguments and gives the number of the row, counted from 0 in the order
/// of the calls. Asking the engine for one column after another takes half as long again as finding the row.
class RowTaker {
 public:
  static constexpr std::string_view kFunction = "quenzel7_take_row";

  RowTaker() = default;
  RowTaker(const RowTaker&) = delete;
  RowTaker& operator=(const RowTaker&) = delete;

  /// Makes the function known to a database, which must not outlive the taker.
  void AddTo(sqlite3* database);

  /// While it lives, rows with columns of these kinds are appended to the cells. At any other time the
  /// function is an error, as it is for a row of another width and for a value that cannot be copied.
  class Taking {
   public:
    Taking(RowTaker& taker, std::span<const ColumnKind> kinds, Cells& cells) : taker_(taker) {
      taker.kinds_ = kinds;
      taker.cells_ = &cells;
    }
    Taking(const Taking&) = delete;
    Taking& operator=(const Taking&) = delete;
    ~Taking() { taker_.cells_ = nullptr; }

   private:
    RowTaker& taker_;
  };

 private:
  static void Take(sqlite3_context* context, int count, sqlite3_value** values);

  std::span<const ColumnKind> kinds_;
  /// None while no rows are taken.
  Cells* cells_ = nullptr;
};

}  // namespace quenzel7::ado
