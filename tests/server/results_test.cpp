#include "server/results.h"

#include <gtest/gtest.h>

#include <cstring>

#include "server/abi/bstr.h"

namespace quenzel7::server {
namespace {

using automation::AutomationError;
using automation::ErrorNumber;

TEST(Results, AreReadBack) {
  const struct {
    HRESULT result;
    Long number;
  } rows[] = {
      {E_OUTOFMEMORY, 7},
      {DISP_E_ARRAYISLOCKED, 10},
      {DISP_E_BADINDEX, 9},
      {DISP_E_DIVBYZERO, 11},
      {DISP_E_OVERFLOW, 6},
      {DISP_E_TYPEMISMATCH, 13},
      {CLASS_E_CLASSNOTAVAILABLE, 429},
      {DISP_E_UNKNOWNNAME, 438},
      {DISP_E_MEMBERNOTFOUND, 438},
      {DISP_E_PARAMNOTFOUND, 448},
      {DISP_E_PARAMNOTOPTIONAL, 449},
      {DISP_E_BADPARAMCOUNT, 450},
      {DISP_E_BADVARTYPE, 458},
      {QUENZEL7_RESULT(0x800A0005u), 5},
      {QUENZEL7_RESULT(0x800AFFFFu), 65535},
      {QUENZEL7_RESULT(0x800A0000u), QUENZEL7_RESULT(0x800A0000u)},
      {E_FAIL, E_FAIL},
      {RPC_E_WRONG_THREAD, RPC_E_WRONG_THREAD},
      {QUENZEL7_RESULT(0x800B0005u), QUENZEL7_RESULT(0x800B0005u)},
  };
  for (const auto& row : rows) EXPECT_EQ(NumberOf(row.result), row.number) << row.result;
}

TEST(Reporting, AnArgumentHasAResultOfItsOwn) {
  const auto report = [](ErrorNumber number) {
    EXCEPINFO info{};
    info.wCode = 77;
    const HRESULT result = Report(AutomationError(number, "text").OfArgument(1), &info);
    EXPECT_EQ(info.wCode, 77);
    return result;
  };
  EXPECT_EQ(report(ErrorNumber::TypeMismatch), DISP_E_TYPEMISMATCH);
  EXPECT_EQ(report(ErrorNumber::Overflow), DISP_E_OVERFLOW);
  EXPECT_EQ(report(ErrorNumber::UnsupportedKind), DISP_E_BADVARTYPE);
  EXPECT_EQ(report(kArrayIsLocked), DISP_E_ARRAYISLOCKED);
}

TEST(Reporting, AnythingElseIsTold) {
  for (const AutomationError& error :
       {AutomationError(ErrorNumber::TypeMismatch, "t\xC3\xA4xt", "Here"),
        AutomationError(ErrorNumber::TypeMismatch, "t\xC3\xA4xt", "Here").OfArgument(0).OfNoArgument()}) {
    EXCEPINFO info;
    std::memset(&info, 0xEE, sizeof info);
    EXPECT_EQ(Report(error, &info), DISP_E_EXCEPTION);
    EXPECT_EQ(info.wCode, 0);
    EXPECT_EQ(info.scode, QUENZEL7_RESULT(0x800A000Du));
    EXPECT_EQ(FromBstr(info.bstrDescription), "t\xC3\xA4xt");
    EXPECT_EQ(FromBstr(info.bstrSource), "Here");
    EXPECT_EQ(info.bstrHelpFile, nullptr);
    EXPECT_EQ(info.dwHelpContext, 0u);
    EXPECT_EQ(info.pfnDeferredFillIn, nullptr);
    SysFreeString(info.bstrDescription);
    SysFreeString(info.bstrSource);
  }
}

TEST(Reporting, AMissingObjectIsToldThoughItIsAnArgument) {
  EXCEPINFO info{};
  EXPECT_EQ(Report(AutomationError(ErrorNumber::ObjectNotSet, "none").OfArgument(0), &info),
            DISP_E_EXCEPTION);
  EXPECT_EQ(info.scode, QUENZEL7_RESULT(0x800A005Bu));
  SysFreeString(info.bstrDescription);
  SysFreeString(info.bstrSource);
}

}  // namespace
}  // namespace quenzel7::server
