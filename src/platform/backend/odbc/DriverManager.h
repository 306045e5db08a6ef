#pragma once

// The driver manager's own headers, in the one order that works: our constants of the same names
// come first, since these headers make macros of them.

#include "platform/base/Types.h"
#include "platform/db/OdbcTypes.h"

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#undef BOOL
