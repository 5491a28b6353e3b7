#include "server/foreign_object.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/automation/automation_error.h"
#include "platform/automation/call_by_name.h"
#include "server/apartment.h"
#include "server/marshal.h"
#include "tests/server/host.h"
#include "tests/server/host_object.h"
#include "tests/server/sample.h"

namespace quenzel7::server {
namespace {

using automation::AutomationError;
using automation::CallByName;
using automation::CallKind;
using automation::GetByName;
using automation::InvokeByName;
using automation::ObjectRef;
using automation::PutByName;
using automation::Variant;
using test::HostObject;
using test::Value;

class ObjectOfTheHost : public ::testing::Test {
 protected:
  ~ObjectOfTheHost() override {
    object_.reset();
    EXPECT_EQ(host_.references, 0);
  }

  static HRESULT Nothing(std::vector<VARIANT*>, VARIANT*, EXCEPINFO*) { return S_OK; }

  /// The error that a call raises.
  AutomationError ErrorOf(const std::string& member) {
    try {
      InvokeByName(*object_, member);
    } catch (const AutomationError& error) {
      return error;
    }
    ADD_FAILURE() << "no error";
    return AutomationError(automation::ErrorNumber::InvalidProcedureCall, "");
  }

  HostObject host_;
  ObjectRef object_ = FromVariant(host_.Handed().AsValue().Raw()).Object();
};

TEST_F(ObjectOfTheHost, IsCalledByName) {
  host_.Has("Show", [](auto, VARIANT* result, auto) {
    result->vt = VT_I4;
    result->value.lVal = 6;
    return S_OK;
  });
  EXPECT_EQ(InvokeByName(*object_, "Show", {"text", Long{2}}), Variant(Long{6}));
  ASSERT_EQ(host_.calls.size(), 1u);
  const HostObject::Call& call = host_.calls[0];
  EXPECT_EQ(call.member, "Show");
  EXPECT_EQ(call.flags, DISPATCH_METHOD | DISPATCH_PROPERTYGET);
  ASSERT_EQ(call.arguments.size(), 2u);
  EXPECT_EQ(call.arguments[0].Text(), "text");
  EXPECT_EQ(call.arguments[1].Number(), 2);
  EXPECT_TRUE(call.names.empty());
}

TEST_F(ObjectOfTheHost, GetsArgumentsOfMethodsAsReferencesAndGivesThemBack) {
  host_.Has("Change", [](std::vector<VARIANT*> arguments, VARIANT*, auto) {
    EXPECT_EQ(arguments.at(0)->vt, VT_BYREF | VT_VARIANT);
    VARIANT& place = *arguments.at(0)->value.pvarVal;
    VariantClear(&place);
    place.vt = VT_BSTR;
    place.value.bstrVal = ToBstr("changed");
    return S_OK;
  });
  Variant arguments[] = {"before", Long{1}};
  EXPECT_TRUE(CallByName(*object_, "Change", CallKind::Method, arguments).IsEmpty());
  EXPECT_EQ(arguments[0], Variant("changed"));
  EXPECT_EQ(arguments[1], Variant(Long{1}));
}

TEST_F(ObjectOfTheHost, HasProperties) {
  host_.Has("Path", [](auto, VARIANT* result, auto) {
    result->vt = VT_BSTR;
    result->value.bstrVal = ToBstr("here");
    return S_OK;
  });
  EXPECT_EQ(GetByName(*object_, "Path"), Variant("here"));
  EXPECT_EQ(host_.calls.back().flags, DISPATCH_PROPERTYGET);
  PutByName(*object_, "Path", "there");
  EXPECT_EQ(host_.calls.back().flags, DISPATCH_PROPERTYPUT);
  EXPECT_EQ(host_.calls.back().names, std::vector<DISPID>{DISPID_PROPERTYPUT});
  EXPECT_EQ(host_.calls.back().arguments.at(0).Kind(), VT_BSTR);
  PutByName(*object_, "Path", object_);
  EXPECT_EQ(host_.calls.back().flags, DISPATCH_PROPERTYPUTREF);
  EXPECT_EQ(host_.calls.back().names, std::vector<DISPID>{DISPID_PROPERTYPUT});
  // Its own pointer comes back to it, not one of ours.
  EXPECT_EQ(host_.calls.back().arguments.at(0).Raw().value.pdispVal, &host_);
  host_.calls.clear();
}

TEST_F(ObjectOfTheHost, IsAskedOnceForANumber) {
  host_.Has("Show", Nothing);
  InvokeByName(*object_, "Show");
  InvokeByName(*object_, "SHOW");
  EXPECT_EQ(host_.asked, 1);
  EXPECT_EQ(host_.calls.size(), 2u);
}

TEST_F(ObjectOfTheHost, IsOneObjectHoweverOftenItIsGiven) {
  EXPECT_EQ(FromVariant(host_.Handed().AsValue().Raw()).Object(), object_);
  HostObject other;
  EXPECT_NE(FromVariant(other.Handed().AsValue().Raw()).Object(), object_);
}

TEST_F(ObjectOfTheHost, IsHeldAsLongAsItIsNeeded) {
  EXPECT_EQ(host_.references, 1);
  const ObjectRef second = object_;
  object_.reset();
  EXPECT_EQ(host_.references, 1);
}

TEST_F(ObjectOfTheHost, MayLetGoOfItselfWhileItIsCalled) {
  host_.Has("Drop", [this](auto, auto, auto) {
    object_.reset();
    EXPECT_EQ(host_.references, 1);
    return S_OK;
  });
  InvokeByName(*object_, "Drop");
  EXPECT_EQ(host_.references, 0);
}

TEST_F(ObjectOfTheHost, GoesBackAsWhatItWas) {
  test::SampleInHands sample;
  const auto echoed = sample.host.Call("Echo", {host_.Handed().AsValue()});
  EXPECT_EQ(echoed.value.Raw().value.pdispVal, &host_);
}

TEST_F(ObjectOfTheHost, WithoutAMemberIsError438) {
  const AutomationError error = ErrorOf("Show");
  EXPECT_EQ(error.Number(), 438);
  EXPECT_EQ(error.Description(), "the object of the host has no member \"Show\"");
  host_.namesFail = E_FAIL;
  const AutomationError failed = ErrorOf("Show");
  EXPECT_EQ(failed.Number(), E_FAIL);
  EXPECT_EQ(failed.Description(), "asking an object of the host for \"Show\" failed with 0x80004005");
}

TEST_F(ObjectOfTheHost, PassesItsExceptionsOn) {
  host_.Has("Fail", [](auto, auto, EXCEPINFO* info) {
    info->scode = QUENZEL7_RESULT(0x800A0000u + 1004);
    info->bstrDescription = ToBstr("no disk");
    info->bstrSource = ToBstr("Host");
    return DISP_E_EXCEPTION;
  });
  const AutomationError error = ErrorOf("Fail");
  EXPECT_EQ(error.Number(), 1004);
  EXPECT_EQ(error.Description(), "no disk");
  EXPECT_EQ(error.Source(), "Host");
}

TEST_F(ObjectOfTheHost, MayTellItsExceptionsLate) {
  host_.Has("Fail", [](auto, auto, EXCEPINFO* info) {
    info->pfnDeferredFillIn = [](EXCEPINFO* late) {
      late->wCode = 71;
      late->bstrDescription = ToBstr("late");
      return S_OK;
    };
    return DISP_E_EXCEPTION;
  });
  const AutomationError error = ErrorOf("Fail");
  EXPECT_EQ(error.Number(), 71);
  EXPECT_EQ(error.Description(), "late");
  EXPECT_EQ(error.Source(), "");
}

TEST_F(ObjectOfTheHost, MayFailWithoutWords) {
  host_.Has("Fail", [](auto, auto, EXCEPINFO* info) {
    info->wCode = 9;
    return DISP_E_EXCEPTION;
  });
  EXPECT_EQ(ErrorOf("Fail").Description(), "\"Fail\" of an object of the host failed with error 9");
  host_.Has("Refuse", [](auto, auto, auto) { return DISP_E_TYPEMISMATCH; });
  const AutomationError error = ErrorOf("Refuse");
  EXPECT_EQ(error.Number(), 13);
  EXPECT_EQ(error.Description(), "\"Refuse\" of an object of the host failed with 0x80020005");
}

TEST_F(ObjectOfTheHost, LeavesArgumentsAloneWhenItFails) {
  host_.Has("Fail", [](std::vector<VARIANT*> arguments, auto, auto) {
    arguments.at(0)->value.pvarVal->value.lVal = 5;
    return E_FAIL;
  });
  Variant arguments[] = {Long{1}};
  EXPECT_THROW(CallByName(*object_, "Fail", CallKind::Method, arguments), AutomationError);
  EXPECT_EQ(arguments[0], Variant(Long{1}));
}

TEST_F(ObjectOfTheHost, NeedsADispatchInterface) {
  HostObject plain;
  plain.isDispatch = false;
  try {
    FromVariant(plain.Handed().AsValue().Raw());
    ADD_FAILURE() << "no error";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.Number(), 13);
    EXPECT_EQ(error.Description(), "an object without a dispatch interface was given");
  }
  EXPECT_EQ(plain.references, 0);
}

TEST_F(ObjectOfTheHost, IsTheHostsOwn) {
  ASSERT_NE(ForeignObject::Of(*object_), nullptr);
  EXPECT_EQ(ForeignObject::Of(*std::make_shared<automation::Sample>()), nullptr);
  EXPECT_EQ(object_->Class().name, "HostObject");
}

}  // namespace
}  // namespace quenzel7::server
