#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/automation/types.h"

namespace quenzel7::automation {

/// Error numbers of the automation run-time that this system raises.
enum class ErrorNumber : Long {
  InvalidProcedureCall = 5,
  Overflow = 6,
  OutOfMemory = 7,
  SubscriptOutOfRange = 9,
  DivisionByZero = 11,
  TypeMismatch = 13,
  OutOfStackSpace = 28,
  FileNotFound = 53,
  DeviceInputOutput = 57,
  InputPastEndOfFile = 62,
  PermissionDenied = 70,
  PathNotFound = 76,
  ObjectNotSet = 91,
  InvalidUseOfNull = 94,
  InvalidPropertyValue = 380,
  /// There is no resource of that number.
  ResourceNotFound = 326,
  PropertyNameNotFound = 327,
  InvalidBagContents = 331,
  PropertyIsReadOnly = 383,
  PropertyIsWriteOnly = 394,
  ClassNotCreatable = 429,
  NoSuchMember = 438,
  /// A call names an argument that the member does not have.
  NamedArgumentNotFound = 448,
  ArgumentNotOptional = 449,
  WrongNumberOfArguments = 450,
  KeyAlreadyInCollection = 457,
  /// A value is of a kind that the binary interface knows and this library does not.
  UnsupportedKind = 458,
  /// What should be a picture is none that can be read.
  InvalidPicture = 481,
  /// A recordset was moved or changed where it has no current row.
  NoCurrentRow = 3021,
  /// A closed recordset or connection was used, or an open one opened again.
  NotAllowedInThisState = 3219,
  /// The recordset was opened read-only.
  RecordsetIsReadOnly = 3251,
  /// A recordset has no column of that name.
  NoSuchColumn = 3265,
  /// The recordset or the connection is closed.
  ObjectIsClosed = 3704,
  /// A statement failed in the database engine; the description is the engine's own message.
  Database = -2147467259,
};

/// An error of the automation run-time: a number that hosts compare, a description that people read, and the
/// part of the library that raised it.
class AutomationError : public std::runtime_error {
 public:
  explicit AutomationError(ErrorNumber number, const std::string& description,
                           std::string source = "Quenzel7");

  Long Number() const { return static_cast<Long>(number_); }
  ErrorNumber Code() const { return number_; }
  std::string Description() const { return what(); }
  const std::string& Source() const { return source_; }

  /// The place from 0 of the argument that could not be taken; none when the error is another one.
  std::optional<std::size_t> Argument() const { return argument_; }

  /// The same error with "CONTEXT: " before its description, as one of no argument.
  AutomationError In(std::string_view context) const;
  /// The same error as one of the argument at a place from 0.
  AutomationError OfArgument(std::size_t place) const;
  /// The same error as one of no argument: an argument of another call does not concern the caller's own.
  AutomationError OfNoArgument() const;

 private:
  ErrorNumber number_;
  std::string source_;
  std::optional<std::size_t> argument_;
};

}  // namespace quenzel7::automation
