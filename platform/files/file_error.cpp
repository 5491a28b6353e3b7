#include "platform/files/file_error.h"

#include <cerrno>
#include <system_error>

namespace quenzel7::files {

using automation::AutomationError;
using automation::ErrorNumber;

std::string SystemMessage(int errorNumber) { return std::generic_category().message(errorNumber); }

ErrorNumber ErrorNumberOf(int errorNumber) {
  switch (errorNumber) {
    case ENOENT:
    case ENOTDIR:
      return ErrorNumber::PathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
      return ErrorNumber::PermissionDenied;
    case ENOMEM:
      return ErrorNumber::OutOfMemory;
    default:
      return ErrorNumber::DeviceInputOutput;
  }
}

void RaiseFileError(const std::string& what, int errorNumber) {
  throw AutomationError(ErrorNumberOf(errorNumber), what + ": " + SystemMessage(errorNumber));
}

}  // namespace quenzel7::files
