#pragma once

#include <sqlite3.h>

#include <functional>
#include <string>
#include <utility>

namespace quenzel7::ado {

/// Lets a test act at the very moment when somebody else's connection begins a statement, before it takes the
/// locks that the statement needs. One at a time; watches the connections that are opened while it lives.
class AtStatement {
 public:
  /// Acts once, when the statement of that text begins for the time `occurrence`, counted from 1.
  AtStatement(std::string text, int occurrence, std::function<void()> action)
      : text_(std::move(text)), remaining_(occurrence), action_(std::move(action)) {
    current_ = this;
    sqlite3_auto_extension(Extension());
  }
  AtStatement(const AtStatement&) = delete;
  AtStatement& operator=(const AtStatement&) = delete;
  ~AtStatement() {
    sqlite3_cancel_auto_extension(Extension());
    current_ = nullptr;
  }

  /// Whether it acted.
  bool Acted() const { return remaining_ <= 0; }

 private:
  static void (*Extension())() { return reinterpret_cast<void (*)()>(&Watch); }
  static int Watch(sqlite3* database, char**, const void*) {
    return sqlite3_trace_v2(database, SQLITE_TRACE_STMT, &Begun, nullptr);
  }
  static int Begun(unsigned, void*, void*, void* text) {
    if (current_ && current_->text_ == static_cast<const char*>(text) && --current_->remaining_ == 0) {
      current_->action_();
    }
    return 0;
  }

  static inline AtStatement* current_ = nullptr;
  std::string text_;
  int remaining_;
  std::function<void()> action_;
};

}  // namespace quenzel7::ado
