#include "platform/ado/sqlite_database.h"

#include <sqlite3.h>

#include <algorithm>
#include <filesystem>
#include <limits>
#include <system_error>
#include <utility>

#include "platform/automation/automation_error.h"

namespace quenzel7::ado {
namespace {

using automation::AutomationError;
using automation::ErrorNumber;

/// The path in a form in which the engine sees no special name in it, as in ":memory:" and "file:".
std::string PlainPath(const std::string& path) {
  const bool special = path.starts_with(":") || path.starts_with("file:");
  return special ? "./" + path : path;
}

/// The path as a URI that tells the engine that nobody changes the file: it is then read without locks and
/// without its log.
std::string UnchangingUri(const std::string& path) {
  constexpr const char* kHex = "0123456789ABCDEF";
  std::string uri = "file:";
  for (const char c : PlainPath(path)) {
    const auto byte = static_cast<unsigned char>(c);
    ((uri += '%') += kHex[byte >> 4]) += kHex[byte & 15];
  }
  return uri + "?immutable=1";
}

bool HasLog(const std::string& path) {
  std::error_code error;
  return std::filesystem::exists(path + "-wal", error);
}

[[noreturn]] void Raise(const std::string& message) { throw AutomationError(ErrorNumber::Database, message); }

/// The number at the end of a text that stands behind "=", and how many characters come before it; 0 of them
/// when the text ends otherwise or the number has more than nine digits.
struct EndNumber {
  std::size_t headSize = 0;
  std::int64_t number = 0;
};

EndNumber NumberAtEnd(std::string_view text) {
  constexpr std::size_t kMostDigits = 9;
  std::size_t first = text.size();
  while (first > 0 && text[first - 1] >= '0' && text[first - 1] <= '9') --first;
  const std::size_t digits = text.size() - first;
  if (digits == 0 || digits > kMostDigits) return {};
  std::int64_t number = 0;
  for (const char digit : text.substr(first)) number = number * 10 + (digit - '0');
  if (first > 0 && text[first - 1] == '-') {
    --first;
    number = -number;
  }
  if (first == 0 || text[first - 1] != '=') return {};
  return {first, number};
}

}  // namespace

SqliteDatabase::SqliteDatabase(const std::string& path, const OpenOptions& options)
    : SqliteDatabase(options.mode == OpenMode::ReadOnly || options.mode == OpenMode::Inspect) {
  // What fails from here on is closed by the destructor.
  try {
    Open(path, options);
  } catch (const AutomationError& error) {
    throw error.In("cannot open \"" + path + "\"");
  }
}

void SqliteDatabase::Open(const std::string& path, const OpenOptions& options) {
  if (path.empty()) Raise("the path is empty");
  if (path.find('\0') != std::string::npos) Raise("a path holds no zero bytes");
  // As it is now: the current folder may be another one later.
  std::error_code ignored;
  filePath_ = std::filesystem::absolute(path, ignored).lexically_normal().string();
  const bool inspect = options.mode == OpenMode::Inspect;
  const bool unchanging = inspect && !HasLog(path);
  // A connection belongs to one thread at a time, so the engine need not lock itself.
  int flags = SQLITE_OPEN_NOMUTEX;
  if (unchanging) {
    flags |= SQLITE_OPEN_READONLY | SQLITE_OPEN_URI;
  } else {
    // For reading too: else nobody could take the log and its index away at the end.
    flags |= SQLITE_OPEN_READWRITE | (options.mode == OpenMode::Create ? SQLITE_OPEN_CREATE : 0);
  }
  const std::string name = unchanging ? UnchangingUri(path) : PlainPath(path);
  const int result = sqlite3_open_v2(name.c_str(), &handle_, flags,
                                     options.fileSystem.empty() ? nullptr : options.fileSystem.c_str());
  if (result != SQLITE_OK) Raise(handle_ ? sqlite3_errmsg(handle_) : sqlite3_errstr(result));
  sqlite3_extended_result_codes(handle_, 1);
  sqlite3_busy_timeout(handle_, options.busyTimeout);
  // A name in double quotes is never taken for a text: a missing column has to be an error.
  sqlite3_db_config(handle_, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  taker_.AddTo(handle_);
  Run("PRAGMA foreign_keys=ON");
  if (inspect) sqlite3_db_config(handle_, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
  if (readOnly_) {
    Run("PRAGMA query_only=ON");
  } else {
    Run("PRAGMA journal_mode=WAL");
    Run("PRAGMA synchronous=NORMAL");
  }
}

sqlite3* SqliteDatabase::Handle() const {
  if (!handle_) throw AutomationError(ErrorNumber::ObjectIsClosed, "the connection is closed");
  return handle_;
}

void SqliteDatabase::RaiseError(std::string_view statement) const {
  throw AutomationError(ErrorNumber::Database,
                        std::string(sqlite3_errmsg(handle_)) + "; in: " + std::string(statement));
}

bool SqliteDatabase::IsStatementWrong() const { return sqlite3_errcode(handle_) == SQLITE_ERROR; }

void SqliteDatabase::Run(const char* statement) {
  if (sqlite3_exec(Handle(), statement, nullptr, nullptr, nullptr) != SQLITE_OK) RaiseError(statement);
}

void SqliteDatabase::RequireUsable(std::string_view statement) const {
  Handle();
  if (inTransaction_ && sqlite3_get_autocommit(handle_)) {
    throw AutomationError(
        ErrorNumber::Database,
        "the database has given up the transaction after an error; roll it back first; in: " +
            std::string(statement));
  }
}

SqliteQuery& SqliteDatabase::Prepare(std::string_view statement, SqliteQuery::Use use) {
  RequireUsable(statement);
  const EndNumber end = NumberAtEnd(statement);
  if (end.headSize != 0) {
    head_.assign(1, static_cast<char>(use)).append(statement, 0, end.headSize);
    if (const auto found = byHead_.find(head_); found != byHead_.end()) {
      SqliteQuery& query = MakeLatest(found->second);
      query.Statement().Bind(1, end.number);
      return query;
    }
  }
  lifted_.literals.clear();
  lifted_.text.assign(1, static_cast<char>(use));
  LiftLiterals(statement, lifted_);
  SqliteQuery* query = nullptr;
  if (const auto found = byText_.find(lifted_.text); found != byText_.end()) {
    query = &MakeLatest(found->second);
  } else {
    ++compiled_;
    std::unique_ptr<SqliteQuery> compiled;
    try {
      compiled =
          std::make_unique<SqliteQuery>(*this, std::string_view(lifted_.text).substr(1), statement, use);
    } catch (const AutomationError&) {
      if (lifted_.literals.empty()) throw;
      // With the literals in their places it either works or gives a message that shows what was written.
      // It runs once, which is not worth compiling it for taken rows too.
      passing_ = std::make_unique<SqliteQuery>(
          *this, statement, statement, use == SqliteQuery::Use::TakenRows ? SqliteQuery::Use::Rows : use);
      ++numberState_;
      return *passing_;
    }
    if (kept_.size() == kMostStatements) {
      byText_.erase(byText_.find(*kept_.back().key));
      if (kept_.back().head) byHead_.erase(byHead_.find(*kept_.back().head));
      kept_.pop_back();
    }
    kept_.push_front({nullptr, nullptr, std::move(compiled)});
    kept_.front().key = &byText_.emplace(lifted_.text, kept_.begin()).first->first;
    query = &MakeLatest(kept_.begin());
    // When the number at the end is the only literal, the next text that differs in nothing but that number
    // need not be scanned.
    if (end.headSize != 0 && lifted_.literals.size() == 1 && lifted_.text.back() == '?') {
      kept_.front().head = &byHead_.emplace(head_, kept_.begin()).first->first;
    }
  }
  int parameter = 0;
  for (const Literal& literal : lifted_.literals) query->Statement().Bind(++parameter, literal);
  return *query;
}

SqliteQuery& SqliteDatabase::MakeLatest(KeptList::iterator kept) {
  if (kept != kept_.begin()) kept_.splice(kept_.begin(), kept_, kept);
  SqliteQuery& query = *kept->query;
  if (query.Writes()) ++numberState_;
  return query;
}

bool SqliteDatabase::RunOnRow(SqliteStatement& statement) {
  const int before = sqlite3_total_changes(handle_);
  statement.Run();
  // A trigger may have changed more, and have added rows.
  if (sqlite3_total_changes(handle_) - before > 1) ++numberState_;
  return sqlite3_changes(handle_) != 0;
}

std::int64_t SqliteDatabase::LastRowId() const { return sqlite3_last_insert_rowid(handle_); }

Long SqliteDatabase::NextNumber(const SqliteTable& table) {
  RowNumbers& numbers = *table.numbers;
  // Within a transaction nobody else numbers rows, so reading once is enough.
  if (!inTransaction_ || numbers.readAt != numberState_) {
    if (!lastNumberStatement_) {
      lastNumberStatement_ =
          std::make_unique<SqliteStatement>(*this, "SELECT seq FROM sqlite_sequence WHERE name=?");
    }
    const Literal name = table.name;
    lastNumberStatement_->Bind(1, name);
    if (lastNumberStatement_->Step()) {
      numbers.last = std::max(numbers.last, lastNumberStatement_->Integer(0));
      lastNumberStatement_->Reset();
    }
    numbers.readAt = numberState_;
  }
  if (numbers.last >= std::numeric_limits<Long>::max()) {
    throw AutomationError(ErrorNumber::Overflow,
                          "overflow: table " + table.name + " has no number left for a new row");
  }
  return static_cast<Long>(++numbers.last);
}

void SqliteDatabase::BeginTrans() {
  Handle();
  if (inTransaction_ || !sqlite3_get_autocommit(handle_)) {
    throw AutomationError(ErrorNumber::NotAllowedInThisState, "a transaction is already open");
  }
  // Taking the write lock now, not at the first change, keeps a transaction from failing halfway because of
  // another connection.
  Run(readOnly_ ? "BEGIN" : "BEGIN IMMEDIATE");
  inTransaction_ = true;
  ++numberState_;
}

void SqliteDatabase::CommitTrans() {
  Handle();
  if (!inTransaction_) throw AutomationError(ErrorNumber::NotAllowedInThisState, "no transaction is open");
  RequireUsable("COMMIT");
  Run("COMMIT");
  inTransaction_ = false;
}

void SqliteDatabase::RollbackTrans() {
  Handle();
  if (!inTransaction_) throw AutomationError(ErrorNumber::NotAllowedInThisState, "no transaction is open");
  if (!sqlite3_get_autocommit(handle_)) Run("ROLLBACK");
  inTransaction_ = false;
}

void SqliteDatabase::Close() {
  if (!handle_) return;
  passing_.reset();
  lastNumberStatement_.reset();
  byText_.clear();
  kept_.clear();
  // Statements that recordsets still hold.
  while (sqlite3_stmt* statement = sqlite3_next_stmt(handle_, nullptr)) sqlite3_finalize(statement);
  sqlite3_close(handle_);
  handle_ = nullptr;
  inTransaction_ = false;
}

}  // namespace quenzel7::ado
