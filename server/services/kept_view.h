#pragma once

#include <memory>
#include <utility>

namespace quenzel7::server {

/// The view that was given last: hosts get the same object while the service behind it is the same.
template <class View>
class KeptView {
 public:
  /// The view of the service.
  template <class Service>
  std::shared_ptr<View> Of(const Service& service) {
    if (!view_ || view_->Service() != service) view_ = std::make_shared<View>(service);
    return view_;
  }
  /// Takes a view as the one that was given last.
  void Keep(std::shared_ptr<View> view) { view_ = std::move(view); }
  /// Lets go of the view.
  void Forget() { view_.reset(); }
  /// The view that was given last, or none.
  const std::shared_ptr<View>& Last() const { return view_; }

 private:
  std::shared_ptr<View> view_;
};

}  // namespace quenzel7::server
