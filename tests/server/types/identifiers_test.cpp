#include "server/types/identifiers.h"

#include <gtest/gtest.h>

namespace quenzel7::server {
namespace {

constexpr GUID kSample{0x01234567, 0x89AB, 0xCDEF, {0xFE, 0xDC, 0xBA, 0x98, 0x76, 0x54, 0x32, 0x10}};

TEST(Identifiers, AProgrammaticNameHasTheLibraryBeforeTheClass) {
  EXPECT_EQ(ProgrammaticName("clsRectangle"), "Quenzel7.clsRectangle");
}

TEST(Identifiers, TheTextOfANumberHasItsFieldsInUpperCaseBetweenBraces) {
  EXPECT_EQ(GuidText(kSample), "{01234567-89AB-CDEF-FEDC-BA9876543210}");
  EXPECT_EQ(GuidText(GUID{}), "{00000000-0000-0000-0000-000000000000}");
}

/// Worked out by another implementation of name-based numbers.
TEST(Identifiers, ClassesAndInterfacesHaveTheNumbersOfTheirNames) {
  EXPECT_EQ(GuidText(ClassId("clsRectangle")), "{AC2B92BB-C03D-5AB4-8DCD-129F2D8CB604}");
  EXPECT_EQ(GuidText(ClassId("clsVar")), "{9780E56C-ECDB-5168-B53B-2DC6C83ED93E}");
  EXPECT_EQ(GuidText(InterfaceId("ItfHmiElement")), "{2E7F60E5-99B9-5B96-9DA8-F5B5C2666BB9}");
  EXPECT_EQ(GuidText(InterfaceId("_clsRectangle")), "{1F86FF5F-A2EC-5988-B4FF-877187A35FDD}");
}

TEST(Identifiers, AClassAndAnInterfaceOfOneNameDiffer) {
  EXPECT_EQ(GuidText(InterfaceId("clsRectangle")), "{D687092C-D747-5916-99C7-8B9EA5F02A44}");
}

TEST(Identifiers, NamesCountAsTheyAreSpelled) {
  EXPECT_EQ(GuidText(ClassId("clsrectangle")), "{0996EB4D-26D2-5286-B1E1-94C12028489C}");
  EXPECT_EQ(GuidText(ClassId("")), "{BA0D1B14-E2C9-564F-B7E6-8342442B3A27}");
}

TEST(Identifiers, TheFieldsOfANumberAreThoseOfItsText) {
  const GUID id = ClassId("clsRectangle");
  EXPECT_EQ(id.Data1, 0xAC2B92BBu);
  EXPECT_EQ(id.Data2, 0xC03D);
  EXPECT_EQ(id.Data3, 0x5AB4);
  EXPECT_EQ(id.Data4[0], 0x8D);
  EXPECT_EQ(id.Data4[7], 0x04);
}

TEST(Identifiers, NumbersAreTheSameWhenEveryFieldIs) {
  EXPECT_TRUE(IsSameGuid(kSample, GUID(kSample)));
  GUID other = kSample;
  other.Data1 ^= 1;
  EXPECT_FALSE(IsSameGuid(kSample, other));
  other = kSample;
  other.Data2 ^= 1;
  EXPECT_FALSE(IsSameGuid(kSample, other));
  other = kSample;
  other.Data3 ^= 1;
  EXPECT_FALSE(IsSameGuid(kSample, other));
  for (int place = 0; place < 8; ++place) {
    other = kSample;
    other.Data4[place] ^= 1;
    EXPECT_FALSE(IsSameGuid(kSample, other)) << place;
  }
}

TEST(ProgrammaticNames, TellTheirClass) {
  EXPECT_EQ(ClassOfProgrammaticName("Quenzel7.clsLine"), "clsLine");
  EXPECT_EQ(ClassOfProgrammaticName("QUENZEL7.clsLine"), "clsLine");
  for (const char* none :
       {"", "clsLine", "Quenzel7", "Quenzel7.", "Quenzel8.clsLine", "Quenzel7clsLine", ".clsLine"}) {
    EXPECT_EQ(ClassOfProgrammaticName(none), "") << none;
  }
}

}  // namespace
}  // namespace quenzel7::server
