#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "platform/automation/automation_error.h"
#include "platform/automation/member.h"

namespace quenzel7::automation {

enum class Taste : Long { Sweet = 1, Sour = -2 };

inline constexpr EnumMember kTasteMembers[] = {{"eTA_Sweet", 1}, {"eTA_Sour", -2}};

template <>
struct EnumInfoOf<Taste> {
  static constexpr EnumInfo value{"enTaste", kTasteMembers};
};

/// An object to pass as an argument.
class Weight final : public Object {
 public:
  static constexpr std::string_view kClassName = "Weight";

  explicit Weight(Long weight) : grams(weight) {}
  const ClassInfo& Class() const override {
    static const Interface interface("Weight", {});
    static const Interface* const interfaces[] = {&interface};
    static const ClassInfo info{kClassName, interfaces};
    return info;
  }

  Long grams;
};

using WeightRef = std::shared_ptr<Weight>;

/// Holds what its derived class inherits.
class SampleBase : public Object {
 public:
  Long Inherited(Long a) const { return a + 1000; }
};

/// An object with a member of every kind that a table can describe.
class Sample final : public SampleBase {
 public:
  static constexpr std::string_view kClassName = "Sample";

  const ClassInfo& Class() const override;

  Long Size() const { return size_; }
  void Size(Long size) { size_ = size; }
  std::string Label() const { return label_; }
  void Label(const std::string& label) { label_ = label; }
  Taste Flavour() const { return flavour_; }
  void Flavour(Taste flavour) { flavour_ = flavour; }
  Long Serial() const { return 4711; }
  void Secret(Long secret) { size_ = secret * 2; }
  void Load(const WeightRef& load) { load_ = load; }

  Long Sum(Long a, Integer b, Byte c) { return a * 10000 + b * 100 + c; }
  void Swap(Long& a, Long& b) { std::swap(a, b); }
  bool Describe(const std::string& name, std::string& text, Byte& length) const {
    text = name + "!";
    length = static_cast<Byte>(text.size());
    return text.size() > 3;
  }
  Long Grow(Long by, Long times) { return size_ += by * times; }
  std::string KindOf(const Variant& value) const { return KindName(value.Kind()); }
  void Stamp(Variant& value) {
    seen_ = &value;
    value = "stamped";
  }
  void Advance(Long& at, Long by) { at += by; }
  Long Weigh(Weight& first, const Weight& second) { return ++first.grams * 100 + second.grams; }
  WeightRef Heavier(const WeightRef& weight) const {
    return weight ? std::make_shared<Weight>(weight->grams + 1) : nullptr;
  }
  ObjectRef Same(ObjectRef object) const { return object; }
  bool Not(bool value) const { return !value; }
  Byte NextByte(Byte value) const { return static_cast<Byte>(value + 1); }
  Integer NextInteger(Integer value) const { return static_cast<Integer>(value + 1); }
  Single Half(Single value) const { return value / 2; }
  Double Third(Double value) const { return value / 3; }
  Currency Cent(Currency value) const { return Currency{value.tenThousandths + 100}; }
  std::vector<Byte> Reversed(std::vector<Byte> bytes) const {
    std::reverse(bytes.begin(), bytes.end());
    return bytes;
  }
  Variant Echo(Variant value) const { return value; }
  Taste Opposite(Taste taste) const { return taste == Taste::Sweet ? Taste::Sour : Taste::Sweet; }
  void Fail(Long& value) {
    value = 99;
    throw AutomationError(ErrorNumber::InvalidProcedureCall, "failed on purpose", "Sample");
  }

  const Variant* Seen() const { return seen_; }
  const WeightRef& Loaded() const { return load_; }

 private:
  Long size_ = 1;
  std::string label_;
  Taste flavour_ = Taste::Sweet;
  WeightRef load_;
  const Variant* seen_ = nullptr;
};

constexpr Member LastTwoOptional(Member member, std::optional<Long> first, std::optional<Long> second) {
  member.optional = 2;
  member.defaults = {first, second};
  return member;
}

inline constexpr Member kSampleMembers[] = {
    Property<Long>("Size", "How big.", AUTOMATION_GETTER(Sample, Size),
                   AUTOMATION_SETTER(Sample, Long, Size)),
    WriterFirst(Property<std::string>("Label", "What it says.", AUTOMATION_GETTER(Sample, Label),
                                      AUTOMATION_SETTER(Sample, std::string, Label), Mark::Identity)),
    Property<Taste>("Flavour", "How it tastes.", AUTOMATION_GETTER(Sample, Flavour),
                    AUTOMATION_SETTER(Sample, Taste, Flavour)),
    Property<Long>("Serial", "Its number.", AUTOMATION_GETTER(Sample, Serial), nullptr, Mark::NotStored),
    Property<Long>("Secret", "Is told.", nullptr, AUTOMATION_SETTER(Sample, Long, Secret)),
    PutRefProperty<Weight>("Load", "What it carries.", AUTOMATION_SETTER(Sample, WeightRef, Load)),
    Method<Sample, &Sample::Sum>("Sum", "Three numbers in one.", "a, b, c"),
    Method<Sample, &Sample::Swap>("Swap", "Exchanges.", "a, b"),
    Method<Sample, &Sample::Describe>("Describe", "Writes back."),
    LastTwoOptional(Method<Sample, &Sample::Grow>("Grow", "Grows.", "by, times"), 3, 2),
    LastOptional(Method<Sample, &Sample::KindOf>("KindOf", "Tells a kind.")),
    Method<Sample, &Sample::Stamp>("Stamp", "Overwrites."),
    LastOptional(Method<Sample, &Sample::Advance>("Advance", "Moves on."), 7),
    Method<Sample, &Sample::Weigh>("Weigh", "Weighs two."),
    Method<Sample, &Sample::Heavier>("Heavier", "A heavier one."),
    Method<Sample, &Sample::Same>("Same", "The object."),
    Method<Sample, &Sample::Not>("Not", "The opposite."),
    Method<Sample, &Sample::NextByte>("NextByte", ""),
    Method<Sample, &Sample::NextInteger>("NextInteger", ""),
    Method<Sample, &Sample::Half>("Half", ""),
    Method<Sample, &Sample::Third>("Third", ""),
    Method<Sample, &Sample::Cent>("Cent", ""),
    Method<Sample, &Sample::Reversed>("Reversed", ""),
    Method<Sample, &Sample::Echo>("Echo", ""),
    Method<Sample, &Sample::Opposite>("Opposite", ""),
    Method<Sample, &Sample::Fail>("Fail", ""),
    Method<Sample, &Sample::Inherited>("Inherited", "From the base."),
};

/// A second interface, on which Size is another member.
inline constexpr Member kSampleShortMembers[] = {
    Property<Long>("Size", "Its number.", AUTOMATION_GETTER(Sample, Serial), nullptr),
};

inline const Interface kSampleInterface("_Sample", kSampleMembers);
inline const Interface kSampleShortInterface("SampleShort", kSampleShortMembers);

inline const ClassInfo& Sample::Class() const {
  static const Interface* const interfaces[] = {&kSampleInterface, &kSampleShortInterface};
  static const ClassInfo info{kClassName, interfaces,
                              []() -> ObjectRef { return std::make_shared<Sample>(); }};
  return info;
}

}  // namespace quenzel7::automation
