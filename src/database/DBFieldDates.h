#pragma once

#include "platform/base/String.h"
#include "platform/base/time/OleDateTime.h"
#include "platform/base/time/TimestampStruct.h"

namespace utility
{

/// Dates of database fields between their records and the texts that users and databases write.

/// The parts of a date, without a fraction; those of an invalid one are -1.
TIMESTAMP_STRUCT TimestampOf(const COleDateTime& date);

/// The date of these parts, without the fraction; invalid if there is none.
COleDateTime DateOf(const TIMESTAMP_STRUCT& time);

/// A text in the user's form or, with `databaseForm`, "2024-12-31 23:59:58". Each part of an
/// unreadable one is -1.
TIMESTAMP_STRUCT ReadTimestamp(const CString& text, bool databaseForm);

/// A text in the user's form. An unreadable one is invalid, its count 0 if it is no date and -1 if
/// reading failed otherwise.
COleDateTime ReadDate(const CString& text);

/// In the user's form, or "Invalid DateTime".
CString LocaleDateText(const COleDateTime& date);

} // namespace utility
