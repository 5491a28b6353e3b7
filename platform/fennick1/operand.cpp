#include "platform/fennick1/operand.h"

#include <utility>

#include "platform/automation/automation_error.h"
#include "platform/automation/member.h"
#include "platform/fennick1/operand_types.h"

namespace quenzel7::fennick1 {
namespace {

using automation::Member;
using automation::Method;
using automation::Object;
using automation::Property;
using automation::PropertyBag;
using automation::PropertyBagRef;
using automation::To;
using automation::Variant;

constexpr const char* kType = "Type";
constexpr const char* kAddress = "Address";
constexpr const char* kNetwork = "NetID";
constexpr const char* kComment = "Comment";
constexpr const char* kValue = "Value";

/// The entry of an object property that is written by reference.
constexpr Member ByReference(Member member) {
  member.putRef = member.put;
  member.put = nullptr;
  return member;
}

constexpr Member kMembers[] = {
    Property<Long>("OperandType", "Number of the operand's type; 0 means none.",
                   AUTOMATION_GETTER(Operand, OperandType), AUTOMATION_SETTER(Operand, Long, OperandType)),
    Property<Long>("OperandAddress", "Address within the type.", AUTOMATION_GETTER(Operand, OperandAddress),
                   AUTOMATION_SETTER(Operand, Long, OperandAddress)),
    Property<Long>("OperandNetID", "Number of the network; 0 is the controller's own.", nullptr,
                   AUTOMATION_SETTER(Operand, Long, OperandNetID)),
    Property<std::string>("OperandComment", "A text of the user's.", nullptr,
                          AUTOMATION_SETTER(Operand, std::string, OperandComment)),
    Property<Currency>("OperandValue", "The value, for the types that hold one.",
                       AUTOMATION_GETTER(Operand, OperandValue),
                       AUTOMATION_SETTER(Operand, Currency, OperandValue)),
    Property<bool>("IsDefined", "Whether the project has this operand.",
                   AUTOMATION_GETTER(Operand, IsDefined), nullptr),
    ByReference(Property<PropertyBagRef>("PropBag", "The whole operand as a property bag.",
                                         AUTOMATION_GETTER(Operand, PropBag),
                                         AUTOMATION_SETTER(Operand, PropertyBagRef, PropBag))),
    Property<std::string>("OperandText", "The operand as reports show it.",
                          AUTOMATION_GETTER(Operand, OperandText), nullptr),
    Method<Operand, &Operand::AddToProject>("AddToProject", "Enters the operand in the project."),
    Method<Operand, &Operand::RemoveFromProject>("RemoveFromProject",
                                                 "Takes the operand out of the project."),
    Method<Operand, &Operand::GetFreeAddress>("GetFreeAddress", "The next free address of the type."),
};

}  // namespace

Operand::Operand(std::shared_ptr<OperandStore> store) : store_(std::move(store)) {}

const automation::ClassInfo& Operand::ClassOf() {
  static const automation::Interface interface("Operand", kMembers);
  static const automation::Interface* const interfaces[] = {&interface};
  static const automation::ClassInfo info{kClassName, interfaces, nullptr};
  return info;
}

OperandContent Operand::Content() const {
  if (comment_ && value_) return {*comment_, *value_};
  OperandContent content =
      (found_ && foundKey_ == key_ ? *found_ : store_->Load(key_)).value_or(OperandContent{});
  if (comment_) content.comment = *comment_;
  if (value_) content.value = *value_;
  return content;
}

PropertyBagRef Operand::PropBag() const {
  const OperandContent content = Content();
  auto bag = std::make_shared<PropertyBag>();
  bag->WriteProperty(kType, key_.type);
  bag->WriteProperty(kAddress, key_.address);
  bag->WriteProperty(kNetwork, key_.network);
  bag->WriteProperty(kComment, content.comment);
  bag->WriteProperty(kValue, content.value);
  return bag;
}

void Operand::PropBag(const PropertyBagRef& bag) {
  if (!bag)
    throw automation::AutomationError(automation::ErrorNumber::ObjectNotSet, "there is no property bag");
  const OperandKey key{To<Long>(bag->ReadProperty(kType)), To<Long>(bag->ReadProperty(kAddress)),
                       To<Long>(bag->ReadProperty(kNetwork))};
  auto comment = To<std::string>(bag->ReadProperty(kComment));
  const auto value = To<Currency>(bag->ReadProperty(kValue));
  key_ = key;
  comment_ = std::move(comment);
  value_ = value;
}

std::string Operand::OperandText() const {
  return fennick1::OperandText(key_.type, key_.address, key_.network, Content().value);
}

bool Operand::IsDefined() const {
  found_ = store_->Load(key_);
  foundKey_ = key_;
  return found_->has_value();
}

void Operand::AddToProject() {
  store_->Add(key_, Content());
  found_.reset();
}

void Operand::RemoveFromProject() {
  store_->Remove(key_);
  found_.reset();
}

Long Operand::GetFreeAddress() { return store_->FreeAddress(key_.type, key_.network); }

}  // namespace quenzel7::fennick1
