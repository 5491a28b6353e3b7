#pragma once

#include <memory>
#include <string>

#include "platform/corvane1/project_file.h"
#include "platform/platform.h"

namespace quenzel7::bench {

/// A new project with a page open in it, and the services of a host that has just started.
class OpenPage {
 public:
  static constexpr Long kNumber = 1;

  explicit OpenPage(const std::string& path) {
    Platform::Current() = Platform();
    const auto values = std::make_shared<corvane1::HeldGlobalValues>();
    values->Set(corvane1::kOpenPageValue, kNumber);
    Platform::Current().globalValues = values;
    connection_ = corvane1::OpenProject(path, corvane1::ProjectMode::Create);
    Platform::Current().heldProject->Hold(connection_);
  }
  OpenPage(const OpenPage&) = delete;
  OpenPage& operator=(const OpenPage&) = delete;
  ~OpenPage() {
    Platform::Current() = Platform();
    connection_->Close();
  }

  ado::Connection& Connection() const { return *connection_; }

 private:
  ado::ConnectionRef connection_;
};

}  // namespace quenzel7::bench
