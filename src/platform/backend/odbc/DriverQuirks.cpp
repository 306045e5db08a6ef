#include "platform/backend/odbc/DriverQuirks.h"

#include "platform/base/CaseFold.h"
#include "platform/base/Encoding.h"

#include <filesystem>

namespace utility
{

namespace
{

// A cursor stands alone in SQLite because its driver steps through one statement at a time, in
// PostgreSQL because it lives in a transaction. SQLite's driver stops the whole connection, then
// closes the statement that was named, running or not. SQLite keeps dates as texts, so they are
// compared by what they mean; real numbers come from its driver with 15 digits, so they are
// compared by those. The quote of SQLite is the backtick: it takes an unknown "x" for the
// text 'x' and would fail nothing. MariaDB's OPTION=2 counts the rows that were found, not only
// those that differ. PostgreSQL reports varchar without a limit as 255 wide unless told otherwise.
constexpr CDriverQuirks QUIRKS[] = {
    {.DbmsName = u"SQLite",
     .DriverSign = u"sqlite",
     .Dialect = {.Quote = u'`', .KeepsWhereZero = true, .AutoIncrement = EAutoIncrement::Drop},
     .IsWide = false,
     .RowSetSize = 1,
     .HidesColumns = true,
     .ClosesUpTypeList = true,
     .CursorStandsAlone = true,
     .StopFreesRows = true,
     .TakesDatesAsText = true,
     .Traits = {.HasTransactions = true,
                .RealCondition = u"printf('%%.15g',%s)=printf('%%.15g',?)",
                .DateCondition = u"julianday(%s)=julianday(?)"},
     .ConnectDefaults = u"StepAPI=1;Timeout=5000"},
    {.DbmsName = u"PostgreSQL",
     .DriverSign = u"postgres",
     .Dialect = {.AutoIncrement = EAutoIncrement::Identity, .HasDollarLiterals = true},
     .CursorStandsAlone = true,
     .OddDates = EOddDates::MadeUp,
     .Traits = {.HasTransactions = true},
     .ConnectDefaults = u"UseDeclareFetch=1;Fetch=1000;BoolsAsChar=0;MaxVarcharSize=8190"},
    {.DbmsName = u"MariaDB",
     .DriverSign = u"maria",
     .Dialect = {.Quote = u'`',
                 .KeepsWhereZero = true,
                 .HasBackslashEscapes = true,
                 .HasHashComments = true},
     .CanReadInRowSet = false,
     .ListsWholeServer = true,
     .TakesWholeResult = true,
     .OddDates = EOddDates::ZeroIsNull,
     .Traits = {.HasTransactions = true},
     .ConnectDefaults = u"CHARSET=utf8mb4;OPTION=2",
     .TimeoutKey = u"CONN_TIMEOUT"},
    {.DbmsName = u"", .DriverSign = u"", .Dialect = {}, .RowSetSize = 1},
};

// Other names under which the same drivers go.
constexpr struct
{
    const char16_t* Sign;
    const char16_t* DriverSign;
} DRIVER_ALIASES[] = {{u"psqlodbc", u"postgres"}, {u"maodbc", u"maria"}};

bool ContainsNoCase(std::u16string_view text, const char16_t* sign)
{
    CString lower(text);
    lower.MakeLower();
    return lower.Find(sign) >= 0;
}

bool IsNewFile(const CString& path)
{
    if (path.IsEmpty() || path.GetAt(0) == u':')
        return false; // in memory
    std::error_code failure;
    const std::filesystem::path native(ToUtf8(path.View()));
    return !std::filesystem::exists(native, failure) && !failure;
}

} // namespace

const CDriverQuirks& FindQuirksByDbms(std::u16string_view dbmsName)
{
    for (const CDriverQuirks& quirks : QUIRKS)
    {
        const std::u16string_view head(quirks.DbmsName);
        if (EqualNoCase(dbmsName.substr(0, head.size()), head))
            return quirks;
    }
    return std::end(QUIRKS)[-1];
}

const CDriverQuirks& FindQuirksByDriver(std::u16string_view driver)
{
    const char16_t* sign = nullptr;
    for (const auto& alias : DRIVER_ALIASES)
        if (ContainsNoCase(driver, alias.Sign))
            sign = alias.DriverSign;
    for (const CDriverQuirks& quirks : QUIRKS)
        if (ContainsNoCase(sign ? std::u16string_view(sign) : driver, quirks.DriverSign))
            return quirks;
    return std::end(QUIRKS)[-1];
}

void AddConnectDefaults(CConnectString& connect, const CDriverQuirks& quirks)
{
    if (!quirks.IsWide && !connect.Has(u"JournalMode") && IsNewFile(connect.Get(u"Database")))
        connect.Append(u"JournalMode", u"WAL");
    const CString defaults(quirks.ConnectDefaults);
    int place = 0;
    for (CString item = defaults.Tokenize(u";", place); place >= 0;
         item = defaults.Tokenize(u";", place))
    {
        const int equals = item.Find(u'=');
        if (!connect.Has(item.Left(equals).View()))
            connect.Append(item.Left(equals).View(), item.Mid(equals + 1).View());
    }
}

} // namespace utility
