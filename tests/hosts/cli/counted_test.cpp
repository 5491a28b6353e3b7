#include "hosts/cli/counted.h"

#include <gtest/gtest.h>

namespace quenzel7::cli {
namespace {

TEST(Counted, OnlyOneIsSingular) {
  EXPECT_EQ(Counted(0, "page"), "0 pages");
  EXPECT_EQ(Counted(1, "page"), "1 page");
  EXPECT_EQ(Counted(2, "operand row"), "2 operand rows");
}

}  // namespace
}  // namespace quenzel7::cli
