#include <array>
#include <memory>
#include <span>
#include <stdexcept>
#include <vector>

#include "bench/canvas.h"
#include "bench/numbers.h"
#include "bench/open_page.h"
#include "bench/page_by_hand.h"
#include "bench/picture_difference.h"
#include "bench/ratios.h"
#include "platform/automation/convert.h"
#include "platform/gdi/bitmap.h"
#include "platform/gdi/surface.h"
#include "shapes/ellipse.h"
#include "shapes/group.h"
#include "shapes/line.h"
#include "shapes/rectangle.h"
#include "shapes/round_rect.h"

namespace quenzel7::bench {
namespace {

constexpr int kShapes = 10000;
constexpr int kSmallest = 16, kLargest = 120, kWidestPen = 7;

/// An element of the page, with its members if it is a group.
struct Item {
  ElementRef element;
  std::vector<Item> members;
};

ElementRef NewElement(Long type) {
  switch (type) {
    case kRectangleElement:
      return std::make_shared<clsRectangle>();
    case kLineElement:
      return std::make_shared<clsLine>();
    case kEllipseElement:
      return std::make_shared<clsEllipse>();
    case kRoundRectElement:
      return std::make_shared<clsRoundRect>();
    case kGroupElement:
      return std::make_shared<clsGroup>();
    default:
      throw std::invalid_argument("no such element on the page");
  }
}

/// Makes shapes of all kinds, sizes and directions, with thin and wide pens, hollow, hatched and solid.
class ShapeMaker {
 public:
  Item Make() {
    constexpr Long kTypes[] = {kRectangleElement, kEllipseElement, kRoundRectElement, kLineElement};
    const ElementRef element = NewElement(kTypes[made_ % 4]);
    const bool isLine = element->ElementType() == kLineElement;
    const int width = Size(), height = Size();
    Place(*element, numbers_.Between(0, kPageWidth - width), width, isLine, &ItfHmiElement::Xs,
          &ItfHmiElement::Dx);
    Place(*element, numbers_.Between(0, kPageHeight - height), height, isLine, &ItfHmiElement::Ys,
          &ItfHmiElement::Dy);
    element->PenWidth(made_ / 12 % 3 == 0 ? numbers_.Between(2, kWidestPen) : 1);
    element->ColorFore(numbers_.Between(0, 255));
    if (made_ / 4 % 3 == 1) {
      element->FillStyle(eFS_Solid);
      element->ColorBack(numbers_.Between(0, 255));
    } else if (made_ / 4 % 3 == 2) {
      element->HatchStyle(static_cast<enHatchStyle>(numbers_.Between(0, kHatches - 1)));
      element->ColorHatch(numbers_.Between(0, 15));
    }
    ++made_;
    return {element, {}};
  }

 private:
  int Size() { return numbers_.Between(kSmallest, kLargest); }

  using Put = void (ItfHmiElement::*)(Long);
  void Place(ItfHmiElement& element, Long low, Long size, bool isLine, Put putStart, Put putSize) {
    const bool isBackward = isLine && numbers_.Between(0, 1) == 1;
    (element.*putStart)(isBackward ? low + size : low);
    (element.*putSize)(isBackward ? -size : size);
  }

  Numbers numbers_;
  int made_ = 0;
};

/// A group of as many shapes as the first size says, and in it, above them, a group of the other sizes.
Item MakeGroup(ShapeMaker& shapes, std::span<const int> sizes) {
  Item group{NewElement(kGroupElement), {}};
  for (int index = 0; index < sizes.front(); ++index) group.members.push_back(shapes.Make());
  if (sizes.size() > 1) group.members.push_back(MakeGroup(shapes, sizes.subspan(1)));
  return group;
}

/// The elements of a page, none of them saved: of a hundred shapes twenty are in groups, twelve of these in a
/// group in a group, and four of these a level deeper.
std::vector<Item> MakePage() {
  constexpr int kAlone = 80, kGrouped[] = {8, 8, 4};
  ShapeMaker shapes;
  std::vector<Item> items;
  for (int hundred = 0; hundred < kShapes / 100; ++hundred) {
    for (int index = 0; index < kAlone; ++index) items.push_back(shapes.Make());
    items.push_back(MakeGroup(shapes, kGrouped));
  }
  return items;
}

/// Saves an element as a host does: a group gets its row, takes its members in, and is saved with them.
void SaveNew(Item& item) {
  if (item.members.empty()) return item.element->SaveToDB();
  auto objects = std::make_shared<automation::Collection>();
  for (Item& member : item.members) {
    if (!member.members.empty()) SaveNew(member);
    objects->Add(member.element);
  }
  auto& group = static_cast<clsGroup&>(*item.element);
  group.SaveToDB();
  group.AddObjectsToGroup(objects);
  group.SaveToDB();
}

void SaveNew(std::vector<Item>& items, const OpenPage& page) {
  ado::Transaction transaction(page.Connection());
  for (Item& item : items) SaveNew(item);
  transaction.Commit();
}

std::vector<ElementRef> Load(const OpenPage& page) {
  std::vector<ElementRef> elements;
  const auto rows = ado::OpenRecordset(page.Connection(),
                                       "SELECT * FROM HMI_Elements WHERE DisplayID=1 ORDER BY OrderIndex",
                                       ado::adOpenStatic, ado::adLockReadOnly);
  for (; !rows->Eof(); rows->MoveNext()) {
    elements.push_back(NewElement(automation::To<Long>(rows->Get("Type"))));
    elements.back()->LoadFromDB(*rows);
  }
  rows->Close();
  return elements;
}

/// The figure that an element shows, in its whole box.
Figure FigureOf(const ItfHmiElement& element) {
  const auto color = [](Long number) {
    return gdi::SwapRedAndBlue(Platform::Current().colorService->GetColor(number));
  };
  const Long x = element.Xs(), y = element.Ys(), right = x + element.Dx(), bottom = y + element.Dy();
  const std::uint32_t line = color(element.ColorFore());
  Figure figure{Figure::Kind::kRectangle, x, y, right, bottom, element.PenWidth(), line, line};
  const bool isRound = element.ElementType() == kRoundRectElement;
  if (element.ElementType() == kEllipseElement) figure.kind = Figure::Kind::kEllipse;
  if (element.ElementType() == kLineElement) figure.kind = Figure::Kind::kFlatLine;
  if (isRound) figure.kind = Figure::Kind::kRoundRect;
  if (element.FillStyle() == eFS_Solid) {
    if (!isRound) figure.fill = color(element.ColorBack());
  } else if (element.HatchStyle() != eHS_None) {
    figure.hatch = element.HatchStyle();
    if (!isRound) figure.fill = color(element.ColorHatch());
  } else {
    figure.isHollow = true;
  }
  return figure;
}

/// The middle of the border, which other libraries paint along, where the border lies inside of the box.
Figure AlongTheMiddle(Figure figure) {
  if (figure.IsLine()) return figure;
  const int before = figure.penWidth / 2, after = figure.penWidth - 1 - before;
  figure.left += before;
  figure.top += before;
  figure.right -= after;
  figure.bottom -= after;
  return figure;
}

void AddFigures(const Item& item, std::vector<Figure>& figures) {
  if (item.members.empty()) figures.push_back(FigureOf(*item.element));
  for (const Item& member : item.members) AddFigures(member, figures);
}

void AddDrawing(const std::vector<Item>& items, std::vector<Ratio>& ratios) {
  std::vector<Figure> figures;
  for (const Item& item : items) AddFigures(item, figures);
  for (Figure& figure : figures) figure = AlongTheMiddle(figure);
  for (const Peer& peer : Peers()) {
    if (!peer.make) continue;
    gdi::Surface surface(kPageWidth, kPageHeight);
    surface.Clear(kPaper);
    const auto theirs = peer.make(kPageWidth, kPageHeight);
    const auto draw = [&] {
      for (const Item& item : items) item.element->Draw(surface.Dc(), false);
    };
    const auto drawTheirs = [&] { theirs->Draw(figures); };
    const double limit = peer.name == "cairo" ? 0.25 : 0.5;
    ratios.push_back(
        {"page of 10,000 elements: drawing", TimeRatio(15, 2, draw, drawTheirs), limit, peer.name});
    ratios.push_back({"page of 10,000 elements: how much the pictures differ",
                      Difference(surface.Pixels(), theirs->Pixels()), 5,
                      "percent of the pixels, " + peer.name});
  }
}

void AddHits(const std::vector<Item>& items, std::vector<Ratio>& ratios) {
  std::vector<Figure> figures;
  std::vector<std::size_t> ends;
  for (const Item& item : items) {
    AddFigures(item, figures);
    ends.push_back(figures.size());
  }
  std::vector<HitGroup> groups;
  std::size_t begin = 0;
  for (const std::size_t end : ends) {
    groups.push_back(HitGroup(figures).subspan(begin, end - begin));
    begin = end;
  }
  std::vector<gdi::POINT> points;
  for (Numbers numbers; points.size() < 16;) {
    const int x = numbers.Between(0, kPageWidth - 1);
    points.push_back({x, numbers.Between(0, kPageHeight - 1)});
  }
  for (const Peer& peer : Peers()) {
    if (!peer.countHits) continue;
    int hits = 0, theirHits = 0;
    const auto count = [&] {
      for (const auto [x, y] : points) {
        for (const Item& item : items) hits += item.element->HitTestByPoint(x, y);
      }
    };
    const auto countTheirs = [&] {
      for (const gdi::POINT point : points) theirHits += peer.countHits(groups, point);
    };
    const double ratio = TimeRatio(15, 2, count, countTheirs);
    ratios.push_back({"page of 10,000 elements: hit tests of all at a point", ratio, 1.0,
                      peer.name + ", a path made for each question"});
    int all = 0, different = 0;
    for (const gdi::POINT point : points) {
      for (std::size_t i = 0; i < items.size(); ++i) {
        const bool isHit = items[i].element->HitTestByPoint(point.x, point.y);
        all += isHit;
        different += isHit != (peer.countHits(std::span(&groups[i], 1), point) != 0);
      }
    }
    ratios.push_back({"page of 10,000 elements: answers that differ", 100.0 * different / all, 5,
                      "percent of the hits, " + peer.name});
  }
}

/// What the classes write, as the elements do.
std::vector<HandClass> HandClasses() {
  const std::vector<std::string_view> number{"GUID"}, description{"DescriptionFontNumber"};
  const std::vector<std::string_view> ofGroups{
      "GUID",           "OrderIndex",           "Xs", "Ys", "Dx", "Dy", "TabIndex", "ColorBackTouch",
      "ColorForeTouch", "DescriptionFontNumber"};
  return {{kRectangleElement, HandOrder::kElement, {}, number},
          {kLineElement, HandOrder::kElement, {}, number},
          {kEllipseElement, HandOrder::kRow, {}, {"GUID", "OrderIndex"}},
          {kRoundRectElement, HandOrder::kLost, description, {"GUID", "DescriptionFontNumber"}},
          {kGroupElement, HandOrder::kNone, ofGroups, ofGroups}};
}

HandElement ByHand(const Item& item) {
  const ItfHmiElement& element = *item.element;
  // clang-format off
  HandElement made{
      {0, 0, OpenPage::kNumber, kNone, element.ElementType(),
       element.Xs(), element.Ys(), element.Dx(), element.Dy(),
       element.ColorBack(), element.ColorFore(), element.ColorBackTouch(), element.ColorForeTouch(),
       element.ColorHatch(),
       element.PenStyle(), element.PenWidth(), element.HatchStyle(),
       kNone, kNone, kNone, kNone, kNone,
       kNoTabIndex},
      {}};
  // clang-format on
  for (const Item& member : item.members) made.members.push_back(ByHand(member));
  return made;
}

/// Raises unless both projects have the same elements.
void RequireSameRows(const std::string& one, const std::string& other) {
  HandDatabase both(one);
  both.Run(("ATTACH '" + other + "' AS other").c_str());
  HandStatement rows(both, "SELECT COUNT(*) FROM main.HMI_Elements");
  HandStatement differences(both,
                            "SELECT COUNT(*) FROM (SELECT * FROM main.HMI_Elements EXCEPT SELECT * FROM "
                            "other.HMI_Elements)");
  if (!rows.Step() || rows.Int(0) < kShapes || !differences.Step() || differences.Int(0) != 0) {
    throw std::runtime_error("the page saved by hand is another one");
  }
}

void AddSavingAndLoading(std::vector<Ratio>& ratios) {
  std::vector<double> save, load, handSave, handLoad;
  for (int turn = 0; turn < 7; ++turn) {
    const Folder folder;
    const std::string ours = folder.File("page.qz7"), theirs = folder.File("hand.qz7");
    corvane1::OpenProject(theirs, corvane1::ProjectMode::Create)->Close();
    std::vector<HandElement> byHand;
    std::size_t count = 0;
    {
      const OpenPage page(ours);
      std::vector<Item> items = MakePage();
      for (const Item& item : items) byHand.push_back(ByHand(item));
      save.push_back(ProcessorSeconds([&] { SaveNew(items, page); }));
      std::vector<ElementRef> loaded;
      load.push_back(ProcessorSeconds([&] { loaded = Load(page); }));
      count = loaded.size();
    }
    {
      PageByHand hand(theirs, HandClasses());
      handSave.push_back(ProcessorSeconds([&] { hand.SaveNew(byHand); }));
      std::size_t handCount = 0;
      handLoad.push_back(ProcessorSeconds([&] { handCount = hand.Load(OpenPage::kNumber); }));
      if (handCount != count) throw std::runtime_error("another number of elements is loaded by hand");
    }
    if (turn == 0) RequireSameRows(ours, theirs);
  }
  const char* const peer = "prepared statements by hand";
  ratios.push_back({"page of 10,000 elements: saving", Median(save) / Median(handSave), 2.0, peer});
  ratios.push_back({"page of 10,000 elements: loading", Median(load) / Median(handLoad), 2.0, peer});
}

}  // namespace

std::vector<Ratio> PageRatios() {
  std::vector<Ratio> ratios;
  {
    const Folder folder;
    const OpenPage page(folder.File("page.qz7"));
    std::vector<Item> items = MakePage();
    // Saving puts the members into their groups.
    SaveNew(items, page);
    AddDrawing(items, ratios);
    AddHits(items, ratios);
  }
  AddSavingAndLoading(ratios);
  return ratios;
}

}  // namespace quenzel7::bench
