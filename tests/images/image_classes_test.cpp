#include "images/image_classes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "images/grp_elmnts_srv.h"

namespace quenzel7 {
namespace {

TEST(ImageClasses, AreThese) {
  std::vector<std::string> names;
  for (const automation::ClassInfo* info : ImageClasses()) names.emplace_back(info->name);
  EXPECT_EQ(names,
            (std::vector<std::string>{"clsGrpElmntsSrv", "clsVarImageElement", "clsPageImage", "ItfImage"}));
}

TEST(ImageClasses, CanBeCreated) {
  for (const automation::ClassInfo* info : ImageClasses()) {
    ASSERT_NE(info->create, nullptr) << info->name;
    const automation::ObjectRef object = info->create();
    ASSERT_NE(object, nullptr) << info->name;
    EXPECT_EQ(&object->Class(), info) << info->name;
    EXPECT_NE(object, info->create());
  }
  EXPECT_EQ(ImageClasses().front(), &clsGrpElmntsSrv::ClassOf());
}

}  // namespace
}  // namespace quenzel7
