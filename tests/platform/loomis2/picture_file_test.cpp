#include "platform/loomis2/picture_file.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/coded_pictures.h"
#include "tests/support/picture_samples.h"
#include "tests/support/raises.h"

namespace quenzel7::loomis2 {
namespace {

using Bytes = std::vector<Byte>;
using test::DibSample;
using test::Shown;

const std::string kUnknown = "this is no picture that can be read: expected bmp, gif, jpg, ico or cur";

TEST(DecodePicture, TellsFilesApartByHowTheyBegin) {
  const DibSample dib{.pixels = {1, 2, 3, 0}};
  const DibSample icon{.height = 2, .pixels = {1, 2, 3, 0, 0, 0, 0, 0}};
  EXPECT_EQ(Shown(DecodePicture(test::BmpBytes(dib))), "030201");
  EXPECT_EQ(Shown(DecodePicture(test::IconBytes(1, {test::DibBytes(icon)}))), "030201");
  EXPECT_EQ(Shown(DecodePicture(test::IconBytes(2, {test::DibBytes(icon)}))), "030201");
  EXPECT_EQ(Shown(DecodePicture(test::JpegBytes({.width = 1, .height = 1, .samples = {0x56}}))), "565656");
  Bytes gif = test::GifBytes({.colors = {0x123456, 0}, .pixels = {0}});
  EXPECT_EQ(Shown(DecodePicture(gif)), "123456");
  gif[4] = '7';
  EXPECT_EQ(Shown(DecodePicture(gif)), "123456");
}

TEST(DecodePicture, LeavesWhatIsWrongToTheReader) {
  EXPECT_RAISES(481, "the bmp file ends after 2 bytes: expected 10 from byte 0 on",
                DecodePicture(Bytes{'B', 'M'}));
  EXPECT_RAISES(481, "the icon file has no picture", DecodePicture(Bytes{0, 0, 2, 0, 0, 0}));
  EXPECT_RAISES(481, "the jpg file cannot be read: Premature end of JPEG file",
                DecodePicture(Bytes{0xFF, 0xD8, 0xFF}));
  EXPECT_RAISES(481, "the gif file cannot be read: No screen descriptor detected",
                DecodePicture(Bytes{'G', 'I', 'F', '8', '9', 'a'}));
}

TEST(DecodePicture, KnowsMetafilesAndCannotReadThem) {
  EXPECT_RAISES(481, "metafiles cannot be read yet: this is a placeable wmf file",
                DecodePicture(Bytes{0xD7, 0xCD, 0xC6, 0x9A}));
  EXPECT_RAISES(481, "metafiles cannot be read yet: this is a wmf file",
                DecodePicture(Bytes{1, 0, 9, 0, 0, 3}));
  EXPECT_RAISES(481, "metafiles cannot be read yet: this is a wmf file",
                DecodePicture(Bytes{2, 0, 9, 0, 0, 3}));
  Bytes emf(44);
  emf[0] = 1;
  emf[40] = ' ';
  emf[41] = 'E';
  emf[42] = 'M';
  emf[43] = 'F';
  EXPECT_RAISES(481, "metafiles cannot be read yet: this is an emf file", DecodePicture(emf));
  emf[43] = 'G';
  EXPECT_RAISES(481, kUnknown, DecodePicture(emf));
  emf.resize(43);
  EXPECT_RAISES(481, kUnknown, DecodePicture(emf));
  emf.resize(39);
  EXPECT_RAISES(481, kUnknown, DecodePicture(emf));
}

TEST(DecodePicture, RefusesEverythingElse) {
  for (const Bytes& file :
       {Bytes{}, Bytes{'B'}, Bytes{'B', 'A', 0, 0}, Bytes{0, 0, 0, 0, 1, 0}, Bytes{0, 0, 3, 0, 1, 0},
        Bytes{'G', 'I', 'F', '8', '8', 'a'}, Bytes{0xFF, 0xD8}, Bytes{3, 0, 9, 0}, Bytes{'I', 'I', 42, 0}}) {
    EXPECT_RAISES(481, kUnknown, DecodePicture(file));
  }
  EXPECT_RAISES(481, kUnknown, DecodePicture(test::PngBytes({.rows = {1, 2, 3, 4}})));
}

}  // namespace
}  // namespace quenzel7::loomis2
