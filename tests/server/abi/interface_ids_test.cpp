#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "server/quenzel7_automation.h"

namespace quenzel7::server {
namespace {

static_assert(sizeof(GUID) == 16);

std::string BytesOf(const IID& id) { return std::string(reinterpret_cast<const char*>(&id), sizeof id); }

TEST(InterfaceIds, AreThePublishedOnes) {
  EXPECT_EQ(BytesOf(IID_NULL), std::string(16, '\0'));
  const std::string behind("\0\0\0\0\xC0\0\0\0\0\0\0\x46", 12);
  EXPECT_EQ(BytesOf(IID_IUnknown), std::string("\0\0\0\0", 4) + behind);
  EXPECT_EQ(BytesOf(IID_IClassFactory), std::string("\x01\0\0\0", 4) + behind);
  EXPECT_EQ(BytesOf(IID_IDispatch), std::string("\0\x04\x02\0", 4) + behind);
  EXPECT_EQ(BytesOf(IID_IEnumVARIANT), std::string("\x04\x04\x02\0", 4) + behind);
}

}  // namespace
}  // namespace quenzel7::server
