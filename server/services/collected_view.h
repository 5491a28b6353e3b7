#pragma once

#include <iostream>

#include "platform/automation/member.h"
#include "platform/automation/types.h"
#include "server/services/service_view.h"

namespace quenzel7::server {

/// What hosts see of an embedded service that collects what it is told.
template <class Collecting>
class CollectedView : public ServiceView<Collecting> {
 public:
  using Embedded = Collecting;

  using ServiceView<Collecting>::ServiceView;

  /// Forgets what was collected.
  void Clear() { this->Service()->Clear(); }
  /// Whether all that comes is printed as a line too; on standard error, when that is switched on here.
  bool Printed() const { return this->Service()->IsPrinted(); }
  void Printed(bool printed) { this->Service()->Output(printed ? &std::cerr : nullptr); }
};

/// The same of one that asks the user.
template <class Collecting>
class QuestionsView : public CollectedView<Collecting> {
 public:
  using CollectedView<Collecting>::CollectedView;

  /// What every question is answered.
  Long Answer() const { return this->Service()->Answer(); }
  void Answer(Long answer) { this->Service()->Answer(answer); }
};

/// The entries of their members.
template <class View>
constexpr automation::Member ClearMember() {
  return automation::Method<View, &View::Clear>("Clear", "Forgets what was collected.");
}
template <class View>
constexpr automation::Member PrintedMember() {
  return automation::Property<bool>("Printed", "Whether each comes as a line on standard error too.",
                                    AUTOMATION_GETTER(View, Printed), AUTOMATION_SETTER(View, bool, Printed));
}
template <class View>
constexpr automation::Member AnswerMember() {
  return automation::Property<Long>("Answer", "What every question is answered: 1 OK, 6 yes, 7 no.",
                                    AUTOMATION_GETTER(View, Answer), AUTOMATION_SETTER(View, Long, Answer));
}

}  // namespace quenzel7::server
