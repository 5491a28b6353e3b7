#include "fuzz/mono_checks.h"

#include <gtest/gtest.h>

#include "platform/automation/automation_error.h"
#include "platform/gdi/gdi.h"
#include "tests/support/raises.h"
#include "tests/support/stored_inputs.h"

namespace quenzel7::fuzz {
namespace {

using automation::AutomationError;
using automation::ErrorNumber;
using Bytes = std::vector<Byte>;

/// Three pixels in two rows.
const Bytes kPicture{0xA0, 0, 0x40, 0, 3, 0, 2, 0, 0};

TEST(CheckMono, StoredInputsKeepEveryPromise) {
  int pictures = 0, refused = 0;
  for (const auto& input : test::StoredInputs("mono")) {
    const Bytes bytes = test::Contents(input);
    EXPECT_EQ(CheckMono(kMonoCoding, bytes), "") << input.filename();
    ++(test::ErrorOf([&] { gdi::DeleteObject(BytesToBitmap(bytes)); }) == 0 ? pictures : refused);
  }
  EXPECT_GE(pictures, 3);
  EXPECT_GE(refused, 2);
}

/// What is wrong with a coding, which makes a bitmap of a picture.
std::string Complaint(const MonoCoding& coding, const Bytes& bytes = kPicture) {
  return CheckMono(coding, bytes);
}
std::string ComplaintOfReading(gdi::HBITMAP (*read)(const Bytes&)) {
  return Complaint({read, kMonoCoding.write});
}
std::string ComplaintOfWriting(void (*write)(gdi::HBITMAP, Bytes&)) {
  return Complaint({kMonoCoding.read, write});
}

TEST(CheckMono, FindsNothingWhereNothingIsWrong) {
  EXPECT_EQ(Complaint(kMonoCoding), "");
  EXPECT_EQ(Complaint(kMonoCoding, {}), "");
  EXPECT_EQ(Complaint(kMonoCoding, {0, 0, 0, 0, 0}), "");
  EXPECT_EQ(Complaint(kMonoCoding, {0, 0, 7, 0, 9}), "");
  EXPECT_EQ(Complaint(kMonoCoding, {7, 0, 0, 0, 9}), "");
}

TEST(CheckMono, ComplainsOfWhatIsNoBitmap) {
  EXPECT_EQ(ComplaintOfReading([](const Bytes&) { return gdi::HBITMAP{}; }),
            "bytes that are taken are a bitmap");
}

TEST(CheckMono, ComplainsOfOtherSizes) {
  constexpr auto kComplaint = "a bitmap has the size that the trailer tells";
  EXPECT_EQ(ComplaintOfReading([](const Bytes&) { return gdi::CreateBitmap(3, 1, 1, 1, nullptr); }),
            kComplaint);
  EXPECT_EQ(ComplaintOfReading([](const Bytes&) { return gdi::CreateBitmap(2, 2, 1, 1, nullptr); }),
            kComplaint);
  EXPECT_EQ(
      Complaint({[](const Bytes&) { return gdi::CreateBitmap(3, 2, 1, 1, nullptr); }, kMonoCoding.write},
                {0, 0, 2, 0, 0}),
      kComplaint);
}

TEST(CheckMono, ComplainsOfOtherTrailers) {
  constexpr auto kComplaint = "a stored bitmap ends in its trailer";
  EXPECT_EQ(ComplaintOfWriting([](gdi::HBITMAP, Bytes& bytes) { bytes = {2, 0, 0, 0}; }), kComplaint);
  EXPECT_EQ(ComplaintOfWriting([](gdi::HBITMAP bitmap, Bytes& bytes) {
              BitmapToBytes(bitmap, bytes);
              bytes.back() = 1;
            }),
            kComplaint);
}

TEST(CheckMono, ComplainsOfPicturesThatChange) {
  EXPECT_EQ(ComplaintOfReading([](const Bytes& bytes) {
              Bytes changed = bytes;
              changed.front() ^= 0x80;
              return BytesToBitmap(changed);
            }),
            "a stored bitmap is the same when it is read");
}

TEST(CheckMono, ComplainsOfOtherErrorsAndOfEmptyOnes) {
  EXPECT_EQ(ComplaintOfReading([](const Bytes&) -> gdi::HBITMAP {
              throw AutomationError(ErrorNumber::SubscriptOutOfRange, "why");
            }),
            "");
  EXPECT_EQ(ComplaintOfReading(
                [](const Bytes&) -> gdi::HBITMAP { throw AutomationError(ErrorNumber::OutOfMemory, "why"); }),
            "bytes are refused as too short");
  EXPECT_EQ(ComplaintOfReading([](const Bytes&) -> gdi::HBITMAP {
              throw AutomationError(ErrorNumber::SubscriptOutOfRange, "");
            }),
            "an error says what is wrong");
}

TEST(CheckMono, ComplainsOfObjectsThatAreLeft) {
  static gdi::HBITMAP left = 0;
  EXPECT_EQ(ComplaintOfWriting([](gdi::HBITMAP bitmap, Bytes& bytes) {
              if (left == 0) left = gdi::CreateBitmap(1, 1, 1, 1, nullptr);
              BitmapToBytes(bitmap, bytes);
            }),
            "no object is left");
  gdi::DeleteObject(left);
}

}  // namespace
}  // namespace quenzel7::fuzz
