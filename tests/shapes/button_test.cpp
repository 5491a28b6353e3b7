/// What is a button's own: its members and defaults, what each writer does beyond storing, its picture, the
/// size that it would like, its report.
#include "shapes/button.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "framework/touch_style.h"
#include "platform/automation/array.h"
#include "platform/automation/call_by_name.h"
#include "platform/corvane1/project_database.h"
#include "tests/support/button_fixture.h"
#include "tests/support/font_double.h"
#include "tests/support/raises.h"
#include "tests/support/report_double.h"

namespace quenzel7 {
namespace {

using automation::GetByName;
using automation::Interface;
using automation::PutByName;
using automation::Variant;
using test::ButtonPicture;
using test::CallLog;
using test::ErrorOf;
using test::GivePicture;

const Interface& Contract() { return ItfHmiElement::InterfaceOf(); }
const Interface& Pictures() { return ItfImage::InterfaceOf<clsButton>(); }

ItfHmiElement& ContractOf(clsButton& button) { return button; }
ItfImage& PictureOf(clsButton& button) { return button; }

/// Settings of one section that are told to it by key, and what was asked, as "section/key/fallback".
class KeyedSettings final : public corvane1::Settings {
 public:
  std::map<Long, std::string> texts;
  CallLog asked;

  std::string GetSetting(Long section, Long key, const std::string& fallback) override {
    asked.push_back(std::to_string(section) + "/" + std::to_string(key) + "/" + fallback);
    const auto found = texts.find(key);
    return found != texts.end() ? found->second : fallback;
  }
};

class Button : public test::TextBearing<clsButton> {
 protected:
  static std::shared_ptr<KeyedSettings> Told(std::map<Long, std::string> texts) {
    const auto settings = std::make_shared<KeyedSettings>();
    settings->texts = std::move(texts);
    Platform::Current().settings = settings;
    return settings;
  }
};
using ButtonInProject = test::SavedButton;

// --- The class and its members ---

TEST_F(Button, PublishesItsDefaultInterfaceInSlotOrder) {
  CallLog expected;
  const auto properties = [&](std::initializer_list<const char*> names, const std::string& type) {
    for (const std::string name : names) {
      expected.push_back("get " + name + "() As " + type);
      expected.push_back("put " + name + "(" + type + ")");
    }
  };
  properties({"ID", "GroupID", "Xs", "Ys", "Dx", "Dy", "ColorBack", "ColorBackTouch", "ColorFore",
              "ColorForeTouch", "TouchOprndAddr", "hBmp"},
             "Long");
  properties({"Txt", "ActualText"}, "String");
  properties({"FontNumber", "EnabledOpAddr", "VisibleOpAddr", "HighlightOpAddr"}, "Long");
  expected.push_back("get ColOpPropBag() As Collection");
  expected.push_back("putref ColOpPropBag(Collection)");
  properties({"Alignment"}, "Integer");
  properties({"Flat3D", "StorageStringType", "StorageStringID", "TabIndex", "OrderIndex"}, "Long");
  for (const char* method : {
           "call GetOptimalDimensions(ByRef Long, ByRef Long)",
           "call SaveToDB() As Boolean",
           "call SetImage8bppProps(Long, Long, Long, ByRef Byte(), Long, Long, Long, ByRef Byte(), Long, "
           "Long, "
           "String)",
           "call SetImage8bppPropsEx(Long, Long, Long, ByRef Byte(), Long, Long, Long, ByRef Byte(), Long, "
           "Long, String, Long)",
           "call ItfHmiElement_CreateStaticElementPrinterReport(Object)",
       }) {
    expected.push_back(method);
  }
  EXPECT_EQ(clsButton::ClassOf().Default().Slots(), expected);
  EXPECT_EQ(clsButton::ClassOf().Default().Name(), "_clsButton");
  EXPECT_EQ(clsButton::ClassOf().name, "clsButton");
  EXPECT_EQ(clsButton().ElementType(), 11);
}

TEST_F(Button, ImplementsTheElementContractAndThatOfAPictureInThisOrder) {
  const auto& interfaces = clsButton::ClassOf().interfaces;
  ASSERT_EQ(interfaces.size(), 3u);
  EXPECT_EQ(interfaces[1], &Contract());
  EXPECT_EQ(interfaces[2], &Pictures());
  EXPECT_EQ(interfaces[2]->Name(), "ItfImage");
  EXPECT_EQ(clsButton::ClassOf().FindInterface("ItfImage"), &Pictures());
  const automation::ObjectRef made = clsButton::ClassOf().create();
  EXPECT_EQ(&made->Class(), &clsButton::ClassOf());
  // An element without a picture has no such interface.
  EXPECT_EQ(clsText::ClassOf().interfaces.size(), 2u);
  EXPECT_EQ(clsText::ClassOf().FindInterface("ItfImage"), nullptr);
}

TEST_F(Button, MarksWhatSaysWhichElementItIsAndWhatIsNotKept) {
  using automation::Mark;
  for (const automation::Member& member : clsButton::ClassOf().Default().Members()) {
    const bool identity = member.name == "ID" || member.name == "GroupID" || member.name == "OrderIndex";
    const bool transient = member.name == "ActualText" || member.name == "hBmp";
    EXPECT_EQ(member.mark, identity    ? Mark::Identity
                           : transient ? Mark::Transient
                                       : Mark::None)
        << member.name;
    EXPECT_FALSE(member.documentation.empty()) << member.name;
  }
  const Interface& own = clsButton::ClassOf().Default();
  EXPECT_EQ(own.Find("Flat3D")->documentation, clsButton::kStyles);
  EXPECT_EQ(own.Find("VisibleOpAddr")->documentation, kOwnVisibleOpAddrText);
  EXPECT_EQ(own.Find("ColorBackTouch")->documentation, Contract().Find("ColorBackTouch")->documentation);
}

// --- Defaults ---

TEST_F(Button, StartsAsANewElementWithTheEmbeddedDefaults) {
  clsButton button;
  EXPECT_EQ(button.ID(), -1);
  EXPECT_EQ(button.GroupID(), -1);
  for (Long location = 1; location <= 4; ++location) {
    EXPECT_EQ(test::DescriptorOf(button, location), Descriptor{}) << location;
  }
  EXPECT_EQ(button.ColorBack(), 104);
  EXPECT_EQ(button.ColorFore(), 5);
  EXPECT_EQ(button.ColorBackTouch(), 104);
  EXPECT_EQ(button.ColorForeTouch(), 5);
  EXPECT_EQ(button.TouchOprndAddr(), -1);
  EXPECT_EQ(button.hBmp(), 0);
  EXPECT_EQ(button.Txt(), "Button");
  EXPECT_EQ(services_.ShownBy(button), "");
  EXPECT_EQ(button.FontNumber(), 4);
  EXPECT_EQ(button.EnabledOpAddr(), -1);
  EXPECT_EQ(button.VisibleOpAddr(), -1);
  EXPECT_EQ(button.HighlightOpAddr(), -1);
  ASSERT_NE(button.ColOpPropBag(), nullptr);
  EXPECT_EQ(button.ColOpPropBag()->Count(), 0);
  EXPECT_EQ(button.Alignment(), 4);
  EXPECT_EQ(button.Flat3D(), 1);
  EXPECT_EQ(button.StorageStringType(), 0);
  EXPECT_EQ(button.StorageStringID(), -1);
  EXPECT_EQ(button.TabIndex(), 255);
  EXPECT_EQ(button.OrderIndex(), 0);
  EXPECT_EQ(button.Image().CRC8bpp(), -1);
  EXPECT_EQ(button.Image().SourceCRC(), -1);
  EXPECT_EQ(button.Image().TransparencyLevel(), 0);
  EXPECT_EQ(button.Image().Bits(), 0);
  EXPECT_NE(&clsButton().Image(), &button.Image());
}

TEST_F(Button, AsksForItsDefaultsInThisOrderByItsStyle) {
  for (const char* style : {"0", "1", "2", "3", "-1"}) {
    const auto settings = Told({{6041, style}});
    clsButton button;
    EXPECT_EQ(button.Flat3D(), std::stol(style));
    const bool isFlat = std::string(style) == "0";
    EXPECT_EQ(settings->asked, (CallLog{"6000/6041/1", isFlat ? "6000/6044/104" : "6000/6016/104",
                                        isFlat ? "6000/6054/104" : "6000/6055/104", "6000/6017/5",
                                        "6000/6056/5", "6000/6038/4", "6000/6047/0"}))
        << style;
  }
}

TEST_F(Button, TakesEachDefaultFromItsOwnSetting) {
  for (const bool isFlat : {true, false}) {
    Told({{6016, "16"},
          {6017, "17"},
          {6038, "7"},
          {6041, isFlat ? "0" : "2"},
          {6044, "44"},
          {6047, "3"},
          {6054, "54"},
          {6055, "55"},
          {6056, "56"}});
    clsButton button;
    EXPECT_EQ(button.Flat3D(), isFlat ? 0 : 2);
    EXPECT_EQ(button.ColorBack(), isFlat ? 44 : 16);
    EXPECT_EQ(button.ColorBackTouch(), isFlat ? 54 : 55);
    EXPECT_EQ(button.ColorFore(), 17);
    EXPECT_EQ(button.ColorForeTouch(), 56);
    EXPECT_EQ(button.Alignment(), 7);
    EXPECT_EQ(button.Image().TransparencyLevel(), 3);
    EXPECT_EQ(ContractOf(button).TransparencyLevel(), 3);
  }
}

TEST_F(Button, ItsColourWhileTouchedIsThatAtRestUnlessTold) {
  const auto settings = Told({{6017, "77"}});
  const clsButton button;
  EXPECT_EQ(button.ColorFore(), 77);
  EXPECT_EQ(button.ColorForeTouch(), 77);
  EXPECT_EQ(settings->asked[4], "6000/6056/77");
}

TEST_F(Button, CannotBeMadeFromASettingThatIsNoNumber) {
  for (const Long key : {6016, 6017, 6038, 6041, 6047, 6055, 6056}) {
    Told({{key, "thick"}});
    EXPECT_EQ(ErrorOf([] { clsButton(); }), 13) << key;
  }
  Told({{6038, "32768"}});
  EXPECT_EQ(ErrorOf([] { clsButton(); }), 6);
}

// --- Properties ---

TEST_F(Button, KeepsWhatIsWrittenThroughEitherInterface) {
  struct Case {
    const char* name;
    Variant own, contract;
  };
  const Case cases[] = {
      {"ID", Long{-1}, Long{-1}},
      {"GroupID", Long{72}, Long{73}},
      {"Xs", Long{74}, Long{75}},
      {"Ys", Long{76}, Long{77}},
      {"Dx", Long{78}, Long{79}},
      {"Dy", Long{80}, Long{81}},
      {"ColorBack", Long{82}, Long{83}},
      {"ColorFore", Long{84}, Long{85}},
      {"ColorBackTouch", Long{86}, Long{87}},
      {"ColorForeTouch", Long{88}, Long{89}},
      {"Txt", "first", "second"},
      {"FontNumber", Long{3}, Long{2}},
      {"EnabledOpAddr", Long{94}, Long{95}},
      {"VisibleOpAddr", Long{96}, Long{97}},
      {"HighlightOpAddr", Long{98}, Long{99}},
      {"Alignment", Integer{8}, Integer{0}},
      {"TabIndex", Long{90}, Long{91}},
      {"OrderIndex", Long{92}, Long{93}},
  };
  clsButton button;
  for (const Case& c : cases) {
    PutByName(button, c.name, c.own);
    EXPECT_EQ(GetByName(button, c.name), c.own) << c.name;
    EXPECT_EQ(GetByName(button, Contract(), c.name), c.own) << c.name;
    PutByName(button, Contract(), c.name, c.contract);
    EXPECT_EQ(GetByName(button, c.name), c.contract) << c.name;
  }
  // Each in a field of its own.
  for (const Case& c : cases) EXPECT_EQ(GetByName(button, Contract(), c.name), c.contract) << c.name;
}

TEST_F(Button, OnlySomeWritersFitTheTextAnew) {
  struct Case {
    const char* name;
    Variant value;
    bool fits, fitsByContract;
  };
  const Case cases[] = {
      {"Txt", "kept", true, true},
      {"FontNumber", Long{0}, true, true},
      {"Dx", Long{90}, true, true},
      {"Dy", Long{90}, true, true},
      {"Flat3D", Integer{1}, true, false},
      {"Xs", Long{7}, false, false},
      {"Ys", Long{7}, false, false},
      {"Alignment", Integer{7}, false, false},
      {"ColorBack", Long{7}, false, false},
      {"EnabledOpAddr", Long{7}, false, false},
      {"HighlightOpAddr", Long{7}, false, false},
      {"VisibleOpAddr", Long{7}, false, false},
      {"TabIndex", Long{7}, false, false},
  };
  for (const Case& c : cases) {
    for (const bool byContract : {false, true}) {
      const auto button = Small("kept");
      button->ActualText("seen");
      if (byContract) {
        PutByName(*button, Contract(), c.name, c.value);
      } else {
        PutByName(*button, c.name, c.value);
      }
      EXPECT_EQ(services_.ShownBy(*button), (byContract ? c.fitsByContract : c.fits) ? "kept" : "seen")
          << c.name << byContract;
    }
  }
}

TEST_F(Button, BothFacesKeepTheStyle) {
  clsButton button;
  ContractOf(button).Flat3D(Integer{-3});
  EXPECT_EQ(button.Flat3D(), -3);
  button.Flat3D(Long{32768});
  EXPECT_EQ(button.Flat3D(), 32768);
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(ContractOf(button).Flat3D()); }), 6);
  button.Flat3D(Long{32767});
  EXPECT_EQ(ContractOf(button).Flat3D(), 32767);
}

TEST_F(Button, OnlyARaisedOneKeepsItsTextOffTheFarEdges) {
  const struct { Long style, inset; } kStyles[] = {{0, 0}, {1, 7}, {2, 0}, {3, 0}, {4, 0}, {-1, 0}};
  for (const auto& [style, inset] : kStyles) {
    const auto button = Small("abcd\r\nefgh");
    button->Flat3D(style);
    button->Dx(4 + inset);
    button->Dy(4 + inset);
    EXPECT_EQ(button->ActualText(), "abcd\r\nefgh") << style;
    button->Dx(3 + inset);
    EXPECT_EQ(button->ActualText(), "abc\r\nefg") << style;
    button->Dy(3 + inset);
    EXPECT_EQ(button->ActualText(), "abc") << style;
  }
}

TEST_F(Button, ItsBitmapIsDeletedWhenAnotherOneComesOrTheButtonGoes) {
  const std::size_t before = gdi::LiveObjects();
  auto button = std::make_shared<clsButton>();
  const Long first = gdi::CreateBitmap(2, 2, 1, 32, nullptr);
  button->hBmp(first);
  EXPECT_EQ(GetByName(*button, "hBmp"), Variant(first));
  button->hBmp(first);
  EXPECT_EQ(gdi::LiveObjects(), before + 1);
  PutByName(*button, "hBmp", Variant(Long{gdi::CreateBitmap(2, 2, 1, 32, nullptr)}));
  EXPECT_EQ(gdi::LiveObjects(), before + 1);
  EXPECT_NE(button->hBmp(), first);
  button->hBmp(0);
  EXPECT_EQ(gdi::LiveObjects(), before);
  button->hBmp(gdi::CreateBitmap(2, 2, 1, 32, nullptr));
  // It is not the bitmap of an element that is a picture.
  EXPECT_EQ(ContractOf(*button).hBmp(), 0);
  ContractOf(*button).hBmp(0);
  EXPECT_NE(button->hBmp(), 0);
  button.reset();
  EXPECT_EQ(gdi::LiveObjects(), before);
}

// --- The size that it would like ---

TEST_F(Button, WouldLikeItsTextAnd8PixelsWhateverTheStyle) {
  for (const Long style : {0, 1, 2, 3, 4, -1}) {
    const auto button = Small("abcd\r\nef");
    button->Flat3D(style);
    button->Xs(3);
    button->Ys(5);
    button->Dx(1);
    button->Dy(1);
    Long dx = -5, dy = -6;
    button->GetOptimalDimensions(dx, dy);
    EXPECT_EQ(dx, 12) << style;
    EXPECT_EQ(dy, 12) << style;
    Long xs = 0, ys = 0;
    dx = dy = 0;
    button->SaveInitialPosition();
    button->Move(50, 60);
    button->UpdateDisplayWithTransx();
    ContractOf(*button).GetOptimalDimensions(xs, ys, dx, dy);
    EXPECT_EQ(std::vector<Long>({xs, ys, dx, dy}), std::vector<Long>({3, 5, 12, 12})) << style;
  }
}

TEST_F(Button, LooksIntoNoLibraryForTheSizeThatItWouldLike) {
  const auto button = Small("abc");
  services_.strings->languages = 1;
  services_.strings->texts[{70, 1}] = {"much longer", 3};
  button->StorageStringID(70);
  CallLog log;
  services_.NoteInto([&](const std::string& call) { log.push_back(call); });
  Long dx = 0, dy = 0;
  button->GetOptimalDimensions(dx, dy);
  EXPECT_EQ(dx, 11);
  EXPECT_EQ(dy, 10);
  EXPECT_EQ(log, (CallLog{"height of font 0", "widths of font 0"}));
}

TEST_F(Button, ASizeBeyond32BitsLeavesBothAlone) {
  class Huge final : public test::FontDouble {
   public:
    Huge() : FontDouble(std::make_shared<CallLog>()) {}
    Long GetCharHeight(Long) override { return 2147483640; }
  };
  const auto button = Small("a");
  Platform::Current().fontService = std::make_shared<Huge>();
  Long dx = 1, dy = 2;
  EXPECT_EQ(ErrorOf([&] { button->GetOptimalDimensions(dx, dy); }), 6);
  EXPECT_EQ(dx, 1);
  EXPECT_EQ(dy, 2);
}

// --- The picture ---

TEST_F(Button, TakesAPictureWithAndWithoutItsBits) {
  for (const bool isNamed : {false, true}) {
    clsButton button;
    PixelBytes data = {1, 2}, dataOrg = {3, 4, 5, 6};
    if (isNamed) {
      Variant bytes = automation::FromBytes(data), bytesOrg = automation::FromBytes(dataOrg);
      automation::InvokeByName(button, Pictures(), "SetImage8bppPropsEx",
                               {Long{10}, Long{11}, Long{12}, bytesOrg, Long{13}, Long{14}, Long{15}, bytes,
                                Long{16}, Long{17}, Variant("valve.bmp"), Long{16}});
    } else {
      button.SetImage8bppPropsEx(10, 11, 12, dataOrg, 13, 14, 15, data, 16, 17, "valve.bmp", 16);
    }
    const clsVarImageElement& image = button.Image();
    EXPECT_EQ(image.SourceCRC(), 10);
    EXPECT_EQ(image.DxORG(), 11);
    EXPECT_EQ(image.DyORG(), 12);
    EXPECT_EQ(image.GetData8bppORG(), (PixelBytes{3, 4, 5, 6}));
    EXPECT_EQ(image.CRC8bpp(), 13);
    EXPECT_EQ(image.GetData8bpp(), (PixelBytes{1, 2}));
    EXPECT_EQ(image.TransparencyLevel(), 17);
    EXPECT_EQ(image.Path(), "valve.bmp");
    EXPECT_EQ(image.Bits(), 16);
    // The size is the button's, and it has one picture only.
    EXPECT_EQ(PictureOf(button).Dx(), -8);
    EXPECT_EQ(PictureOf(button).ImageIndexInVar(), 0);
    PixelBytes other = {9};
    button.SetImage8bppProps(20, 21, 22, other, 23, 24, 25, other, 26, 27, "pump.bmp");
    EXPECT_EQ(image.SourceCRC(), 20);
    EXPECT_EQ(image.DxORG(), 21);
    EXPECT_EQ(image.DyORG(), 22);
    EXPECT_EQ(image.GetData8bppORG(), PixelBytes{9});
    EXPECT_EQ(image.CRC8bpp(), 23);
    EXPECT_EQ(image.GetData8bpp(), PixelBytes{9});
    EXPECT_EQ(image.TransparencyLevel(), 27);
    EXPECT_EQ(image.Path(), "pump.bmp");
    EXPECT_EQ(image.Bits(), 16);
    EXPECT_EQ(other, PixelBytes{9});
  }
}

TEST_F(Button, TheInterfaceOfThePictureReachesIt) {
  clsButton button;
  PutByName(button, Pictures(), "Image8bppCRC", Long{30});
  PutByName(button, Pictures(), "ImageLibCRC", Long{31});
  PutByName(button, Pictures(), "ImageIndexInVar", Long{32});
  PutByName(button, Pictures(), "TransparencyLevel", Long{33});
  PutByName(button, Pictures(), "ImagePath", "valve.bmp");
  PictureOf(button).SetImageData8bpp({1, 2, 3});
  EXPECT_EQ(button.Image().CRC8bpp(), 30);
  EXPECT_EQ(button.Image().SourceCRC(), 31);
  EXPECT_EQ(button.Image().TransparencyLevel(), 33);
  EXPECT_EQ(button.Image().Path(), "valve.bmp");
  EXPECT_EQ(button.Image().GetData8bpp(), (PixelBytes{1, 2, 3}));
  EXPECT_EQ(GetByName(button, Pictures(), "Image8bppCRC"), Variant(Long{30}));
  EXPECT_EQ(GetByName(button, Pictures(), "ImageLibCRC"), Variant(Long{31}));
  EXPECT_EQ(GetByName(button, Pictures(), "ImageIndexInVar"), Variant(Long{0}));
  EXPECT_EQ(GetByName(button, Pictures(), "TransparencyLevel"), Variant(Long{33}));
  EXPECT_EQ(GetByName(button, Pictures(), "ImagePath"), Variant("valve.bmp"));
  EXPECT_EQ(PictureOf(button).GetImageData8bpp(), (PixelBytes{1, 2, 3}));
}

TEST_F(Button, TheContractReadsHowTransparentThePictureIsAndTakesNothing) {
  clsButton button;
  PictureOf(button).TransparencyLevel(4);
  ContractOf(button).TransparencyLevel(5);
  EXPECT_EQ(ContractOf(button).TransparencyLevel(), 4);
  // The class itself is an element first.
  button.TransparencyLevel(6);
  EXPECT_EQ(button.TransparencyLevel(), 4);
  EXPECT_EQ(PictureOf(button).TransparencyLevel(), 4);
}

TEST_F(Button, ThePictureIs8PixelsSmallerThanARaisedButton) {
  const auto button = test::Placed<clsButton>(1, 2, 40, 30);
  for (const Long style : {0, 1, 2, 3, 4}) {
    button->Flat3D(style);
    EXPECT_EQ(PictureOf(*button).Dx(), style == 1 ? 32 : 40) << style;
    EXPECT_EQ(PictureOf(*button).Dy(), style == 1 ? 22 : 30) << style;
  }
  PutByName(*button, Pictures(), "Dx", Long{5});
  PutByName(*button, Pictures(), "Dy", Long{6});
  EXPECT_EQ(GetByName(*button, Pictures(), "Dx"), Variant(Long{40}));
  EXPECT_EQ(GetByName(*button, Pictures(), "Dy"), Variant(Long{30}));
  EXPECT_EQ(button->Dx(), 40);
  EXPECT_EQ(button->Dy(), 30);
  // That of the size at rest, in the middle of a drag too.
  button->Stretch(10, 10, ePD_DownRight);
  button->UpdateDisplayWithTransx();
  for (const Long style : {0, 1}) {
    button->Flat3D(style);
    EXPECT_EQ(PictureOf(*button).Dx(), style == 1 ? 32 : 40) << style;
    EXPECT_EQ(PictureOf(*button).Dy(), style == 1 ? 22 : 30) << style;
  }
}

TEST_F(Button, APictureSmallerThanAllNumbersIsAnError) {
  for (const bool across : {true, false}) {
    clsButton button;
    button.Flat3D(Long{0});
    across ? button.Dx(-2147483647) : button.Dy(-2147483647);
    ContractOf(button).Flat3D(Integer{1});
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(PictureOf(button).Dx()); }), across ? 6 : 0);
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(PictureOf(button).Dy()); }), across ? 0 : 6);
  }
}

TEST_F(ButtonInProject, BothFacesReleaseThePicturesWhenTheKeyOfOneBecomesMinus1) {
  for (const bool ofContract : {true, false}) {
    const auto write = [&](clsButton& button, Long crc) {
      if (ofContract) {
        ContractOf(button).hBmpCRC(crc);
      } else {
        PictureOf(button).Image8bppCRC(crc);
      }
      EXPECT_EQ(ContractOf(button).hBmpCRC(), crc);
      EXPECT_EQ(PictureOf(button).Image8bppCRC(), crc);
      EXPECT_EQ(button.Image().CRC8bpp(), crc);
    };
    const auto button = Distinct();
    GivePicture(*button, Fitting());
    button->SaveToDB();
    ASSERT_EQ(Links().size(), 1u);
    TakeLog();
    write(*button, 0);
    write(*button, 77);
    write(*button, -2);
    EXPECT_TRUE(TakeLog().empty());
    EXPECT_EQ(Links().size(), 1u);
    write(*button, -1);
    EXPECT_TRUE(Links().empty());
    EXPECT_TRUE(PictureRows().empty());
    const CallLog log = TakeLog();
    ASSERT_FALSE(log.empty());
    EXPECT_EQ(log[0], "open SELECT * FROM ElementsAndImages WHERE Element_ID=" +
                          std::to_string(button->ID()) + " [0,3,1]");
    write(*button, -1);
    EXPECT_TRUE(TakeLog().empty());
  }
}

TEST_F(ButtonInProject, AKeyWhosePictureCannotBeReleasedStays) {
  clsButton button;
  GivePicture(button);
  Recorder().FailAt(1);
  EXPECT_EQ(ErrorOf([&] { ContractOf(button).hBmpCRC(-1); }),
            static_cast<Long>(automation::ErrorNumber::Database));
  EXPECT_EQ(ContractOf(button).hBmpCRC(), 61);
}

TEST_F(ButtonInProject, TheStyleFitsThePictureThroughTheDefaultInterfaceOnly) {
  NotePictures();
  const auto button = test::Placed<clsButton>(0, 0, 40, 30);
  GivePicture(*button);
  TakeLog();
  const CallLog dimensions = {"open SELECT Dx,Dy FROM ProjectImages WHERE CRC=61 AND RecordStatus=3 [0,3,1]",
                              "Close"};
  ContractOf(*button).Flat3D(Integer{0});
  EXPECT_TRUE(TakeLog().empty());
  PutByName(*button, "Flat3D", Long{1});
  EXPECT_EQ(TakeLog(),
            test::Joined({dimensions, {"load C:\\pictures\\valve.bmp 62, 32 x 22", "convert, 32 x 22"}}));
  EXPECT_EQ(button->Image().CRC8bpp(), 90);
  EXPECT_EQ(button->Image().GetData8bpp(), PixelBytes(32 * 22, 9));
}

TEST_F(ButtonInProject, TheStyleFitsTheTextBeforeThePicture) {
  const auto button = test::Placed<clsButton>(0, 0, 40, 30);
  GivePicture(*button);
  NoteServices();
  NotePictures();
  button->Flat3D(Long{1});
  const CallLog log = TakeLog();
  services_.NoteInto(nullptr);
  EXPECT_EQ(log, (CallLog{"height of font 4", "widths of font 4",
                          "open SELECT Dx,Dy FROM ProjectImages WHERE CRC=61 AND RecordStatus=3 [0,3,1]",
                          "Close", "load C:\\pictures\\valve.bmp 62, 32 x 22", "convert, 32 x 22"}));
}

TEST_F(ButtonInProject, WithoutAnImageLibraryOrAProjectTheStyleIsStoredAndTheTextFitted) {
  for (const bool hasProject : {true, false}) {
    if (!hasProject) {
      Platform::Current().projectDatabase = std::make_shared<corvane1::HeldProjectDatabase>();
    }
    const auto button = test::Placed<clsButton>(0, 0, 40, 30);
    GivePicture(*button);
    button->ActualText("seen");
    LibraryState::Current().ImageLibrary = nullptr;
    EXPECT_EQ(ErrorOf([&] { button->Flat3D(Long{2}); }), 91);
    EXPECT_EQ(button->Flat3D(), 2);
    EXPECT_NE(services_.ShownBy(*button), "seen");
    EXPECT_EQ(button->Image().CRC8bpp(), 61);
  }
}

TEST_F(ButtonInProject, APictureThatCannotBeMadeAtASizeBelow0Stays) {
  NotePictures();
  library_->loading = loomis2::kImageFileNotFound;
  library_->converting = loomis2::kImageRefused;
  const auto button = test::Placed<clsButton>(0, 0, 5, 5);
  GivePicture(*button);
  TakeLog();
  button->Flat3D(Long{1});
  const CallLog log = TakeLog();
  EXPECT_EQ(log, (CallLog{"open SELECT Dx,Dy FROM ProjectImages WHERE CRC=61 AND RecordStatus=3 [0,3,1]",
                          "Close", "load C:\\pictures\\valve.bmp 62, -3 x -3", "bitmap of 8 bytes, 3 x 2",
                          "stretch, -3 x -3", "convert, -3 x -3"}));
  EXPECT_EQ(button->Image().CRC8bpp(), 61);
  EXPECT_EQ(button->Image().GetData8bpp(), (PixelBytes{7, 8}));
}

TEST_F(ButtonInProject, OnlyTheStyleOfARaisedOneLeavesThePictureLessRoom) {
  for (const Long style : {0, 1, 2, 3, 4, -1}) {
    NotePictures();
    const auto button = test::Placed<clsButton>(0, 0, 40, 30);
    GivePicture(*button);
    button->Flat3D(style);
    EXPECT_EQ(TakeLog().back(), style == 1 ? "convert, 32 x 22" : "convert, 40 x 30") << style;
  }
}

TEST_F(ButtonInProject, AReplicaHasAPictureOfItsOwn) {
  const auto button = Distinct();
  ButtonPicture picture = Fitting();
  picture.level = 3;
  picture.bits = 8;
  GivePicture(*button, picture);
  button->ActualText("seen");
  TakeLog();
  const auto copy = std::dynamic_pointer_cast<clsButton>(button->Replica());
  ASSERT_NE(copy, nullptr);
  EXPECT_NE(&copy->Image(), &button->Image());
  EXPECT_EQ(copy->Image().CRC8bpp(), 61);
  EXPECT_EQ(copy->Image().GetData8bpp(), picture.data);
  EXPECT_EQ(copy->Image().GetData8bppORG(), picture.dataOrg);
  EXPECT_EQ(copy->Image().SourceCRC(), 62);
  EXPECT_EQ(copy->Image().DxORG(), 140);
  EXPECT_EQ(copy->Image().DyORG(), 150);
  EXPECT_EQ(copy->Image().TransparencyLevel(), 3);
  EXPECT_EQ(copy->Image().Path(), picture.path);
  EXPECT_EQ(copy->Image().Bits(), 8);
  EXPECT_EQ(copy->EnabledOpAddr(), 28);
  EXPECT_EQ(copy->HighlightOpAddr(), 29);
  EXPECT_EQ(copy->hBmp(), 0);
  EXPECT_EQ(services_.ShownBy(*copy), "seen");
  test::ExpectAlike(*copy, *button, {"ColOpPropBag", "ActualText"});
  PictureOf(*copy).SetImageData8bpp({1});
  PictureOf(*copy).ImagePath("other");
  EXPECT_EQ(button->Image().GetData8bpp(), picture.data);
  EXPECT_EQ(button->Image().Path(), picture.path);
}

TEST_F(Button, AReplicaOfAPaintedPictureHasNoBitmap) {
  clsButton button;
  ButtonPicture painted;
  painted.crc = 0x3F3F3F3F;
  GivePicture(button, painted);
  button.hBmp(gdi::CreateBitmap(2, 2, 1, 32, nullptr));
  const std::size_t before = gdi::LiveObjects();
  const auto copy = std::dynamic_pointer_cast<clsButton>(button.Replica());
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(copy->Image().CRC8bpp(), 0x3F3F3F3F);
  EXPECT_EQ(copy->hBmp(), 0);
  EXPECT_NE(button.hBmp(), 0);
  EXPECT_EQ(gdi::LiveObjects(), before);
}

// --- What it does not carry, and what a touch does ---

TEST_F(Button, ReadsTheStubsOfWhatItDoesNotCarryAndIgnoresWrites) {
  clsButton button;
  for (const char* name :
       {"KeypadSuccessOpAddr", "ColorHatch", "PenWidth", "PenStyle", "FillStyle", "HatchStyle", "hBmp"}) {
    EXPECT_EQ(GetByName(button, Contract(), name), Variant(Long{0})) << name;
    PutByName(button, Contract(), name, Long{3});
    EXPECT_EQ(GetByName(button, Contract(), name), Variant(Long{0})) << name;
  }
  for (const Long font : {0, 1, 2}) {
    button.FontNumber(font);
    Variant table = automation::From(std::vector<Byte>{7, 8, 9});
    button.SetNewFontNumberByLookUpTBL(table);
    EXPECT_EQ(button.FontNumber(), font);
  }
}

TEST_F(ButtonInProject, ItsToolTipTellsOfItsTouchAndItsPlaceOnDisplay) {
  const auto button = test::Placed<clsButton>(1, -2, 30, 40);
  EXPECT_EQ(button->GetToolTipText(), "Pos: 1, -2 ; Size: 30, 40");
  button->TouchOprndAddr(22);
  button->Move(5, 5);
  EXPECT_EQ(button->GetToolTipText(), "(Touch - MB 22) Pos: 1, -2 ; Size: 30, 40");
  button->UpdateDisplayWithTransx();
  EXPECT_EQ(button->GetToolTipText(), "(Touch - MB 22) Pos: 6, 3 ; Size: 30, 40");
}

TEST_F(ButtonInProject, ATouchSetsItsOperandOrChangesItsColoursToo) {
  const struct {
    Long touch, back, fore;
    enTouchStyle style;
  } kCases[] = {{-1, 6, 6, eTS_None},        {-2, 6, 6, eTS_None},        {-2, 1, 1, eTS_None},
                {-1, 1, 1, eTS_None},        {5, 6, 7, eTS_MB_Connected}, {0, 6, 7, eTS_MB_Connected},
                {5, 1, 7, eTS_ChangeColors}, {5, 6, 1, eTS_ChangeColors}, {0, 1, 1, eTS_ChangeColors}};
  for (const auto& [touch, back, fore, style] : kCases) {
    clsButton button;
    button.ColorBack(6);
    button.ColorFore(7);
    button.ColorBackTouch(back);
    button.ColorForeTouch(fore);
    button.TouchOprndAddr(touch);
    EXPECT_EQ(GetTouchStyle(button), style) << touch << ' ' << back << ' ' << fore;
  }
}

// --- Where it may stand ---

TEST_F(Button, MayNotStandOnAMarkOfTheMap) {
  const auto button = test::Placed<clsButton>(2, 3, 4, 5);
  automation::Array cells(automation::VariantKind::Byte, automation::Bounds{0, 20},
                          automation::Bounds{0, 20});
  Variant map = cells;
  EXPECT_EQ(button->GetTransformState(map), eCS_Legall);
  cells.Set(5, 7, Byte{1});
  map = cells;
  EXPECT_EQ(button->GetTransformState(map), eCS_Overlap);
  button->Move(4, 0);
  EXPECT_EQ(button->GetTransformState(map), eCS_Legall);
  button->Move(19, 0);
  EXPECT_EQ(button->GetTransformState(map), eCS_OutOfRAnge);
}

// --- The report ---

TEST_F(ButtonInProject, ReportsInThisOrder) {
  const auto button = Distinct();
  Define(25, "", 3);
  button->StorageStringType(3);
  GivePicture(*button);
  test::ReportDouble report;
  button->CreateStaticElementPrinterReport(report);
  EXPECT_EQ(report.Lines(), (CallLog{"Coordinates (Left,Top,Width,Height): (12,13,140,150)", "Text: one ...",
                                     "Font: no. 5", "Alignment: Bottom Left", "", "Hide Operand: MB 23",
                                     "Disable Mode Operand: MB 28", "Marking View Operand: MB 29",
                                     "Operand for String Library ID: MW 25", "Image: valve.bmp"}));
}

TEST_F(Button, ReportsNoOperandsAndNoStringWithoutThem) {
  clsButton button;
  button.Flat3D(Long{3});
  test::ReportDouble report;
  button.CreateStaticElementPrinterReport(report);
  ASSERT_EQ(report.Lines().size(), 6u);
  EXPECT_EQ(report.Lines()[1], "Text: Button");
  EXPECT_EQ(report.Lines()[4], "Style: 3D (Pressed)");
  EXPECT_EQ(report.Lines()[5], "Image: Empty");
  test::ReportDouble another;
  button.StorageStringID(0);
  automation::InvokeByName(button, "ItfHmiElement_CreateStaticElementPrinterReport",
                           {Variant(automation::ObjectRef(automation::ObjectRef(), &another))});
  ASSERT_EQ(another.Lines().size(), 7u);
  EXPECT_EQ(another.Lines()[5], "String ID in Library: 0");
}

TEST_F(Button, ReportsAPictureByTheNameOfItsFile) {
  const struct {
    Long crc;
    const char* path;
    const char* line;
  } kCases[] = {{-1, "a.bmp", "Image: Empty"},          {-2, "a.bmp", "Image: Empty"},
                {-2147483647, "a.bmp", "Image: Empty"}, {0x3F3F3F3F, "a.bmp", "Image: Empty"},
                {0x3F3F3F3E, "a.bmp", "Image: a.bmp"},  {0x3F3F3F40, "a.bmp", "Image: a.bmp"},
                {0, "a.bmp", "Image: a.bmp"},           {1, "C:\\x\\a.bmp", "Image: a.bmp"},
                {1, "lib;C:\\x/b.bmp", "Image: b.bmp"}, {1, "", "Image: "}};
  for (const auto& [crc, path, line] : kCases) {
    clsButton button;
    ButtonPicture picture;
    picture.crc = crc;
    picture.path = path;
    GivePicture(button, picture);
    test::ReportDouble report;
    button.CreateStaticElementPrinterReport(report);
    EXPECT_EQ(report.Lines().back(), line) << crc << path;
  }
}

}  // namespace
}  // namespace quenzel7
