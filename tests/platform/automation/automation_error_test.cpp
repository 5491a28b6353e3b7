#include "platform/automation/automation_error.h"

#include <gtest/gtest.h>

namespace quenzel7::automation {
namespace {

TEST(AutomationError, TellsNumberDescriptionAndSource) {
  const AutomationError error(ErrorNumber::TypeMismatch, "no number", "Fennick");
  EXPECT_EQ(error.Number(), 13);
  EXPECT_EQ(error.Code(), ErrorNumber::TypeMismatch);
  EXPECT_EQ(error.Description(), "no number");
  EXPECT_STREQ(error.what(), "no number");
  EXPECT_EQ(error.Source(), "Fennick");
}

TEST(AutomationError, NamesTheLibraryAsItsSourceUnlessToldOtherwise) {
  EXPECT_EQ(AutomationError(ErrorNumber::Overflow, "").Source(), "Quenzel7");
}

TEST(AutomationError, InPutsTheContextBeforeTheDescriptionAndKeepsTheRest) {
  const AutomationError error =
      AutomationError(ErrorNumber::Overflow, "too big", "Fennick").In("column 'Xs'").In("row 3");
  EXPECT_EQ(error.Description(), "row 3: column 'Xs': too big");
  EXPECT_EQ(error.Number(), 6);
  EXPECT_EQ(error.Source(), "Fennick");
}

TEST(AutomationError, NumbersAreThoseOfTheRunTime) {
  const struct {
    ErrorNumber code;
    Long number;
  } kNumbers[] = {
      {ErrorNumber::InvalidProcedureCall, 5},
      {ErrorNumber::Overflow, 6},
      {ErrorNumber::OutOfMemory, 7},
      {ErrorNumber::SubscriptOutOfRange, 9},
      {ErrorNumber::DivisionByZero, 11},
      {ErrorNumber::TypeMismatch, 13},
      {ErrorNumber::OutOfStackSpace, 28},
      {ErrorNumber::FileNotFound, 53},
      {ErrorNumber::DeviceInputOutput, 57},
      {ErrorNumber::InputPastEndOfFile, 62},
      {ErrorNumber::PermissionDenied, 70},
      {ErrorNumber::PathNotFound, 76},
      {ErrorNumber::ObjectNotSet, 91},
      {ErrorNumber::InvalidUseOfNull, 94},
      {ErrorNumber::ResourceNotFound, 326},
      {ErrorNumber::PropertyNameNotFound, 327},
      {ErrorNumber::InvalidBagContents, 331},
      {ErrorNumber::InvalidPropertyValue, 380},
      {ErrorNumber::PropertyIsReadOnly, 383},
      {ErrorNumber::PropertyIsWriteOnly, 394},
      {ErrorNumber::ClassNotCreatable, 429},
      {ErrorNumber::NoSuchMember, 438},
      {ErrorNumber::NamedArgumentNotFound, 448},
      {ErrorNumber::ArgumentNotOptional, 449},
      {ErrorNumber::WrongNumberOfArguments, 450},
      {ErrorNumber::KeyAlreadyInCollection, 457},
      {ErrorNumber::InvalidPicture, 481},
      {ErrorNumber::NoCurrentRow, 3021},
      {ErrorNumber::NotAllowedInThisState, 3219},
      {ErrorNumber::RecordsetIsReadOnly, 3251},
      {ErrorNumber::NoSuchColumn, 3265},
      {ErrorNumber::ObjectIsClosed, 3704},
      {ErrorNumber::Database, -2147467259},
  };
  for (const auto& [code, number] : kNumbers) EXPECT_EQ(AutomationError(code, "").Number(), number);
}

TEST(AutomationError, IsOfNoArgumentUnlessToldOtherwise) {
  EXPECT_EQ(AutomationError(ErrorNumber::Overflow, "").Argument(), std::nullopt);
}

TEST(AutomationError, OfArgumentTellsThePlaceAndKeepsTheRest) {
  const AutomationError error(ErrorNumber::Overflow, "too big", "Fennick");
  const AutomationError third = error.OfArgument(2);
  EXPECT_EQ(third.Argument(), 2u);
  EXPECT_EQ(third.Number(), 6);
  EXPECT_EQ(third.Description(), "too big");
  EXPECT_EQ(third.Source(), "Fennick");
  EXPECT_EQ(third.OfArgument(0).Argument(), 0u);
  EXPECT_EQ(error.Argument(), std::nullopt);
}

TEST(AutomationError, OfNoArgumentForgetsThePlaceAndKeepsTheRest) {
  const AutomationError third = AutomationError(ErrorNumber::Overflow, "too big", "Fennick").OfArgument(2);
  const AutomationError error = third.OfNoArgument();
  EXPECT_EQ(error.Argument(), std::nullopt);
  EXPECT_EQ(error.Number(), 6);
  EXPECT_EQ(error.Description(), "too big");
  EXPECT_EQ(error.Source(), "Fennick");
  EXPECT_EQ(third.Argument(), 2u);
}

TEST(AutomationError, InIsOfNoArgument) {
  EXPECT_EQ(AutomationError(ErrorNumber::Overflow, "").OfArgument(0).In("row 3").Argument(), std::nullopt);
}

}  // namespace
}  // namespace quenzel7::automation
