#include "server/surface/last_error.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <string>
#include <thread>

#include "platform/automation/automation_error.h"

namespace quenzel7::server {
namespace {

using automation::AutomationError;
using automation::ErrorNumber;

HRESULT Result(std::uint32_t bits) { return static_cast<HRESULT>(bits); }

TEST(LastError, NumbersOfTheRunTimeHaveResultsOfTheirOwn) {
  EXPECT_EQ(ResultOf(1), Result(0x800A0001));
  EXPECT_EQ(ResultOf(91), Result(0x800A005B));
  EXPECT_EQ(ResultOf(65535), Result(0x800AFFFF));
}

TEST(LastError, ANumberBelowZeroIsAResultAlready) {
  EXPECT_EQ(ResultOf(-1), Result(0xFFFFFFFF));
  EXPECT_EQ(ResultOf(static_cast<Long>(ErrorNumber::Database)), Result(0x80004005));
}

TEST(LastError, NoFailureLooksLikeSuccess) {
  EXPECT_EQ(ResultOf(0), E_UNEXPECTED);
  EXPECT_EQ(ResultOf(65536), E_UNEXPECTED);
  EXPECT_EQ(ResultOf(0x7FFFFFFF), E_UNEXPECTED);
}

TEST(LastError, IsEmptyBeforeTheFirstFailureOfAThread) {
  Guarded([] { Fail(E_FAIL, "of another thread"); });
  std::string told = "?";
  std::thread([&told] { told = Quenzel7LastError(); }).join();
  EXPECT_EQ(told, "");
  EXPECT_STREQ(Quenzel7LastError(), "of another thread");
}

TEST(LastError, GuardedWorkGivesItsResult) {
  int done = 0;
  EXPECT_EQ(Guarded([&done] { ++done; }), S_OK);
  EXPECT_EQ(done, 1);
  EXPECT_EQ(Guarded([] { return S_FALSE; }), S_FALSE);
}

TEST(LastError, GuardedErrorsOfTheRunTimeAreToldByNumberAndText) {
  EXPECT_EQ(Guarded([] { throw AutomationError(ErrorNumber::ObjectNotSet, "no object"); }),
            Result(0x800A005B));
  EXPECT_STREQ(Quenzel7LastError(), "no object");
}

TEST(LastError, FailRaisesTheResultItself) {
  EXPECT_EQ(Guarded([] { Fail(E_INVALIDARG, "no such thing"); }), E_INVALIDARG);
  EXPECT_STREQ(Quenzel7LastError(), "no such thing");
}

TEST(LastError, GuardedWantOfMemoryIsTold) {
  EXPECT_EQ(Guarded([] { throw std::bad_alloc(); }), E_OUTOFMEMORY);
  EXPECT_STREQ(Quenzel7LastError(), "there is not enough memory");
}

TEST(LastError, GuardedExceptionsOfOtherKindsAreUnexpected) {
  EXPECT_EQ(Guarded([] { throw std::out_of_range("too far"); }), E_UNEXPECTED);
  EXPECT_STREQ(Quenzel7LastError(), "too far");
  EXPECT_EQ(Guarded([] { throw 7; }), E_UNEXPECTED);
  EXPECT_STREQ(Quenzel7LastError(), "a failure of an unknown kind");
}

TEST(LastError, AFailureThatIsOnlyAResultIsToldByItsNumber) {
  EXPECT_EQ(Guarded([] { return E_POINTER; }), E_POINTER);
  EXPECT_STREQ(Quenzel7LastError(), "failure 0x80004003");
}

TEST(LastError, StaysUntilTheNextFailure) {
  Guarded([] { Fail(E_FAIL, "first"); });
  const char* const first = Quenzel7LastError();
  Guarded([] {});
  Guarded([] { return S_FALSE; });
  EXPECT_STREQ(first, "first");
  EXPECT_STREQ(Quenzel7LastError(), "first");
  Guarded([] { Fail(E_FAIL, "second"); });
  EXPECT_STREQ(Quenzel7LastError(), "second");
}

}  // namespace
}  // namespace quenzel7::server
