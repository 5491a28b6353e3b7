#include "images/itf_image.h"

#include <gtest/gtest.h>

#include "platform/automation/automation_error.h"
#include "platform/automation/call_by_name.h"
#include "platform/automation/convert.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using automation::From;
using automation::GetByName;
using automation::InvokeByName;
using automation::PutByName;
using automation::Variant;
using Lines = std::vector<std::string>;

constexpr const char* kNumbers[] = {"Image8bppCRC",      "ImageLibCRC", "ImageIndexInVar",
                                    "TransparencyLevel", "Dx",          "Dy"};

TEST(ItfImage, HasThisSurfaceInSlotOrder) {
  const ItfImageObject image;
  EXPECT_EQ(image.Class().name, "ItfImage");
  ASSERT_EQ(image.Class().interfaces.size(), 1u);
  EXPECT_EQ(image.Class().Default().Name(), "ItfImage");
  const std::string props =
      "(Long, Long, Long, ByRef Byte(), Long, Long, Long, ByRef Byte(), Long, Long, String";
  EXPECT_EQ(
      image.Class().Default().Slots(),
      (Lines{"get Image8bppCRC() As Long", "put Image8bppCRC(Long)", "get ImageLibCRC() As Long",
             "put ImageLibCRC(Long)", "get ImageIndexInVar() As Long", "put ImageIndexInVar(Long)",
             "call GetImageData8bpp() As Byte()", "call SetImageData8bpp(Byte())",
             "get TransparencyLevel() As Long", "put TransparencyLevel(Long)", "get ImagePath() As String",
             "put ImagePath(String)", "get Dx() As Long", "put Dx(Long)", "get Dy() As Long", "put Dy(Long)",
             "call SetImage8bppProps" + props + ")", "call SetImage8bppPropsEx" + props + ", Long)"}));
}

TEST(ItfImage, AValueThatDoesNotFitIsAnErrorOfTheArgument) {
  const auto image = std::make_shared<ItfImageObject>();
  for (const automation::Member& member : image->Class().Default().Members()) {
    if (member.IsMethod()) continue;
    try {
      member.put(*image, automation::NullValue{});
      FAIL() << member.name;
    } catch (const automation::AutomationError& error) {
      EXPECT_EQ(error.Number(), 94) << member.name;
      EXPECT_EQ(error.Argument(), 0u) << member.name;
    }
  }
}

TEST(ItfImage, ItsMembersAreDocumented) {
  Lines words;
  for (const automation::Member& member : ItfImageObject().Class().Default().Members()) {
    words.push_back(std::string(member.name) + ": " + std::string(member.documentation));
  }
  EXPECT_EQ(words,
            (Lines{"Image8bppCRC: CRC of the panel pixels, which is the picture's key.",
                   "ImageLibCRC: CRC of the source in the image library.",
                   "ImageIndexInVar: Place among the pictures of its owner.",
                   "GetImageData8bpp: Gives the panel pixels.", "SetImageData8bpp: Takes panel pixels.",
                   "TransparencyLevel: 0 opaque, otherwise transparent.",
                   "ImagePath: File that the picture came from.", "Dx: Width of the picture on the panel.",
                   "Dy: Height of the picture on the panel.",
                   "SetImage8bppProps: Takes a picture as the image library gives it.",
                   "SetImage8bppPropsEx: Takes a picture, and how many bits a pixel takes."}));
}

TEST(ItfImage, ByItselfKeepsNothing) {
  ItfImageObject image;
  PixelBytes pixels = {1, 2};
  image.Image8bppCRC(1);
  image.ImageLibCRC(2);
  image.ImageIndexInVar(3);
  image.SetImageData8bpp(pixels);
  image.TransparencyLevel(4);
  image.ImagePath("a.png");
  image.Dx(5);
  image.Dy(6);
  image.SetImage8bppProps(1, 2, 3, pixels, 4, 5, 6, pixels, 7, 8, "a.png");
  image.SetImage8bppPropsEx(1, 2, 3, pixels, 4, 5, 6, pixels, 7, 8, "a.png", 16);
  EXPECT_EQ(image.Image8bppCRC(), 0);
  EXPECT_EQ(image.ImageLibCRC(), 0);
  EXPECT_EQ(image.ImageIndexInVar(), 0);
  EXPECT_EQ(image.GetImageData8bpp(), PixelBytes{});
  EXPECT_EQ(image.TransparencyLevel(), 0);
  EXPECT_EQ(image.ImagePath(), "");
  EXPECT_EQ(image.Dx(), 0);
  EXPECT_EQ(image.Dy(), 0);
  EXPECT_EQ(pixels, (PixelBytes{1, 2}));
}

TEST(ItfImage, ByItselfIsReachedByName) {
  ItfImageObject image;
  for (const char* name : kNumbers) {
    PutByName(image, name, Variant(Long{5}));
    EXPECT_EQ(GetByName(image, name), Variant(Long{0})) << name;
  }
  PutByName(image, "ImagePath", Variant("a"));
  EXPECT_EQ(GetByName(image, "ImagePath"), Variant(""));
  InvokeByName(image, "SetImageData8bpp", {From(PixelBytes{1})});
  EXPECT_EQ(automation::To<PixelBytes>(InvokeByName(image, "GetImageData8bpp")), PixelBytes{});
}

/// Keeps what it is told, each in a place of its own.
class KeepingImage final : public automation::Object, public ItfImage {
 public:
  Long numbers[6] = {};
  PixelBytes data;
  std::string path;
  Lines props;

  const automation::ClassInfo& Class() const override {
    static const automation::Interface* const interfaces[] = {&ItfImage::InterfaceOf<KeepingImage>()};
    static const automation::ClassInfo info{"KeepingImage", interfaces, nullptr};
    return info;
  }

  // Members of the class itself, which those of the interface are not.
  Long Dx() const { return -77; }
  void Dx(Long) {}

 private:
  Long ItfImage_Image8bppCRC() const override { return numbers[0]; }
  void ItfImage_Image8bppCRC(Long value) override { numbers[0] = value; }
  Long ItfImage_ImageLibCRC() const override { return numbers[1]; }
  void ItfImage_ImageLibCRC(Long value) override { numbers[1] = value; }
  Long ItfImage_ImageIndexInVar() const override { return numbers[2]; }
  void ItfImage_ImageIndexInVar(Long value) override { numbers[2] = value; }
  PixelBytes ItfImage_GetImageData8bpp() const override { return data; }
  void ItfImage_SetImageData8bpp(PixelBytes value) override { data = std::move(value); }
  Long ItfImage_TransparencyLevel() const override { return numbers[3]; }
  void ItfImage_TransparencyLevel(Long value) override { numbers[3] = value; }
  std::string ItfImage_ImagePath() const override { return path; }
  void ItfImage_ImagePath(std::string value) override { path = std::move(value); }
  Long ItfImage_Dx() const override { return numbers[4]; }
  void ItfImage_Dx(Long value) override { numbers[4] = value; }
  Long ItfImage_Dy() const override { return numbers[5]; }
  void ItfImage_Dy(Long value) override { numbers[5] = value; }
  void ItfImage_SetImageProps(const ImageProps& image) override {
    std::string line;
    for (const Long number : {image.srcImgCRC, image.dxORG, image.dyORG, Long{image.data8bppORG.at(0)},
                              image.imgCRC, image.imgWidth, image.imgHeight, Long{image.data8bpp.at(0)},
                              image.imgIndexInVar, image.transparencyLevel}) {
      line += std::to_string(number) + " ";
    }
    props.push_back(line + image.imagePath + (image.bits ? " " + std::to_string(*image.bits) : ""));
  }
};

TEST(ItfImage, IsReachedByNameWhateverMembersTheClassHasBesides) {
  KeepingImage image;
  for (Long i = 0; i < 6; ++i) PutByName(image, kNumbers[i], Variant(Long{i + 1}));
  for (Long i = 0; i < 6; ++i) {
    EXPECT_EQ(image.numbers[i], i + 1);
    EXPECT_EQ(GetByName(image, kNumbers[i]), Variant(Long{i + 1}));
  }
  PutByName(image, "ImagePath", Variant("a.png"));
  EXPECT_EQ(image.path, "a.png");
  EXPECT_EQ(GetByName(image, "ImagePath"), Variant("a.png"));
  InvokeByName(image, "SetImageData8bpp", {From(PixelBytes{1, 2})});
  EXPECT_EQ(image.data, (PixelBytes{1, 2}));
  EXPECT_EQ(automation::To<PixelBytes>(InvokeByName(image, "GetImageData8bpp")), (PixelBytes{1, 2}));
  EXPECT_EQ(test::ErrorOf([&] { InvokeByName(image, "SetImageData8bpp", {Variant(Long{1})}); }), 13);
}

TEST(ItfImage, ItsSettersPassOnAllInOrder) {
  KeepingImage image;
  ItfImage& itf = image;
  PixelBytes org = {21, 1}, data = {22, 1};
  itf.SetImage8bppProps(1, 2, 3, org, 4, 5, 6, data, 7, 8, "a.png");
  itf.SetImage8bppPropsEx(1, 2, 3, org, 4, 5, 6, data, 7, 8, "a.png", 16);
  itf.SetImage8bppPropsEx(1, 2, 3, org, 4, 5, 6, data, 7, 8, "a.png", 0);
  InvokeByName(image, "SetImage8bppProps",
               {Long{1}, Long{2}, Long{3}, From(org), Long{4}, Long{5}, Long{6}, From(data), Long{7}, Long{8},
                "a.png"});
  InvokeByName(image, "SetImage8bppPropsEx",
               {Long{1}, Long{2}, Long{3}, From(org), Long{4}, Long{5}, Long{6}, From(data), Long{7}, Long{8},
                "a.png", Long{15}});
  const std::string line = "1 2 3 21 4 5 6 22 7 8 a.png";
  EXPECT_EQ(image.props, (Lines{line, line + " 16", line + " 0", line, line + " 15"}));
}

TEST(ItfImage, ItsDirectCallsReachWhatTheClassOverrides) {
  KeepingImage image;
  ItfImage& itf = image;
  itf.Image8bppCRC(1);
  itf.ImageLibCRC(2);
  itf.ImageIndexInVar(3);
  itf.TransparencyLevel(4);
  itf.Dx(5);
  itf.Dy(6);
  itf.ImagePath("p");
  itf.SetImageData8bpp({9});
  EXPECT_EQ((Lines{std::to_string(itf.Image8bppCRC()), std::to_string(itf.ImageLibCRC()),
                   std::to_string(itf.ImageIndexInVar()), std::to_string(itf.TransparencyLevel()),
                   std::to_string(itf.Dx()), std::to_string(itf.Dy()), itf.ImagePath()}),
            (Lines{"1", "2", "3", "4", "5", "6", "p"}));
  EXPECT_EQ(itf.GetImageData8bpp(), PixelBytes{9});
}

}  // namespace
}  // namespace quenzel7
