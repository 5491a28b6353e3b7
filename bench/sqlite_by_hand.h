#pragma once

#include <sqlite3.h>
#include <stdlib.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace quenzel7::bench {

/// The columns that a rectangle reads from its row, in its order; what loading by hand reads.
inline constexpr std::string_view kColumnsRead[] = {"ID",
                                                    "GroupID",
                                                    "Xs",
                                                    "Ys",
                                                    "Dx",
                                                    "Dy",
                                                    "ColorBack",
                                                    "ColorFore",
                                                    "ColorBackTouch",
                                                    "ColorForeTouch",
                                                    "ColorHatch",
                                                    "PenStyle",
                                                    "PenWidth",
                                                    "HatchStyle",
                                                    "TouchOprndAddr",
                                                    "VisibleOpAddr",
                                                    "OrderIndex"};

/// A fresh folder that goes with the object.
class Folder {
 public:
  Folder() {
    std::string name = (std::filesystem::temp_directory_path() / "quenzel7-bench-XXXXXX").string();
    if (!mkdtemp(name.data())) throw std::runtime_error("no temporary folder can be made");
    path_ = name;
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder() { std::filesystem::remove_all(path_); }

  std::string File(const std::string& name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

/// The engine's own interface, as a program that uses no layer would hold it, opened as the layer opens it.
class HandDatabase {
 public:
  explicit HandDatabase(const std::string& path) {
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX;
    if (sqlite3_open_v2(path.c_str(), &handle_, flags, nullptr) != SQLITE_OK) Raise();
    Run("PRAGMA synchronous=NORMAL");
  }
  HandDatabase(const HandDatabase&) = delete;
  HandDatabase& operator=(const HandDatabase&) = delete;
  ~HandDatabase() { sqlite3_close(handle_); }

  void Run(const char* text) {
    if (sqlite3_exec(handle_, text, nullptr, nullptr, nullptr) != SQLITE_OK) Raise();
  }
  sqlite3* Handle() const { return handle_; }
  [[noreturn]] void Raise() const { throw std::runtime_error(sqlite3_errmsg(handle_)); }

 private:
  sqlite3* handle_ = nullptr;
};

/// A statement prepared once and run many times.
class HandStatement {
 public:
  HandStatement(HandDatabase& database, const std::string& text) : database_(database) {
    if (sqlite3_prepare_v2(database.Handle(), text.c_str(), -1, &statement_, nullptr) != SQLITE_OK) {
      database.Raise();
    }
  }
  HandStatement(const HandStatement&) = delete;
  HandStatement& operator=(const HandStatement&) = delete;
  ~HandStatement() { sqlite3_finalize(statement_); }

  HandStatement& Bind(int place, int value) {
    sqlite3_bind_int(statement_, place, value);
    return *this;
  }
  /// Bytes and text have to outlive the step.
  HandStatement& Bind(int place, const std::vector<unsigned char>& bytes) {
    sqlite3_bind_blob(statement_, place, bytes.data(), static_cast<int>(bytes.size()), SQLITE_STATIC);
    return *this;
  }
  HandStatement& Bind(int place, const std::string& text) {
    sqlite3_bind_text(statement_, place, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
    return *this;
  }
  /// Whether there is a row.
  bool Step() {
    const int result = sqlite3_step(statement_);
    if (result != SQLITE_ROW && result != SQLITE_DONE) database_.Raise();
    return result == SQLITE_ROW;
  }
  /// The place of a column by its name; -1 when there is none.
  int Place(std::string_view column) const {
    for (int place = 0; place < sqlite3_column_count(statement_); ++place) {
      if (sqlite3_column_name(statement_, place) == column) return place;
    }
    return -1;
  }
  std::string Text(int column) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
    return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))};
  }
  std::vector<unsigned char> Bytes(int column) {
    const auto* bytes = static_cast<const unsigned char*>(sqlite3_column_blob(statement_, column));
    return {bytes, bytes + sqlite3_column_bytes(statement_, column)};
  }
  int Int(int column) { return sqlite3_column_int(statement_, column); }
  void Reset() { sqlite3_reset(statement_); }

 private:
  HandDatabase& database_;
  sqlite3_stmt* statement_ = nullptr;
};

}  // namespace quenzel7::bench
