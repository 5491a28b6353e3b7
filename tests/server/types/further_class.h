#pragma once

#include "platform/automation/member.h"
#include "server/types/class_table.h"
#include "shapes/rectangle.h"

namespace quenzel7::server::test {

enum class Weather : Long { Fine = 1, Foul = -2 };

}  // namespace quenzel7::server::test

namespace quenzel7::automation {

template <>
struct EnumInfoOf<server::test::Weather> {
  static constexpr EnumMember kMembers[] = {{"eWE_Fine", 1}, {"eWE_Foul", -2}};
  static constexpr EnumInfo value{"enWeather", kMembers};
};

}  // namespace quenzel7::automation

namespace quenzel7::server::test {

/// A class as those above the library bring, with members of every kind.
class Station final : public automation::Object {
 public:
  static constexpr std::string_view kClassName = "Station";

  static const automation::ClassInfo& ClassOf();
  const automation::ClassInfo& Class() const override { return ClassOf(); }

  Long Height() const { return height_; }
  void Height(Long height) { height_ = height; }
  Weather Now() const { return Weather::Fine; }
  std::vector<Byte> Chart() const { return {}; }
  void Owner(const automation::ObjectRef&) {}
  automation::Variant Of(const std::string&) const { return {}; }
  automation::ObjectRef NewEnum() const { return nullptr; }
  void Measure(Weather, Long&, const std::shared_ptr<clsRectangle>&, const automation::Variant&, Long) {}

 private:
  Long height_ = 0;
};

constexpr automation::Member LastTwoOptional(automation::Member member, std::optional<Long> second) {
  member.optional = 2;
  member.defaults = {std::nullopt, second};
  return member;
}

inline constexpr automation::Member kStationMembers[] = {
    automation::WriterAfterNext(
        automation::Property<Long>("Height", "In metres.", AUTOMATION_GETTER(Station, Height),
                                   AUTOMATION_SETTER(Station, Long, Height), automation::Mark::Identity)),
    automation::Property<Weather>("Now", "Fine | foul.", AUTOMATION_GETTER(Station, Now), nullptr,
                                  automation::Mark::NotStored),
    automation::Property<std::vector<Byte>>("Chart", "A picture.", AUTOMATION_GETTER(Station, Chart), nullptr,
                                            automation::Mark::NotCarried),
    automation::WriterFirst(automation::WithGetter(
        automation::PutRefProperty<automation::Object>(
            "Owner", "Whose it is.", AUTOMATION_SETTER(Station, automation::ObjectRef, Owner)),
        [](automation::Object&) { return automation::Variant(); })),
    automation::AsValue(automation::Method<Station, &Station::Of>("Of", "A reading.", "name")),
    automation::AsEnumerator(automation::Property<automation::Object>("_NewEnum", "All readings.",
                                                                      AUTOMATION_GETTER(Station, NewEnum),
                                                                      nullptr, automation::Mark::Transient)),
    LastTwoOptional(automation::Method<Station, &Station::Measure>("Measure", "Measures.",
                                                                   "sky, result, frame, unit, times"),
                    7),
};

inline const automation::ClassInfo& Station::ClassOf() {
  static const automation::Interface interface("_Station", kStationMembers);
  static const automation::Interface* const interfaces[] = {&interface, &ItfHmiElement::InterfaceOf()};
  static const automation::ClassInfo info{
      kClassName, interfaces, []() -> automation::ObjectRef { return std::make_shared<Station>(); }};
  return info;
}

/// Station alone.
inline Classes FurtherClasses() {
  static const automation::ClassInfo* const classes[] = {&Station::ClassOf()};
  return classes;
}

}  // namespace quenzel7::server::test
