#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// The Jet dialect of SQL, in which the statements of this system are written, brought to the one that SQLite
/// understands. Only SELECT, INSERT, UPDATE and DELETE are touched; any other statement goes through as it
/// is.
///
/// It is done in two steps, so that the frequent one is cheap: lifting the literals out is a single pass over
/// the text, and the translation is needed only once for all statements that differ in their literals.
namespace quenzel7::ado {

/// A number or a text that stood in a statement.
using Literal = std::variant<std::int64_t, double, std::string>;

/// Literals beyond this many stay where they stand.
inline constexpr std::size_t kMostLifted = 250;

/// A statement with "?" in the place of its literals, and the literals in order.
struct LiftedStatement {
  std::string text;
  std::vector<Literal> literals;
};

/// Appends the statement to `lifted`, its number and text literals lifted out.
///
/// A minus sign that belongs to a number ("=-1", "(-1", ",-1") goes with it. Literals of a select list stay,
/// since they can name a column, and so do those of ORDER BY, GROUP BY and LIMIT, where a number can be the
/// place of a column. Blanks and semicolons at the end are dropped. Database error when text follows a
/// semicolon, and for "?" or a zero byte outside of a literal: there are no parameters.
void LiftLiterals(std::string_view statement, LiftedStatement& lifted);

/// A statement for SQLite.
struct TranslatedStatement {
  std::string text;
  /// The statement gives plain rows of one table: no DISTINCT, joins, groups, unions or limits. Its select
  /// list is text[selectListBegin, selectListEnd).
  bool isSingleTableQuery = false;
  /// Of such a query: its select list is "*", and it is ordered by nothing but names.
  bool givesWholeRows = false;
  std::size_t selectListBegin = 0;
  std::size_t selectListEnd = 0;
};

/// Translates a statement, with or without its literals:
///   DELETE * FROM, DELETE T.* FROM   DELETE FROM
///   True, False                      -1, 0
///   "text"                           'text'
///   a & b                            a || b (Null where one of them is Null)
///   Index and other names that SQLite reserves and this dialect does not: in brackets
///   IN (SELECT DISTINCT A ...)       IN (SELECT A ...), for which an index serves
///   two minus signs in a row         kept apart, since together they begin a comment
/// Names in brackets, nested joins and any case of keywords are understood on both sides.
TranslatedStatement TranslateJet(std::string_view statement);

}  // namespace quenzel7::ado
