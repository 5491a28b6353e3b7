#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "platform/automation/class_info.h"
#include "platform/automation/variant.h"
#include "platform/corvane1/change_tracker.h"
#include "platform/corvane1/project_service.h"

namespace quenzel7::server {

/// What the embedded change tracker and the embedded project service were told of the project.
class EmbeddedChanges final : public automation::Object {
 public:
  /// Both services that the view is of.
  using Services = std::pair<std::shared_ptr<corvane1::CollectedChanges>,
                             std::shared_ptr<corvane1::CollectedProjectEvents>>;

  static constexpr std::string_view kClassName = "EmbeddedChanges";

  explicit EmbeddedChanges(Services services) : services_(std::move(services)) {}
  static const automation::ClassInfo& ClassOf();
  const automation::ClassInfo& Class() const override { return ClassOf(); }

  const Services& Service() const { return services_; }

  /// IDs of the elements that changed, in the order of their first change.
  std::vector<Long> Elements() const { return services_.first->ChangedElements(); }
  /// Numbers of the pages that changed, in the order of their first change.
  std::vector<Long> Pages() const { return services_.first->ChangedPages(); }
  /// What the project service was told, in order, each (kind, number, keypadEntry); the kind is the name of
  /// the call: ElementSaved, VarKeypad, GlobalVarKeypad, ElementDeleted, GlobalElementDeleted.
  automation::Variant Events() const;
  /// Forgets all of it.
  void Clear();

 private:
  Services services_;
};

}  // namespace quenzel7::server
