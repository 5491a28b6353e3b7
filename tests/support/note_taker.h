#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/automation/array.h"
#include "platform/automation/class_info.h"
#include "platform/automation/collection.h"
#include "platform/automation/convert.h"
#include "platform/automation/object.h"
#include "platform/automation/types.h"
#include "platform/automation/variant.h"

/// What doubles share that note how they are called.
namespace quenzel7::test {

/// How an argument stands in a note.
inline std::string Told(bool value) { return value ? "True" : "False"; }
inline std::string Told(Long value) { return std::to_string(value); }
inline std::string Told(const std::string& text) { return '"' + text + '"'; }
inline std::string Told(const automation::Object& object) { return std::string(object.Class().name); }
inline std::string Told(const automation::CollectionRef& items) {
  return items ? std::to_string(items->Count()) + " items" : "no collection";
}
inline std::string Told(const std::vector<Byte>& bytes) { return std::to_string(bytes.size()) + " bytes"; }
inline std::string Told(const automation::Variant& value) {
  if (!value.IsArray()) return automation::To<std::string>(value);
  const automation::Array& array = value.Elements();
  if (array.Dimensions() == 2) return "map";
  std::string cells;
  for (Long index = array.LowerBound(1); index <= array.UpperBound(1); ++index) {
    cells += (cells.empty() ? "" : " ") + automation::To<std::string>(array.At(index));
  }
  return '[' + cells + ']';
}

/// Notes what it is asked under a name of its own: "name.Move(3, 4)", "name.GroupID=5", "name.IsTouchable?".
class NoteTaker {
 public:
  using Notes = std::function<void(const std::string&)>;

  NoteTaker(std::string name, Notes notes) : name_(std::move(name)), notes_(std::move(notes)) {}

  const std::string& Name() const { return name_; }
  const Notes& Log() const { return notes_; }

  /// Runs in every call after it was noted, with the name of what is asked; may raise.
  std::function<void(const std::string& asked)> during;

 protected:
  ~NoteTaker() = default;

  void Note(const std::string& asked, const std::string& arguments) const {
    notes_(name_ + '.' + asked + arguments);
    if (during) during(asked);
  }

  /// Notes a call with the arguments that it is then called with itself.
  auto NoteCall(const char* asked) const {
    return [this, asked](const auto&... arguments) {
      std::string list;
      ((list += (list.empty() ? "" : ", ") + Told(arguments)), ...);
      Note(asked, '(' + list + ')');
    };
  }

 private:
  std::string name_;
  Notes notes_;
};

}  // namespace quenzel7::test
