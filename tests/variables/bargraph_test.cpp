#include "variables/graphs/bargraph.h"

#include <gtest/gtest.h>

#include "framework/bitmap_size.h"
#include "framework/mono_bytes.h"
#include "platform/automation/call_by_name.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/surface.h"
#include "tests/support/handler_fixture.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using automation::GetByName;
using automation::PutByName;
using automation::Variant;
using test::CallLog;
using test::ErrorOf;
using test::OperandsIn;

class Bargraph : public test::HandlerTest {
 protected:
  using Key = std::vector<Byte>;

  void Paint(Long w = 40, Long h = 40) { bar_.Draw(paper_.Dc(), w, h, 7); }
  static CallLog NamesIn(const Key& data) {
    CallLog names;
    for (const auto& [name, value] : test::SettingsIn(data)) names.push_back(name);
    return names;
  }
  Key ChangeKey() const { return bar_.GetBinaryDataForCRC(); }

  clsVarBargraph bar_;
  const gdi::Surface paper_{4, 4};
};

TEST_F(Bargraph, IsNewWithoutOperandsAndGrowsToTheRight) {
  EXPECT_EQ(bar_.BargraphType(), eBD_LeftToRight);
  EXPECT_EQ(bar_.MinOpType(), 0);
  EXPECT_EQ(bar_.MinOpAddress(), 0);
  EXPECT_EQ(bar_.MaxOpType(), 0);
  EXPECT_EQ(bar_.MaxOpAddress(), 0);
  EXPECT_TRUE(bar_.Frame());
  EXPECT_EQ(bar_.ColorFore(), 3);
  EXPECT_EQ(bar_.LinkOperandType(), 0);
  EXPECT_EQ(bar_.LinkOperandAddress(), 0);
  ASSERT_NE(bar_.ColOpPropBag(), nullptr);
  EXPECT_EQ(bar_.ColOpPropBag()->Count(), 0);
}

TEST_F(Bargraph, PublishesItsDefaultInterfaceInSlotOrder) {
  const CallLog expected = {
      "call NewDrawForBarGraphForAlsoFlatAndFixedSingle(Long, Long, Long, Long, ByRef Long)",
      "call Draw(Long, Long, Long, Long)",
      "putref ColOpPropBag(Collection)",
      "get DrawingElement() As ItfHmiElement",
      "get MinOpAddress() As Long",
      "put MinOpAddress(Long)",
      "get MinOpType() As Long",
      "put MinOpType(Long)",
      "get MaxOpAddress() As Long",
      "put MaxOpAddress(Long)",
      "get MaxOpType() As Long",
      "put MaxOpType(Long)",
      "get Frame() As Boolean",
      "put Frame(Boolean)",
      "get BargraphType() As enBarGraphDrawType",
      "put BargraphType(enBarGraphDrawType)",
      "get ColorFore() As Integer",
      "put ColorFore(Integer)",
      "call SetBinaryData(Byte())",
      "call GetBinaryData() As Byte()",
      "call ValidateFontNumber(ByRef Collection)",
  };
  EXPECT_EQ(clsVarBargraph::ClassOf().Default().Slots(), expected);
  EXPECT_EQ(clsVarBargraph::ClassOf().Default().Name(), "_clsVarBargraph");
}

TEST_F(Bargraph, HasEachPropertyForItself) {
  const char* const kNames[] = {"MinOpAddress", "MinOpType", "MaxOpAddress", "MaxOpType", "BargraphType"};
  Long number = 20;
  for (const char* name : kNames) PutByName(bar_, name, Variant(++number));
  number = 20;
  for (const char* name : kNames) EXPECT_EQ(GetByName(bar_, name), Variant(++number)) << name;
  PutByName(bar_, "Frame", Variant(false));
  EXPECT_EQ(GetByName(bar_, "Frame"), Variant(false));
  PutByName(bar_, "Frame", Variant(Long{7}));
  EXPECT_EQ(GetByName(bar_, "Frame"), Variant(true));
  PutByName(bar_, "ColorFore", Variant(Long{9}));
  EXPECT_EQ(GetByName(bar_, "ColorFore"), Variant(Integer{9}));
}

TEST_F(Bargraph, TakesColoursOf16BitsFromOutside) {
  for (const Long color : {-32768, -1, 0, 32767}) {
    bar_.TakeColorFore(color);
    EXPECT_EQ(bar_.ColorFore(), color);
  }
  for (const Long color : {-32769, 32768}) {
    EXPECT_EQ(ErrorOf([&] { bar_.TakeColorFore(color); }), 6) << color;
    EXPECT_EQ(ErrorOf([&] { PutByName(bar_, "ColorFore", Variant(color)); }), 6) << color;
    EXPECT_EQ(bar_.ColorFore(), 32767);
  }
}

TEST_F(Bargraph, KeepsAColourOf32BitsThatItsDataTell) {
  test::SettingList settings = test::SettingsIn(bar_.GetBinaryData());
  ASSERT_EQ(settings.back().first, "ColorFore");
  settings.back().second = Long{32768};
  bar_.SetBinaryData(test::DataOf(settings));
  EXPECT_EQ(ErrorOf([&] { bar_.ColorFore(); }), 6);
  EXPECT_EQ(test::ValueIn(bar_.GetBinaryData(), "ColorFore"), Variant(Long{32768}));
  EXPECT_EQ(test::ValueIn(bar_.Replica()->BinaryData(), "ColorFore"), Variant(Long{32768}));
}

// --- What the data and the change key hold ---

TEST_F(Bargraph, KeepsItsSettingsInThisOrder) {
  EXPECT_EQ(NamesIn(bar_.GetBinaryData()), (CallLog{"BargraphType", "Frame", "MinOpType", "MinOpAddress",
                                                    "MaxOpType", "MaxOpAddress", "ColorFore"}));
  EXPECT_EQ(NamesIn(ChangeKey()), (CallLog{"DrawingImage_hBmp", "BargraphType", "Frame", "MinOpType",
                                           "MinOpAddress", "MaxOpType", "MaxOpAddress"}));
}

TEST_F(Bargraph, TellsItsWholePictureInTheChangeKey) {
  const auto picture = [&] { return automation::To<Key>(test::ValueIn(ChangeKey(), "DrawingImage_hBmp")); };
  EXPECT_EQ(picture(), std::vector<Byte>(5, 0));
  Paint(3, 2);
  EXPECT_EQ(picture(), WholeBitmapToBytes(bar_.DrawingElement()->hBmp()));
  EXPECT_EQ(picture().size(), 3u * 2 * 4 + 5);
}

TEST_F(Bargraph, HasAnotherChangeKeyForAnotherColourWhenItIsPaintedAnew) {
  for (const auto type : {eBD_LeftToRight, eBD_RightToLeft, eBD_TopToBottom, eBD_BottomToTop}) {
    bar_.BargraphType(type);
    bar_.ColorFore(3);
    Paint();
    const Key before = ChangeKey();
    bar_.ColorFore(2);
    EXPECT_EQ(ChangeKey(), before) << type;
    Paint();
    EXPECT_NE(ChangeKey(), before) << type;
    bar_.ColorFore(3);
    Paint();
    EXPECT_EQ(ChangeKey(), before) << type;
  }
}

TEST_F(Bargraph, HasAnotherChangeKeyForAnotherFrameAtOnceAndTheSamePicture) {
  Paint();
  const Key before = ChangeKey();
  const Key picture = WholeBitmapToBytes(bar_.DrawingElement()->hBmp());
  bar_.Frame(false);
  EXPECT_NE(ChangeKey(), before);
  Paint();
  EXPECT_EQ(WholeBitmapToBytes(bar_.DrawingElement()->hBmp()), picture);
}

// --- Operands ---

TEST_F(Bargraph, HasTwoOperandsTheLowEndFirst) {
  bar_.MinOpType(1);
  bar_.MinOpAddress(5);
  bar_.MaxOpType(34);
  bar_.MaxOpAddress(7);
  const auto before = bar_.ColOpPropBag();
  bar_.BuildOpPropBag();
  EXPECT_NE(bar_.ColOpPropBag(), before);
  EXPECT_EQ(OperandsIn(bar_.ColOpPropBag()), (CallLog{"1 5", "34 7"}));

  bar_.AddOperandsToHmiOperands(9);
  EXPECT_EQ(OperandRows(), (CallLog{"9 1 5 0 3", "9 34 7 0 3"}));
  bar_.RestoreAllOperands(10);
  EXPECT_EQ(OperandRows(), (CallLog{"9 1 5 0 3", "9 34 7 0 3", "10 1 5 0 3", "10 37 0 0 3"}));
  EXPECT_EQ(bar_.MinOpType(), 1);
  EXPECT_EQ(bar_.MinOpAddress(), 5);
  EXPECT_EQ(bar_.MaxOpType(), 37);
  EXPECT_EQ(bar_.MaxOpAddress(), 0);

  NoteOperands();
  bar_.MaxOpAddress(6);
  TakeLog();
  bar_.DeleteAllOperands();
  EXPECT_EQ(TakeLog(), (CallLog{"remove operand 5", "remove operand 6"}));
  bar_.MinOpType(0);
  bar_.DeleteAllOperands();
  EXPECT_EQ(TakeLog(), CallLog{"remove operand 6"});
}

TEST_F(Bargraph, HasABagForAnOperandThatIsNoneToo) {
  bar_.MaxOpType(2);
  bar_.BuildOpPropBag();
  EXPECT_EQ(OperandsIn(bar_.ColOpPropBag()), (CallLog{"0 0", "2 0"}));
}

TEST_F(Bargraph, ReplacesBothItsOperandsInOneCall) {
  const auto set = [&](OperandPair min, OperandPair max) {
    bar_.MinOpType(min.type);
    bar_.MinOpAddress(min.address);
    bar_.MaxOpType(max.type);
    bar_.MaxOpAddress(max.address);
    bar_.ReplaceOperand(1, 5, 21, 22);
    return std::vector<Long>{bar_.MinOpType(), bar_.MinOpAddress(), bar_.MaxOpType(), bar_.MaxOpAddress()};
  };
  bar_.LinkOperandType(1);
  bar_.LinkOperandAddress(5);
  EXPECT_EQ(set({1, 5}, {1, 5}), (std::vector<Long>{21, 22, 21, 22}));
  EXPECT_EQ(set({1, 5}, {1, 6}), (std::vector<Long>{21, 22, 1, 6}));
  EXPECT_EQ(set({2, 5}, {1, 5}), (std::vector<Long>{2, 5, 21, 22}));
  EXPECT_EQ(set({2, 5}, {1, 4}), (std::vector<Long>{2, 5, 1, 4}));
  EXPECT_EQ(bar_.LinkOperandType(), 1);
  EXPECT_EQ(bar_.LinkOperandAddress(), 5);
}

// --- Replica ---

TEST_F(Bargraph, SharesItsBagsWithAReplicaButNotItsPicture) {
  Paint(9, 5);
  bar_.BuildOpPropBag();
  bar_.LinkOperandType(1);
  bar_.LinkOperandAddress(5);
  const std::size_t before = gdi::LiveObjects();
  {
    const auto copy = std::dynamic_pointer_cast<clsVarBargraph>(bar_.Replica());
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(gdi::LiveObjects(), before + 1);
    EXPECT_EQ(copy->ColOpPropBag(), bar_.ColOpPropBag());
    EXPECT_NE(copy->DrawingElement(), bar_.DrawingElement());
    EXPECT_NE(copy->DrawingElement()->hBmp(), 0);
    EXPECT_NE(copy->DrawingElement()->hBmp(), bar_.DrawingElement()->hBmp());
    const BitmapSize size = BitmapSizeOf(copy->DrawingElement()->hBmp());
    EXPECT_EQ(size.w, 9);
    EXPECT_EQ(size.h, 5);
    EXPECT_EQ(size.bits, 1);
    EXPECT_EQ(copy->LinkOperandType(), 0);
    EXPECT_EQ(copy->LinkOperandAddress(), 0);
  }
  EXPECT_EQ(gdi::LiveObjects(), before);
  EXPECT_NE(bar_.DrawingElement()->hBmp(), 0);
}

TEST_F(Bargraph, ThatWasNeverPaintedHasAReplicaWithoutAPicture) {
  const std::size_t before = gdi::LiveObjects();
  const auto copy = std::dynamic_pointer_cast<clsVarBargraph>(bar_.Replica());
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(copy->DrawingElement()->hBmp(), 0);
  EXPECT_EQ(gdi::LiveObjects(), before);
}

// --- What means nothing to a bar ---

TEST_F(Bargraph, HasNoFontNoSizeAndNoPicturesOfItsOwn) {
  Paint();
  const Key before = ChangeKey();
  Long dx = 3, dy = 4;
  bar_.GetOptimalDimensions(dx, dy);
  EXPECT_EQ(dx, 3);
  EXPECT_EQ(dy, 4);
  for (const Long font : {-1, 0, 1, 4}) EXPECT_FALSE(bar_.IsHmiFontInUse(font)) << font;
  automation::CollectionRef none;
  bar_.ItfVarBinaryHandler::ValidateFontNumber(none);
  Variant table;
  bar_.SetNewFontNumberByLookUpTBL(table);
  bar_.UpdateOnFontDelete(0);
  bar_.Rotate();
  bar_.InvertColors();
  bar_.BuildImageList(1);
  bar_.ResizeImages(1, 2, 3, 4);
  bar_.SaveToDB(1, eVT_BarGraph);
  EXPECT_EQ(ChangeKey(), before);
  EXPECT_EQ(bar_.StorageText(), 0);
}

}  // namespace
}  // namespace quenzel7
