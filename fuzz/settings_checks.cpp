#include "fuzz/settings_checks.h"

#include <zlib.h>

#include <algorithm>
#include <string_view>

#include "platform/automation/automation_error.h"
#include "platform/automation/class_info.h"
#include "platform/gdi/gdi.h"
#include "platform/platform.h"
#include "variables/variable_classes.h"

namespace quenzel7::fuzz {
namespace {

using automation::AutomationError;
using automation::ErrorNumber;
using Bytes = std::vector<Byte>;

/// A project that has no operand.
class NoOperands final : public fennick1::OperandStore {
 public:
  std::optional<fennick1::OperandContent> Load(const fennick1::OperandKey&) override { return {}; }
  void Add(const fennick1::OperandKey&, const fennick1::OperandContent&) override {}
  void Remove(const fennick1::OperandKey&) override {}
  Long FreeAddress(Long, Long) override { return 0; }
};

std::string CheckRefusal(const AutomationError& error, const ItfVarBinaryHandler& handler,
                         const Bytes& before) {
  constexpr ErrorNumber kOfSettings[] = {
      ErrorNumber::PropertyNameNotFound, ErrorNumber::InvalidBagContents, ErrorNumber::Overflow,
      ErrorNumber::OutOfMemory,          ErrorNumber::TypeMismatch,       ErrorNumber::InvalidUseOfNull};
  if (std::find(std::begin(kOfSettings), std::end(kOfSettings), error.Code()) == std::end(kOfSettings)) {
    return "settings are refused by a number for them";
  }
  if (error.Description().empty()) return "an error says what is wrong";
  if (error.Code() == ErrorNumber::InvalidBagContents && handler.BinaryData() != before) {
    return "bytes that are no bag leave the settings alone";
  }
  return {};
}

std::string CheckTaken(ItfVarBinaryHandler& handler, const HandlerMaker& make) {
  const Bytes data = handler.BinaryData();
  const HandlerRef again = make();
  again->BinaryData(data);
  if (again->BinaryData() != data) return "settings are the same when they are read";
  if (handler.Replica()->BinaryData() != data) return "settings are the same in a replica";
  if (handler.GetBinaryDataForCRC() != again->GetBinaryDataForCRC()) {
    return "the same settings have the same change key";
  }
  return {};
}

std::string CheckNewHandler(const HandlerMaker& make, std::span<const std::uint8_t> bytes) {
  const HandlerRef handler = make();
  const Bytes before = handler->BinaryData();
  try {
    handler->BinaryData({bytes.begin(), bytes.end()});
  } catch (const AutomationError& error) {
    return CheckRefusal(error, *handler, before);
  }
  try {
    return CheckTaken(*handler, make);
  } catch (const AutomationError& error) {
    return "settings that are taken are of use: " + error.Description();
  }
}

}  // namespace

std::string CheckSettings(const HandlerMaker& make, std::span<const std::uint8_t> bytes) {
  const std::size_t before = gdi::LiveObjects();
  const std::string complaint = CheckNewHandler(make, bytes);
  if (!complaint.empty()) return complaint;
  return gdi::LiveObjects() == before ? "" : "no object is left";
}

std::vector<Byte> AsPropertyBag(std::span<const std::uint8_t> bytes) {
  constexpr std::string_view kHead = "QBag\x01";
  Bytes bag(kHead.begin(), kHead.end());
  for (const std::uint8_t byte : bytes) bag.push_back(byte);
  const auto checksum = crc32_z(0, bag.data(), bag.size());
  for (int place = 0; place < 4; ++place) bag.push_back(static_cast<Byte>(checksum >> 8 * place));
  return bag;
}

std::string CheckSettingsOfAllHandlers(std::span<const std::uint8_t> bytes) {
  Platform::Current().operands = std::make_shared<NoOperands>();
  // Texts that cannot be shown are told to nobody.
  Platform::Current().messageBoxes = std::make_shared<corvane1::CollectedMessageBoxes>(nullptr);
  const Bytes bag = AsPropertyBag(bytes);
  for (const automation::ClassInfo* info : VariableClasses()) {
    if (!info->FindInterface(ItfVarBinaryHandler::kClassName)) continue;
    const HandlerMaker make = [info] {
      return std::dynamic_pointer_cast<ItfVarBinaryHandler>(info->create());
    };
    for (const std::span<const std::uint8_t> settings : {bytes, std::span<const std::uint8_t>(bag)}) {
      const std::string complaint = CheckSettings(make, settings);
      if (!complaint.empty()) return std::string(info->name) + ": " + complaint;
    }
  }
  return {};
}

}  // namespace quenzel7::fuzz
