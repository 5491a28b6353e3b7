#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "framework/operands.h"
#include "platform/automation/property_bag.h"
#include "platform/fennick1/operand.h"
#include "tests/support/project_fixture.h"
#include "tests/support/saved_shape.h"
#include "tests/support/text_fixture.h"
#include "variables/binary_handler.h"
#include "variables/variable_classes.h"

/// What the tests of handlers share: the classes, their settings as names and values, and handlers in a
/// project.
namespace quenzel7::test {

using Bytes = std::vector<Byte>;

/// All classes that implement the handler contract.
inline std::vector<const automation::ClassInfo*> HandlerClasses() {
  std::vector<const automation::ClassInfo*> classes;
  for (const automation::ClassInfo* info : VariableClasses()) {
    if (info->FindInterface(ItfVarBinaryHandler::kClassName)) classes.push_back(info);
  }
  return classes;
}

/// A new handler of a class.
inline std::shared_ptr<BinaryHandler> NewHandlerOf(const automation::ClassInfo& info) {
  return std::dynamic_pointer_cast<BinaryHandler>(info.create());
}

/// The class of a name.
inline const automation::ClassInfo& HandlerClassNamed(std::string_view name) {
  for (const automation::ClassInfo* info : HandlerClasses()) {
    if (info->name == name) return *info;
  }
  throw std::runtime_error("no handlers of class " + std::string(name));
}

/// One setting: its name, and its value in its kind.
using Setting = std::pair<std::string, automation::Variant>;
using SettingList = std::vector<Setting>;

/// What the bytes of a property bag hold, in order.
inline SettingList SettingsIn(const Bytes& data) {
  automation::PropertyBag bag;
  bag.Contents(data);
  SettingList settings;
  for (const std::string& name : bag.Names()) settings.emplace_back(name, bag.ReadProperty(name));
  return settings;
}

/// The bytes of a property bag that holds them.
inline Bytes DataOf(const SettingList& settings) {
  automation::PropertyBag bag;
  for (const auto& [name, value] : settings) bag.WriteProperty(name, value);
  return bag.Contents();
}

/// Readable in messages: "Name=value:Kind", one after the other.
inline CallLog Lines(const SettingList& settings) {
  CallLog lines;
  for (const auto& [name, value] : settings) lines.push_back(name + "=" + Shown(value));
  return lines;
}

/// The value under a name; error 327 when there is none.
inline automation::Variant ValueIn(const Bytes& data, const std::string& name) {
  automation::PropertyBag bag;
  bag.Contents(data);
  return bag.ReadProperty(name);
}

/// The number of the key for each colour of a new element, so that none is taken for another; the fall-back
/// for everything else.
class KeyNumbers final : public corvane1::Settings {
 public:
  std::string GetSetting(Long, Long key, const std::string& fallback) override {
    const bool isColor = key == 6020 || key == 6021 || key >= 6060;
    return isColor ? std::to_string(key) : fallback;
  }
};

/// The operands of another store, and a host that does something of its own whenever one is looked for or
/// entered.
class InterruptedStore final : public fennick1::OperandStore {
 public:
  InterruptedStore(std::shared_ptr<fennick1::OperandStore> inner, std::function<void()> during)
      : inner_(std::move(inner)), during_(std::move(during)) {}
  std::optional<fennick1::OperandContent> Load(const fennick1::OperandKey& key) override {
    during_();
    return inner_->Load(key);
  }
  void Add(const fennick1::OperandKey& key, const fennick1::OperandContent& content) override {
    during_();
    inner_->Add(key, content);
  }
  void Remove(const fennick1::OperandKey& key) override { inner_->Remove(key); }
  Long FreeAddress(Long type, Long network) override { return inner_->FreeAddress(type, network); }

 private:
  std::shared_ptr<fennick1::OperandStore> inner_;
  std::function<void()> during_;
};

/// Handlers in a project file on disk, with the counting services.
class HandlerTest : public ProjectTest {
 protected:
  void SetUp() override {
    ProjectTest::SetUp();
    services_.Install();
  }

  /// Colours of new elements are the numbers of their keys from now on.
  static void TellKeyNumbers() { Platform::Current().settings = std::make_shared<KeyNumbers>(); }

  /// What happens to operands is noted from now on with what is asked of the project.
  void NoteOperands() {
    Platform::Current().operands = std::make_shared<NotingStore>(Platform::Current().operands, Recorder());
  }

  /// Lets the host do that from now on whenever an operand is looked for or entered.
  static void WhileOperandsAreAsked(std::function<void()> during) {
    Platform::Current().operands =
        std::make_shared<InterruptedStore>(Platform::Current().operands, std::move(during));
  }

  /// Enters an operand in the project; the value is in ten-thousandths.
  static void Define(Long type, Long address, std::int64_t tenThousandths = 0) {
    fennick1::Operand operand(Platform::Current().operands);
    operand.OperandType(type);
    operand.OperandAddress(address);
    operand.OperandValue(Currency{tenThousandths});
    operand.AddToProject();
  }
  static bool IsDefined(Long type, Long address) {
    return Platform::Current().operands->IsDefined({type, address, kLocalNetwork});
  }

  /// The statement that enters an operand of a variable's settings.
  static std::string RowOf(Long element, Long type, Long address) {
    return "execute INSERT INTO HMI_Operands (ElementID,OprndType,OprndAddr,OprndNetID,OprndPurpose) VALUES "
           "(" +
           std::to_string(element) + "," + std::to_string(type) + "," + std::to_string(address) + ",0,3)";
  }

  CountingServices services_;
};

}  // namespace quenzel7::test
