#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "framework/library_state.h"
#include "images/image_saving.h"
#include "images/itf_image.h"
#include "platform/corvane1/panel_palette.h"
#include "platform/loomis2/file_image_library.h"
#include "tests/support/saved_shape.h"

namespace quenzel7::test {

/// A picture as hosts hand it over. Its pixels as the panel shows them and those of its own size differ, and
/// no two of its sizes are alike.
struct PictureSample {
  Long libCrc = 402;
  Long dxOrg = 6, dyOrg = 1;
  PixelBytes dataOrg = {3, 5, 4, 2, 6, 7};
  Long crc = 401;
  Long dx = 3, dy = 2;
  /// Two rows of three pixels and one of padding.
  PixelBytes data = {0, 1, 3, 99, 5, 6, 0, 99};
  Long index = 0;
  Long transparency = 0;
  std::string path = "pumps\\one.bmp";
  Long bits = 8;

  ImageToSave ToSave() { return {crc, libCrc, dxOrg, dyOrg, dataOrg, dx, dy, data, path, bits}; }
};

/// Three by two pixels of two bytes each.
inline PictureSample TwoByteSample() {
  PictureSample sample;
  sample.dataOrg = {0x1F, 0x00, 0xE0, 0x07, 0xFF, 0xFF, 0x00, 0xF8, 0x00, 0x00, 0x01, 0x00};
  sample.data = {0x00, 0xF8, 0xE0, 0x07, 0x1F, 0x00, 0xFF, 0xFF, 0x00, 0x00, 0x00, 0xF8};
  sample.bits = 16;
  return sample;
}

inline void Give(ItfImage& image, PictureSample sample) {
  image.SetImage8bppPropsEx(sample.libCrc, sample.dxOrg, sample.dyOrg, sample.dataOrg, sample.crc, sample.dx,
                            sample.dy, sample.data, sample.index, sample.transparency, sample.path,
                            sample.bits);
}

/// A panel colour as the graphics interface has it, 0x00BBGGRR.
inline std::uint32_t PanelColor(Byte index) {
  const std::uint32_t rgb = corvane1::kPanelPalette.at(index);
  return (rgb & 0xFF) << 16 | (rgb & 0xFF00) | rgb >> 16;
}

/// Elements of one class in a project file on disk, and an image library over the colours of the panel. The
/// next element gets the ID 5 and the GUID 9.
template <class Element>
class PictureTest : public SavedShape<Element> {
 protected:
  void SetUp() override {
    SavedShape<Element>::SetUp();
    auto library = std::make_shared<loomis2::FileImageLibrary>(Platform::Current().fileChooser);
    library->Palette(Platform::Current().colorService->GetPalette());
    LibraryState::Current().ImageLibrary = library;
    // What the services say is looked at, not printed.
    Frame().Output(nullptr);
    Errors().Output(nullptr);
    Messages().Output(nullptr);
    Boxes().Output(nullptr);
  }
  void TearDown() override {
    LibraryState::Current() = {};
    SavedShape<Element>::TearDown();
  }

  /// An element with that picture at (10, 20).
  static std::shared_ptr<Element> WithPicture(const PictureSample& sample = {}) {
    auto element = std::make_shared<Element>();
    element->Xs(10);
    element->Ys(20);
    Give(*element, sample);
    return element;
  }

  static corvane1::CollectedHostFrame& Frame() {
    return dynamic_cast<corvane1::CollectedHostFrame&>(*Platform::Current().hostFrame);
  }
  static corvane1::CollectedErrors& Errors() {
    return dynamic_cast<corvane1::CollectedErrors&>(*Platform::Current().errorLog);
  }
  static corvane1::CollectedMessages& Messages() {
    return dynamic_cast<corvane1::CollectedMessages&>(*Platform::Current().messageService);
  }
  static corvane1::CollectedMessageBoxes& Boxes() {
    return dynamic_cast<corvane1::CollectedMessageBoxes&>(*Platform::Current().messageBoxes);
  }

  /// All pictures of the project without their pixels, and all links.
  std::vector<std::string> Pictures() {
    return this->Rows(
        "SELECT * FROM ProjectImages ORDER BY \"Index\"",
        {"Index", "CRC", "LibCRC", "Dx", "Dy", "DxORG", "DyORG", "ImagePath", "RecordStatus", "Bits"});
  }
  std::vector<std::string> Links() {
    return this->Rows("SELECT * FROM ElementsAndImages ORDER BY Element_ID, Image_Index",
                      {"Element_ID", "Image_Index", "TransparencyLevel", "Image_CRC"});
  }
};

}  // namespace quenzel7::test
