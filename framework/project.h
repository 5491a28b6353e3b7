#pragma once

#include <string>

#include "platform/ado/connection.h"
#include "platform/automation/types.h"

/// What elements ask of the open project and tell its host. The services are those of Platform::Current().
namespace quenzel7 {

/// The open connection of the project; error 91 when no project is open.
ado::ConnectionRef ProjectConnection();

/// The rows that a query of the open project gives, to be changed: static, with optimistic locking. Errors of
/// ProjectConnection and of the database.
ado::RecordsetRef OpenRowsForWriting(const std::string& query);

/// The number of the page that the host has open.
Long CurrentDisplayID();

/// A number for the column "GUID" that no other row has.
Long NewUniqueNumber();

/// The order index for a new element of the open page: one more than the highest there is, 1 on an empty
/// page. Errors of the database; 6 when the highest is the largest 32-bit number.
Long NextOrderIndex();

/// Tells the host that an element changed.
void NotifyElementChanged(Long elementId);

/// Tells the host that a page changed.
void NotifyPageChanged(Long pageId);

}  // namespace quenzel7
