#include "database/DBADatabase.h"
#include "database/transfer/TypeMap.h"
#include "frame/AppMessageBox.h"
#include "platform/db/DBException.h"
#include "platform/db/DelimitName.h"
#include "platform/system/window/MessageBoxCodes.h"

#include "utility/command/CommandTable.h"
#include "utility/db/DbWork.h"
#include "utility/db/copy/ColumnWord.h"
#include "utility/output/ToolOutput.h"

namespace utility
{

namespace
{

constexpr char CREATE_HELP[] =
    "The table gets a key of its own, the whole number ID, which counts up, and the columns given: "
    "NAME is a text of 255 characters, NAME:TYPE has another type: text, text(40), boolean, "
    "smallint, integer, bigint, decimal(12,3), real, date, time, timestamp or binary. A SQLite "
    "file "
    "that is not there is made. Ends with 1 if the table stands already.";

int TellNo(const CString& reason)
{
    PrintError(Printable(reason));
    return RESULT_NO;
}

int TellFailure(CDBADatabase& database)
{
    CString details = database.GetErrorDetails();
    PrintError(details.TrimRight());
    return RESULT_FAILURE;
}

/// The columns, one after the other; the table goes if one is refused.
void AddColumns(CDBADatabase& database, const CString& table,
                const std::vector<CTransferColumn>& columns)
{
    const ESourceKind kind = FindSourceKind(database);
    try
    {
        for (const CTransferColumn& column : columns)
            database.ExecuteSQL(u"ALTER TABLE " + DelimitName(table) + u" ADD " +
                                DelimitName(column.Name) + u" " + ComposeColumnType(kind, column));
    }
    catch (CDBException*)
    {
        database.DeleteTable(DelimitName(table));
        throw;
    }
}

int CreateTable(const CCommandCall& call)
{
    const CString table = call.GetArgument(0);
    std::vector<CTransferColumn> columns;
    for (std::size_t index = 1; index < call.GetArguments().size(); index++)
        if (!ReadColumnWord(call.GetArgument(index), columns.emplace_back()))
            return RESULT_USAGE;
    return RunOn(SourceToFill(call), EDbUse::Fill,
                 [&](CDBADatabase& database)
                 {
                     if (database.TableExists(DoubleBrackets(table)))
                         return TellNo(u"table '" + table + u"' stands already");
                     if (!database.CreateTable(DelimitName(table)))
                         return TellFailure(database);
                     AddColumns(database, table, columns);
                     if (!database.TableExists(DoubleBrackets(table)))
                         return TellFailure(database);
                     CString line;
                     line.Format(u"table '%s' is made, with ID and %d %s", table,
                                 static_cast<int>(columns.size()),
                                 columns.size() == 1 ? u"column" : u"columns");
                     PrintLine(Printable(line));
                     return RESULT_OK;
                 });
}

bool MayDrop(const CString& table, const CDbSource& source)
{
    const CString question =
        u"Delete table '" + table + u"' with all its rows from " + source.GetName() + u"?";
    return CAppMessageBox::Show(Printable(question), MB_YESNO | MB_ICONQUESTION, 0) == IDYES;
}

int DropTable(const CCommandCall& call)
{
    const CString table = call.GetArgument(0);
    const CDbSource source = SourceToRead(call);
    return RunOn(source, EDbUse::Read,
                 [&](CDBADatabase& database)
                 {
                     if (!database.TableExists(DoubleBrackets(table)))
                         return TellNo(u"there is no table '" + table + u"'");
                     if (!MayDrop(table, source))
                         return RESULT_NO;
                     database.DeleteTable(DelimitName(table)); // is true whatever comes
                     if (database.TableExists(DoubleBrackets(table)))
                         return TellFailure(database);
                     PrintLine(Printable(u"table '" + table + u"' is deleted"));
                     return RESULT_OK;
                 });
}

} // namespace

std::vector<CCommand> DbTableCommands()
{
    return {
        {"db",
         "create",
         "Make a table with columns of these types",
         CREATE_HELP,
         {{"TABLE", "Its name"}, {"COLUMN", "NAME or NAME:TYPE", EArity::Any}},
         IntoOptions(),
         CreateTable,
         true},
        {"db",
         "drop",
         "Delete a table with all its rows",
         "Asks before, unless told --yes; without a terminal nothing is deleted. Ends with 1 if "
         "there is no such table, or it is to stay.",
         {{"TABLE", "The table"}},
         FromOptions(),
         DropTable,
         true},
    };
}

} // namespace utility
