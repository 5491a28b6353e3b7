#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tests/support/handler_double.h"
#include "tests/support/project_fixture.h"
#include "tests/support/saved_shape.h"
#include "variables/var_element.h"

/// What the tests of variables share: variables with doubles for handlers, and types by number.
namespace quenzel7::test {

/// The type of that number.
constexpr enVarType TypeOf(Long number) { return static_cast<enVarType>(number); }

/// Variables in a project file on disk, whose handlers and drawing elements note what they are told in the
/// log of the connection.
class VariableTest : public SavedShape<clsVar> {
 protected:
  void SetUp() override {
    SavedShape::SetUp();
    element_ = NewDrawing(kTextElement);
    handler_ = NewHandlerDouble();
  }

  NoteTaker::Notes Notes() {
    return [this](const std::string& note) {
      if (painting_) {
        painting_->Add(note);
      } else {
        Recorder().Note(note);
      }
    };
  }
  std::shared_ptr<DrawnDouble> NewDrawing(Long elementType) {
    return std::make_shared<DrawnDouble>(elementType, Notes());
  }
  std::shared_ptr<HandlerDouble> NewHandlerDouble(const std::string& name = "handler") {
    return std::make_shared<HandlerDouble>(name, Notes(), element_);
  }

  /// A variable of the type with a new double, at (10, 20), 30 by 40, in row 5. Nothing of that is in the
  /// log.
  std::shared_ptr<clsVar> Of(Long type) {
    handler_ = NewHandlerDouble();
    auto variable = Placed<clsVar>(10, 20, 30, 40);
    variable->SetBinaryHandler(TypeOf(type), handler_);
    variable->VarType(TypeOf(type));
    variable->ID(5);
    TakeLog();
    return variable;
  }

  /// What is noted, but for what is only read.
  CallLog TakeChanges() {
    CallLog log = TakeLog();
    std::erase_if(log, [](const std::string& note) { return note.ends_with('?'); });
    return log;
  }

  /// Where notes go instead while something is painted, among the calls of the graphics interface.
  gdi::Recorder* painting_ = nullptr;
  std::shared_ptr<DrawnDouble> element_;
  std::shared_ptr<HandlerDouble> handler_;
};

}  // namespace quenzel7::test
