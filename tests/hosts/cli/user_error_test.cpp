#include "hosts/cli/user_error.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/hosts/cli/messages.h"

namespace quenzel7::cli {
namespace {

using automation::AutomationError;
using automation::ErrorNumber;

TEST(UserError, FailedCommandsEndWithStatusTwo) { EXPECT_EQ(kFailed, 2); }

TEST(UserError, OneLineWritesControlCharactersAsEscapes) {
  EXPECT_EQ(OneLine("a\nb\rc\td"), "a\\nb\\rc\\td");
  EXPECT_EQ(OneLine(std::string("\0\x1b[31m\x1f \x7f", 9)), "\\u0000\\u001b[31m\\u001f \\u007f");
}

TEST(UserError, OneLineLeavesOtherCharactersAlone) { EXPECT_EQ(OneLine(" ~ä\\\""), " ~ä\\\""); }

TEST(UserError, QuotedPutsDoubleQuotesAround) { EXPECT_EQ(Quoted("Xs"), "\"Xs\""); }

TEST(UserError, AtPlaceGivesWhatTheWorkGives) {
  EXPECT_EQ(AtPlace("here", [] { return 7; }), 7);
}

TEST(UserError, AtPlacePutsThePlaceBeforeErrors) {
  EXPECT_EQ(test::MessageOf([] { AtPlace("here", [] { throw UserError("it failed"); }); }),
            "here: it failed");
  EXPECT_EQ(test::MessageOf(
                [] { AtPlace("here", [] { throw AutomationError(ErrorNumber::Overflow, "overflow"); }); }),
            "here: overflow");
}

TEST(UserError, AtPlaceLetsOtherExceptionsPass) {
  EXPECT_THROW(AtPlace("here", [] { throw std::out_of_range("x"); }), std::out_of_range);
}

TEST(UserError, InItsWordsGivesWhatTheWorkGives) {
  EXPECT_EQ(InItsWords([] { return 7; }), 7);
}

TEST(UserError, InItsWordsMakesErrorsOfTheRunTimeOnesForTheUser) {
  EXPECT_EQ(test::MessageOf(
                [] { InItsWords([] { throw AutomationError(ErrorNumber::Overflow, "x: overflow"); }); }),
            "x: overflow");
  EXPECT_THROW(InItsWords([] { throw std::out_of_range("x"); }), std::out_of_range);
}

TEST(UserErrors, AreToldInWordsWithThoseOfTheRunTime) {
  EXPECT_EQ(ErrorOf([] {}), "");
  EXPECT_EQ(ErrorOf([] { throw UserError("no paper"); }), "no paper");
  EXPECT_EQ(ErrorOf([] {
              throw automation::AutomationError(automation::ErrorNumber::InvalidProcedureCall, "no ink");
            }),
            "no ink");
  EXPECT_THROW(ErrorOf([] { throw std::logic_error("other"); }), std::logic_error);
}

}  // namespace
}  // namespace quenzel7::cli
