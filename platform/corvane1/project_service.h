#pragma once

#include <functional>
#include <vector>

#include "platform/automation/object.h"
#include "platform/automation/types.h"

namespace quenzel7::corvane1 {

/// What the host's project wants to know of variables, beside the changes that the change tracker is told.
class ProjectService {
 public:
  virtual ~ProjectService() = default;

  /// The row of the element of that ID was written.
  virtual void NotifyElementSaved(Long elementId) = 0;
  /// The variable of that ID, which shows no global variable, is being saved: whether its value is entered by
  /// the panel's keys.
  virtual void NotifyVarKeypad(Long elementId, bool keypadEntry) = 0;
  /// The same of a variable that shows the global variable of that number.
  virtual void NotifyGlobalVarKeypad(Long globalVarId, bool keypadEntry) = 0;
  /// The row of the element of that ID was deleted.
  virtual void NotifyElementDeleted(Integer elementId) = 0;
  /// That was an element that shows a global variable: this one, which is still as it was; none for one that
  /// nobody holds by a reference.
  virtual void NotifyGlobalElementDeleted(const automation::ObjectRef& element) = 0;
  /// The size in bytes that the element of that ID takes in the panel.
  virtual Long ElementSize(Long elementId) = 0;
};

/// What a project service was told, by the name of the call.
enum class ProjectEventKind : Byte {
  ElementSaved,
  VarKeypad,
  GlobalVarKeypad,
  ElementDeleted,
  GlobalElementDeleted,
};

/// A call as it came.
struct ProjectEvent {
  ProjectEventKind kind = ProjectEventKind::ElementSaved;
  /// The ID of the element; the number of the global variable where the kind speaks of one.
  Long number = 0;
  /// Whether the value is entered by the panel's keys; false where nothing is told of it.
  bool keypadEntry = false;

  friend bool operator==(const ProjectEvent&, const ProjectEvent&) = default;
};

/// The embedded default: keeps all that it is told, until the host has seen to it. It holds no element.
class CollectedProjectEvents final : public ProjectService {
 public:
  /// How large an element of that ID is.
  using SizeOfElement = std::function<Long(Long elementId)>;

  /// Elements are measured by the function; without one, sizes are error 91.
  explicit CollectedProjectEvents(SizeOfElement sizeOfElement = nullptr);

  void NotifyElementSaved(Long elementId) override;
  void NotifyVarKeypad(Long elementId, bool keypadEntry) override;
  void NotifyGlobalVarKeypad(Long globalVarId, bool keypadEntry) override;
  void NotifyElementDeleted(Integer elementId) override;
  /// Keeps the element's `GlobalVarID`, read by name; 0 for one that has none, and for no element.
  void NotifyGlobalElementDeleted(const automation::ObjectRef& element) override;
  Long ElementSize(Long elementId) override;

  /// What was told, in order.
  const std::vector<ProjectEvent>& Events() const { return events_; }
  /// Forgets all of it.
  void Clear() { events_.clear(); }

 private:
  SizeOfElement sizeOfElement_;
  std::vector<ProjectEvent> events_;
};

}  // namespace quenzel7::corvane1
