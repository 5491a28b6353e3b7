#include "server/adapted_argument.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "platform/ado/connection.h"
#include "platform/ado/recordset.h"
#include "platform/automation/array.h"
#include "platform/automation/convert.h"
#include "platform/automation/member.h"
#include "server/marshal.h"
#include "tests/server/host.h"
#include "tests/server/host_object.h"
#include "tests/server/sample.h"

namespace quenzel7::server {
namespace {

using automation::ObjectRef;
using automation::Parameter;
using automation::To;
using automation::TypeOf;
using automation::Variant;
using test::HostObject;

class ObjectOfTheHostAsArgument : public ::testing::Test {
 protected:
  HostObject host_;
  ObjectRef object_ = FromVariant(host_.Handed().AsValue().Raw()).Object();
};

TEST_F(ObjectOfTheHostAsArgument, StandsForARecordset) {
  host_.Has("EOF", [](auto, VARIANT* result, auto) {
    result->vt = VT_BOOL;
    result->value.boolVal = VARIANT_TRUE;
    return S_OK;
  });
  const Variant adapted = AdaptedArgument(Parameter{TypeOf<ado::Recordset>()}, object_);
  EXPECT_TRUE(To<ado::RecordsetRef>(adapted)->Eof());
  EXPECT_EQ(host_.calls.size(), 1u);
}

TEST_F(ObjectOfTheHostAsArgument, StandsForAConnection) {
  host_.Has("Close", [](auto, auto, auto) { return S_OK; });
  const Variant adapted = AdaptedArgument(Parameter{TypeOf<ado::ConnectionRef>()}, object_);
  To<ado::ConnectionRef>(adapted)->Close();
  EXPECT_EQ(host_.calls.size(), 1u);
}

TEST_F(ObjectOfTheHostAsArgument, ComesBackAsItself) {
  const Variant adapted = AdaptedArgument(Parameter{TypeOf<ado::Recordset>()}, object_);
  test::Value given;
  ToVariant(adapted, given.Raw());
  EXPECT_EQ(given.Raw().value.pdispVal, &host_);
}

TEST_F(ObjectOfTheHostAsArgument, IsItselfForAnyOtherClass) {
  EXPECT_EQ(AdaptedArgument(Parameter{TypeOf<automation::Object>()}, object_), Variant(object_));
  EXPECT_EQ(AdaptedArgument(Parameter{TypeOf<automation::Weight>()}, object_), Variant(object_));
}

TEST(OtherArguments, StayAsTheyAre) {
  const ObjectRef own = std::make_shared<automation::Sample>();
  for (const Variant& argument : {Variant(), Variant(Long{3}), Variant(ObjectRef()), Variant(own)}) {
    EXPECT_EQ(AdaptedArgument(Parameter{TypeOf<ado::Recordset>()}, argument), argument);
  }
}

TEST(PlacesForArrays, ThatHoldNothingYetHaveNoCells) {
  const Variant bytes = AdaptedArgument(Parameter{TypeOf<std::vector<Byte>>(), true}, Variant());
  EXPECT_EQ(bytes, Variant(automation::Array::OfSize(automation::VariantKind::Byte, 0)));
  const Variant longs = AdaptedArgument(Parameter{TypeOf<std::vector<Long>>(), true}, Variant());
  EXPECT_EQ(longs.Elements().ElementKind(), automation::VariantKind::Long);
  EXPECT_TRUE(AdaptedArgument(Parameter{TypeOf<std::vector<Byte>>()}, Variant()).IsEmpty());
  EXPECT_TRUE(AdaptedArgument(Parameter{TypeOf<Long>(), true}, Variant()).IsEmpty());
  EXPECT_EQ(AdaptedArgument(Parameter{TypeOf<std::vector<Byte>>(), true}, Long{3}), Variant(Long{3}));
}

}  // namespace
}  // namespace quenzel7::server
