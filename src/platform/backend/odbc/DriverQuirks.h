#pragma once

#include "platform/backend/odbc/StatementAdapter.h"
#include "platform/base/Types.h"
#include "platform/db/ConnectString.h"
#include "platform/db/Driver.h"

#include <string_view>

namespace utility
{

/// What a driver makes of dates that it has no form for.
enum class EOddDates
{
    AsTheyAre,
    MadeUp,    // any other date
    ZeroIsNull // the zero date is NULL
};

/// What one driver needs, found by measuring it.
struct CDriverQuirks
{
    const char16_t* DbmsName;   // head of SQL_DBMS_NAME; "" fits all
    const char16_t* DriverSign; // what its driver's name holds, in lower case

    CSqlDialect Dialect;
    bool IsWide = true;             // W functions and UTF-16; else A functions and UTF-8
    int RowSetSize = 100;           // rows a fetch
    bool CanReadInRowSet = true;    // SQLGetData after SQLSetPos gives the row that was set
    bool HidesColumns = false;      // says text of each expression, and cuts names at a dot
    bool ClosesUpTypeList = false;  // SQLTables wants 'TABLE','VIEW' without blanks
    bool ListsWholeServer = false;  // SQLTables with a null catalogue
    bool CursorStandsAlone = false; // an unfinished cursor does not survive another statement
    bool TakesWholeResult = false;  // fetches all rows before it gives the first
    bool StopFreesRows = false;     // SQLCancel frees what the running call works on
    bool TakesDatesAsText = false;  // what it makes of a date itself is no form that others write
    EOddDates OddDates = EOddDates::AsTheyAre;
    CDriverTraits Traits = {};

    /// Keys added to a connect string that does not name them: "Key=Value;Key=Value".
    const char16_t* ConnectDefaults = u"";
    const char16_t* TimeoutKey = u""; // the key that takes the login time-out
};

/// The row of a connected source, by its SQL_DBMS_NAME; there is always one.
const CDriverQuirks& FindQuirksByDbms(std::u16string_view dbmsName);

/// The row of a driver's name or library, before it is connected.
const CDriverQuirks& FindQuirksByDriver(std::u16string_view driver);

/// Adds what the driver needs and the string does not name. A SQLite file that is not there yet
/// will use a write-ahead log; one that is there keeps its journal.
void AddConnectDefaults(CConnectString& connect, const CDriverQuirks& quirks);

} // namespace utility
