#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "platform/automation/member.h"
#include "platform/corvane1/color_service.h"
#include "platform/corvane1/settings.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/recorder.h"
#include "platform/gdi/surface.h"
#include "platform/platform.h"
#include "shapes/ellipse.h"
#include "shapes/line.h"
#include "shapes/rectangle.h"
#include "shapes/round_rect.h"
#include "tests/support/placed_shape.h"

/// What the tests of the shapes share: the classes to run over, a platform of their own, shapes at a place,
/// services that tell what they were asked.
namespace quenzel7::test {

using FilledShapeTypes = ::testing::Types<clsRectangle, clsEllipse, clsRoundRect>;
using RegionShapeTypes = ::testing::Types<clsEllipse, clsRoundRect>;
using StrokedShapeTypes = ::testing::Types<clsRectangle, clsEllipse, clsRoundRect, clsLine>;

/// Names a typed test after its class.
struct ClassNameOfShape {
  template <class Shape>
  static std::string GetName(int) {
    return std::string(Shape::kClassName);
  }
};

/// Every test has the embedded services afresh.
template <class Shape>
class ShapeTest : public ::testing::Test {
 protected:
  void SetUp() override { Platform::Current() = Platform(); }
  void TearDown() override { Platform::Current() = Platform(); }
};

/// Expects every readable member of the default interface, but the named ones, to read alike in both.
template <class Shape>
void ExpectAlike(Shape& actual, Shape& expected, const std::vector<std::string_view>& but = {}) {
  for (const automation::Member& member : Shape::ClassOf().Default().Members()) {
    if (!member.get || std::find(but.begin(), but.end(), member.name) != but.end()) continue;
    EXPECT_EQ(member.get(actual), member.get(expected)) << member.name;
  }
}

/// A shape whose four descriptors differ in place and size: (1, 2, 30, 40), (1, 2, 31, 40), (1, 2, 32, 43)
/// and (6, 2, 25, 44).
template <class Shape>
std::shared_ptr<Shape> WithFourPositions() {
  auto shape = Placed<Shape>(1, 2, 30, 40);
  shape->Stretch(1, 0, ePD_Right);
  shape->SaveLastLegalPosition();
  shape->Stretch(5, 4, ePD_LeftDown);
  shape->UpdateDisplayWithTransx();
  shape->Stretch(2, 3, ePD_DownRight);
  return shape;
}

/// Settings that give what they are told and note what they are asked, as "section/key/fallback".
class TracedSettings final : public corvane1::Settings {
 public:
  std::string GetSetting(Long section, Long key, const std::string& fallback) override {
    asked.push_back(std::to_string(section) + "/" + std::to_string(key) + "/" + fallback);
    if (answer.empty()) return fallback;
    // The last digit tells the key, the one before it the read.
    return answer + std::to_string(asked.size()) + std::to_string(key % 10);
  }
  std::vector<std::string> asked;
  std::string answer;
};

/// Colours that are told apart at a glance: number n is 0x0a0000 + n. Notes which it was asked for.
class TracedColors final : public corvane1::ColorService {
 public:
  std::uint32_t GetColor(Long colorNumber) override {
    asked.push_back(colorNumber);
    return 0x0a0000 + static_cast<std::uint32_t>(colorNumber);
  }
  std::vector<Long> asked;
};

/// The platform calls of what paints into a context, which has to leave no object behind and the context's
/// own pen and brush in place. What paints may take the recorder as well.
template <class Paint>
std::vector<std::string> CallsOfPainting(Paint paint) {
  const gdi::Surface surface(60, 60);
  const std::size_t before = gdi::LiveObjects();
  gdi::Recorder recorder;
  if constexpr (std::is_invocable_v<Paint, Long, gdi::Recorder&>) {
    paint(surface.Dc(), recorder);
  } else {
    paint(surface.Dc());
  }
  std::vector<std::string> calls = recorder.Take();
  EXPECT_EQ(gdi::LiveObjects(), before);
  EXPECT_EQ(gdi::GetCurrentObject(surface.Dc(), gdi::OBJ_PEN), gdi::GetStockObject(gdi::BLACK_PEN));
  EXPECT_EQ(gdi::GetCurrentObject(surface.Dc(), gdi::OBJ_BRUSH), gdi::GetStockObject(gdi::WHITE_BRUSH));
  return calls;
}

/// The platform calls of a drawing.
inline std::vector<std::string> CallsOfDraw(ItfHmiElement& element, bool frame = false) {
  return CallsOfPainting([&](Long dc) { element.Draw(dc, frame); });
}

}  // namespace quenzel7::test
