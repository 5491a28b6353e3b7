/// What holds of every drag of a pick-up, over random shapes and paths of the mouse. A drag is the sequence
/// of calls that elements are built for: the position is kept when it begins; each step stretches by the
/// total movement, is judged, and is taken over or not; the last legal position stays when it ends.
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <memory>
#include <vector>

#include "platform/automation/array.h"
#include "platform/platform.h"
#include "shapes/ellipse.h"
#include "shapes/line.h"
#include "shapes/rectangle.h"
#include "shapes/round_rect.h"
#include "tests/support/placed_shape.h"

namespace quenzel7 {
namespace {

using test::DescriptorOf;

constexpr Long kW = 60;
constexpr Long kH = 50;

struct Step {
  Long dx, dy;
};
using Path = std::vector<Step>;

/// A number from low to high, both included, each as likely as the others from the first try on.
Long Between(Long low, Long high) {
  return *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(low, high + 1));
}

/// A path of the mouse: totals from where the drag began, well over the page's limits.
Path AnyPath() {
  Path path(static_cast<std::size_t>(Between(1, 12)));
  for (Step& step : path) step = {Between(-70, 70), Between(-60, 60)};
  return path;
}

/// The path, then back by the same points to where it began.
Path AndBack(Path path) {
  Path back(path.rbegin(), path.rend());
  path.insert(path.end(), back.begin(), back.end());
  path.push_back({0, 0});
  return path;
}

/// A host that drags a pick-up of an element over an empty page.
class Drag {
 public:
  Drag(ItfHmiElement& element, Long direction) : element_(element), direction_(direction) {
    element.SaveInitialPosition();
  }

  /// One step of the mouse; what the position that it proposes was judged.
  enCollisionStatus To(const Step& total) {
    element_.Stretch(total.dx, total.dy, direction_);
    const enCollisionStatus status = element_.GetTransformState(map_);
    if (status == eCS_Legall) {
      element_.SaveLastLegalPosition();
      element_.UpdateDisplayWithTransx();
    } else {
      element_.UpdateDisplayWithLastLegal();
    }
    return status;
  }

  void End() { element_.UpdateInitialDescriptor(); }

 private:
  ItfHmiElement& element_;
  Long direction_;
  automation::Variant map_ =
      automation::Array(automation::VariantKind::Byte, automation::Bounds{0, kW}, automation::Bounds{0, kH});
};

using Element = std::shared_ptr<ItfHmiElement>;

/// Checks a property of random elements dragged by each of some pick-ups in turn.
void CheckEach(std::initializer_list<Element (*)(const Descriptor&)> classes,
               std::initializer_list<Long> directions, Descriptor (*anyPlace)(),
               const std::function<void(ItfHmiElement&, Long direction)>& property) {
  Platform::Current() = Platform();
  // The same cases in every run, unless the caller asks for others.
  setenv("RC_PARAMS", "seed=20", 0);
  for (const auto& make : classes) {
    for (const Long direction : directions) {
      EXPECT_TRUE(rc::check([&] { property(*make(anyPlace()), direction); })) << "direction " << direction;
    }
  }
}

template <class Shape>
Element Make(const Descriptor& place) {
  return test::Placed<Shape>(place);
}

// --- Filled shapes ---

/// A place on the page, two pixels wide and high at least.
Descriptor AnyBox() {
  const Long xs = Between(0, kW - 2);
  const Long ys = Between(0, kH - 2);
  return {xs, ys, Between(2, kW - xs), Between(2, kH - ys)};
}

void CheckFilledShapes(const std::function<void(ItfHmiElement&, Long direction)>& property) {
  CheckEach({Make<clsRectangle>, Make<clsEllipse>, Make<clsRoundRect>},
            {ePD_UpRight, ePD_Right, ePD_DownRight, ePD_Down, ePD_LeftDown, ePD_Left, ePD_UpLeft, ePD_Up},
            AnyBox, property);
}

/// What a pick-up of a box drags along one axis: nothing, the side at the start or the one at the end.
enum class Side { None, Start, End };

Side SideAcross(Long direction) {
  switch (direction) {
    case ePD_UpRight:
    case ePD_Right:
    case ePD_DownRight:
      return Side::End;
    case ePD_UpLeft:
    case ePD_Left:
    case ePD_LeftDown:
      return Side::Start;
    default:
      return Side::None;
  }
}

Side SideDown(Long direction) {
  switch (direction) {
    case ePD_LeftDown:
    case ePD_Down:
    case ePD_DownRight:
      return Side::End;
    case ePD_UpLeft:
    case ePD_Up:
    case ePD_UpRight:
      return Side::Start;
    default:
      return Side::None;
  }
}

/// One axis of a box: the side that stays put and the one that follows the mouse.
struct Sides {
  Long stays, follows;

  Sides(Long start, Long size, Side side)
      : stays(side == Side::End ? start : start + size), follows(side == Side::End ? start + size : start) {}
  Long Low() const { return std::min(stays, follows); }
  Long Size() const { return std::max(stays, follows) - Low(); }
};

/// Where the mouse wants a box: between the side that stays and the one that follows it.
Descriptor Wanted(const Descriptor& rest, Long direction, const Step& step) {
  Sides across(rest.xs, rest.dx, SideAcross(direction));
  Sides down(rest.ys, rest.dy, SideDown(direction));
  if (SideAcross(direction) != Side::None) across.follows += step.dx;
  if (SideDown(direction) != Side::None) down.follows += step.dy;
  return {across.Low(), down.Low(), across.Size(), down.Size()};
}

bool HasSizeOne(const Descriptor& box) { return box.dx == 1 || box.dy == 1; }

TEST(StretchOfAFilledShape, ThereAndBackByTheSamePathGivesTheShapeAsItWas) {
  CheckFilledShapes([](ItfHmiElement& shape, Long direction) {
    const Descriptor rest = DescriptorOf(shape, 1);
    Drag drag(shape, direction);
    for (const Step& step : AndBack(AnyPath())) drag.To(step);
    for (Long location = 1; location <= 4; ++location) RC_ASSERT(DescriptorOf(shape, location) == rest);
    drag.End();
    RC_ASSERT(DescriptorOf(shape, 1) == rest);
  });
}

TEST(StretchOfAFilledShape, TheOppositeSideStaysPutAndAShapeThatIsFlippedLiesBeyondIt) {
  CheckFilledShapes([](ItfHmiElement& shape, Long direction) {
    const Descriptor rest = DescriptorOf(shape, 1);
    for (const Step& step : AnyPath()) {
      shape.Stretch(step.dx, step.dy, direction);
      const Descriptor wanted = Wanted(rest, direction, step);
      RC_ASSERT(DescriptorOf(shape, 3) == (HasSizeOne(wanted) ? rest : wanted));
    }
  });
}

TEST(StretchOfAFilledShape, NoSizeIsEverNegativeAndTheAreaGrowsAndShrinksWithTheDraggedSides) {
  CheckFilledShapes([](ItfHmiElement& shape, Long direction) {
    const Descriptor rest = DescriptorOf(shape, 1);
    const auto size = [](Long atRest, Side side, Long by) {
      return side == Side::None ? atRest : std::abs(side == Side::End ? atRest + by : atRest - by);
    };
    Drag drag(shape, direction);
    for (const Step& step : AnyPath()) {
      drag.To(step);
      const Long across = size(rest.dx, SideAcross(direction), step.dx);
      const Long down = size(rest.dy, SideDown(direction), step.dy);
      const Descriptor proposed = DescriptorOf(shape, 3);
      if (across != 1 && down != 1) RC_ASSERT(proposed.dx * proposed.dy == across * down);
      RC_ASSERT(proposed.dx >= 0);
      RC_ASSERT(proposed.dy >= 0);
    }
  });
}

TEST(StretchOfAFilledShape, InsteadOfASizeOfOneTheLastLegalPositionIsProposed) {
  CheckFilledShapes([](ItfHmiElement& shape, Long direction) {
    const Descriptor rest = DescriptorOf(shape, 1);
    Drag drag(shape, direction);
    for (const Step& step : AnyPath()) {
      drag.To(step);
      // One pixel beside the opposite sides, on either side of them.
      const Sides across(rest.xs, rest.dx, SideAcross(direction));
      const Sides down(rest.ys, rest.dy, SideDown(direction));
      const Long besideX = across.stays - across.follows + *rc::gen::element<Long>(-1, 1);
      const Long besideY = down.stays - down.follows + *rc::gen::element<Long>(-1, 1);
      const Descriptor lastLegal = DescriptorOf(shape, 2);
      drag.To({besideX, besideY});
      RC_ASSERT(!HasSizeOne(lastLegal));
      RC_ASSERT(DescriptorOf(shape, 3) == lastLegal);
      RC_ASSERT(DescriptorOf(shape, 4) == lastLegal);
    }
  });
}

TEST(StretchOfAFilledShape, WhatIsDisplayedIsOnThePageAndHasABodyAllAlong) {
  CheckFilledShapes([](ItfHmiElement& shape, Long direction) {
    const Descriptor rest = DescriptorOf(shape, 1);
    Drag drag(shape, direction);
    for (const Step& step : AnyPath()) {
      const Descriptor before = DescriptorOf(shape, 4);
      const bool legal = drag.To(step) == eCS_Legall;
      const Descriptor displayed = DescriptorOf(shape, 4);
      RC_ASSERT(displayed == (legal ? DescriptorOf(shape, 3) : before));
      RC_ASSERT(displayed == DescriptorOf(shape, 2));
      RC_ASSERT(DescriptorOf(shape, 1) == rest);
      RC_ASSERT(displayed.dx >= 2 && displayed.dy >= 2);
      RC_ASSERT(displayed.xs >= 0 && displayed.xs + displayed.dx <= kW);
      RC_ASSERT(displayed.ys >= 0 && displayed.ys + displayed.dy <= kH);
    }
  });
}

/// A place on the page from 0 to a limit for a side, so far from the opposite one that the box has a body.
Long AnyPlaceFor(Long limit, Long opposite) {
  const Long place = Between(0, limit - 3);
  return place < opposite - 1 ? place : place + 3;
}

/// The side that the pick-up drags, or the middle of a box that it does not stretch along this axis.
Long PickUpAlong(Long start, Long size, Side side, Long dragged) {
  return side == Side::None ? start + size / 2 : dragged;
}

TEST(StretchOfAFilledShape, EndedAndStretchedBackByThePickUpUnderTheMouseGivesTheShapeAsItWas) {
  CheckFilledShapes([](ItfHmiElement& shape, Long direction) {
    const Descriptor rest = DescriptorOf(shape, 1);
    const Sides across(rest.xs, rest.dx, SideAcross(direction));
    const Sides down(rest.ys, rest.dy, SideDown(direction));
    const Long x = AnyPlaceFor(kW, across.stays);
    const Long y = AnyPlaceFor(kH, down.stays);
    const Step total{x - across.follows, y - down.follows};
    Drag there(shape, direction);
    RC_ASSERT(there.To(total) == eCS_Legall);
    there.End();

    const Descriptor stretched = DescriptorOf(shape, 1);
    const Long underTheMouse =
        shape.GetPupDirection(PickUpAlong(stretched.xs, stretched.dx, SideAcross(direction), x),
                              PickUpAlong(stretched.ys, stretched.dy, SideDown(direction), y), 1);
    Drag back(shape, underTheMouse);
    RC_ASSERT(back.To({-total.dx, -total.dy}) == eCS_Legall);
    back.End();
    RC_ASSERT(DescriptorOf(shape, 1) == rest);
  });
}

TEST(StretchOfAFilledShape, OfOnePixelDoesNotComeBackButStaysAtTheLastLegalPlace) {
  // The one shape that a drag there and back does change: its own size is thrown away like any other of 1.
  Platform::Current() = Platform();
  const auto shape = test::Placed<clsRectangle>({10, 10, 1, 20});
  Drag drag(*shape, ePD_Right);
  drag.To({5, 0});
  drag.To({0, 0});
  drag.End();
  EXPECT_EQ(DescriptorOf(*shape, 1), (Descriptor{10, 10, 6, 20}));
}

// --- Lines ---

/// A line on the page, with some length.
Descriptor AnyLine() {
  const Long xs = Between(1, kW - 1), ys = Between(1, kH - 1);
  const Long dx = Between(1, kW - 1) - xs, dy = Between(1, kH - 1) - ys;
  return dx == 0 && dy == 0 ? Descriptor{xs, ys, 0, -1} : Descriptor{xs, ys, dx, dy};
}

void CheckLines(const std::function<void(ItfHmiElement&, Long direction)>& property) {
  CheckEach({Make<clsLine>}, {ePD_LineHead, ePD_LineTail}, AnyLine, property);
}

/// The two ends of a line that a pick-up drags and leaves, as the head of a vector without size.
Descriptor EndOf(const Descriptor& line, bool tail) {
  return tail ? Descriptor{line.xs + line.dx, line.ys + line.dy, 0, 0} : Descriptor{line.xs, line.ys, 0, 0};
}

TEST(StretchOfALine, ThereAndBackByTheSamePathGivesTheLineAsItWas) {
  CheckLines([](ItfHmiElement& line, Long direction) {
    const Descriptor rest = DescriptorOf(line, 1);
    Drag drag(line, direction);
    for (const Step& step : AndBack(AnyPath())) drag.To(step);
    for (Long location = 1; location <= 4; ++location) RC_ASSERT(DescriptorOf(line, location) == rest);
    drag.End();
    RC_ASSERT(DescriptorOf(line, 1) == rest);
  });
}

TEST(StretchOfALine, OneEndFollowsTheMouseAndTheOtherStaysPut) {
  CheckLines([](ItfHmiElement& line, Long direction) {
    const Descriptor rest = DescriptorOf(line, 1);
    const bool tail = direction == ePD_LineTail;
    for (const Step& step : AnyPath()) {
      line.Stretch(step.dx, step.dy, direction);
      const Descriptor proposed = DescriptorOf(line, 3);
      const Descriptor dragged = EndOf(rest, tail);
      RC_ASSERT(EndOf(proposed, tail) == (Descriptor{dragged.xs + step.dx, dragged.ys + step.dy, 0, 0}));
      RC_ASSERT(EndOf(proposed, !tail) == EndOf(rest, !tail));
    }
  });
}

TEST(StretchOfALine, WhatIsDisplayedHasALengthAndIsOnThePageAllAlong) {
  CheckLines([](ItfHmiElement& line, Long direction) {
    const Descriptor rest = DescriptorOf(line, 1);
    Drag drag(line, direction);
    for (const Step& step : AnyPath()) {
      const Descriptor before = DescriptorOf(line, 4);
      const bool legal = drag.To(step) == eCS_Legall;
      const Descriptor displayed = DescriptorOf(line, 4);
      RC_ASSERT(displayed == (legal ? DescriptorOf(line, 3) : before));
      RC_ASSERT(displayed == DescriptorOf(line, 2));
      RC_ASSERT(DescriptorOf(line, 1) == rest);
      RC_ASSERT(displayed.dx != 0 || displayed.dy != 0);
      for (const bool tail : {false, true}) {
        // Lines may end one pixel outside on the left and on top.
        const Descriptor end = EndOf(displayed, tail);
        RC_ASSERT(end.xs >= -1 && end.xs <= kW && end.ys >= -1 && end.ys <= kH);
      }
    }
  });
}

TEST(StretchOfALine, EndedAndStretchedBackByThePickUpUnderTheMouseGivesTheLineAsItWas) {
  CheckLines([](ItfHmiElement& line, Long direction) {
    const Descriptor rest = DescriptorOf(line, 1);
    const Descriptor dragged = EndOf(rest, direction == ePD_LineTail);
    const Step mouse{Between(1, kW - 1), Between(1, kH - 1)};
    const Step total{mouse.dx - dragged.xs, mouse.dy - dragged.ys};
    Drag there(line, direction);
    // The ends may not meet, and a line of one pixel down and across has no pick-up but its tail.
    const enCollisionStatus status = there.To(total);
    const Descriptor proposed = DescriptorOf(line, 3);
    RC_PRE((proposed.dx != 0 || proposed.dy != 0) && (proposed.dx != 1 || proposed.dy != 1));
    RC_ASSERT(status == eCS_Legall);
    there.End();
    const Long underTheMouse = line.GetPupDirection(mouse.dx, mouse.dy, 1);
    RC_ASSERT(underTheMouse == direction);
    Drag back(line, underTheMouse);
    RC_ASSERT(back.To({-total.dx, -total.dy}) == eCS_Legall);
    back.End();
    RC_ASSERT(DescriptorOf(line, 1) == rest);
  });
}

}  // namespace
}  // namespace quenzel7
