#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>

#include "platform/automation/array.h"
#include "platform/automation/call_by_name.h"
#include "platform/automation/convert.h"
#include "platform/platform.h"
#include "server/services/host_services.h"

namespace quenzel7::server {

/// The values of a variant as one text: "(a, 1, (True))".
inline std::string Listed(const automation::Variant& value) {
  if (value.IsEmpty()) return "Empty";
  if (value.IsNull()) return "Null";
  if (value.IsObject()) return value.Object() ? std::string(value.Object()->Class().name) : "Nothing";
  if (!value.IsArray()) return automation::To<std::string>(value);
  const automation::Array& array = value.Elements();
  std::string text;
  for (Long index = 0; index <= array.UpperBound(1); ++index) {
    text += (index == 0 ? "" : ", ") + Listed(array.At(index));
  }
  return "(" + text + ")";
}

/// The slots of a class's default interface, a line each.
inline std::string SlotsOf(const automation::ClassInfo& info) {
  std::string text;
  for (const std::string& slot : info.Default().Slots()) text += slot + "\n";
  return text;
}

/// Fresh embedded services that print nothing, reached by the names of members as hosts reach them.
class ServicesTest : public ::testing::Test {
 protected:
  ServicesTest() { Renew(); }
  ~ServicesTest() override { Platform::Current() = Platform(); }

  /// New services as embedded in the library, but silent.
  static void Renew() {
    Platform& platform = Platform::Current();
    platform = Platform();
    std::dynamic_pointer_cast<corvane1::CollectedMessageBoxes>(platform.messageBoxes)->Output(nullptr);
    std::dynamic_pointer_cast<corvane1::CollectedMessages>(platform.messageService)->Output(nullptr);
    std::dynamic_pointer_cast<corvane1::CollectedErrors>(platform.errorLog)->Output(nullptr);
    std::dynamic_pointer_cast<corvane1::CollectedHostFrame>(platform.hostFrame)->Output(nullptr);
  }

  static std::string DescribeAs(std::string_view name) { return "about \"" + std::string(name) + '"'; }

  /// A property of the services that is an object.
  automation::ObjectRef Service(std::string_view name) {
    return automation::To<automation::ObjectRef>(automation::GetByName(*services_, name));
  }
  /// What a property of such an object gives, as one text.
  std::string Told(std::string_view service, std::string_view name) {
    return Listed(automation::GetByName(*Service(service), name));
  }
  /// What a method of such an object gives, as one text.
  std::string Called(std::string_view service, std::string_view name,
                     std::initializer_list<automation::Variant> arguments = {}) {
    return Listed(automation::InvokeByName(*Service(service), name, arguments));
  }

  const std::shared_ptr<HostServices> services_ = std::make_shared<HostServices>(&DescribeAs);
};

}  // namespace quenzel7::server
