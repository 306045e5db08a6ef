#include "utility/db/DbWork.h"

#include "database/DBADatabase.h"
#include "frame/AppError.h"
#include "frame/AppLogBlock.h"
#include "platform/db/DBException.h"

#include "utility/db/DbTrace.h"
#include "utility/output/ToolOutput.h"

namespace utility
{

namespace
{

constexpr char16_t PRESET_SOURCE[] = u"parts.db";

} // namespace

CCommandOption PasswordFileOption()
{
    return {"password-file", "FILE",
            "Take the source's password from the first line of a file; without it, it is asked for "
            "where the server wants one"};
}

std::vector<CCommandOption> IntoOptions()
{
    return {{"into", "SOURCE",
             "SQLite file, made if it is not there, or ODBC connect string; parts.db "
             "if not given"},
            PasswordFileOption()};
}

CDbSource SourceToFill(const CCommandCall& call)
{
    return CDbSource(call.Get("into", PRESET_SOURCE), call.Get("password-file"));
}

std::vector<CCommandOption> FromOptions(const std::vector<CCommandOption>& more)
{
    std::vector<CCommandOption> options = {
        {"from", "SOURCE", "SQLite file or ODBC connect string; parts.db if not given"},
        PasswordFileOption()};
    options.insert(options.end(), more.begin(), more.end());
    return options;
}

CDbSource SourceToRead(const CCommandCall& call)
{
    return CDbSource(call.Get("from", PRESET_SOURCE), call.Get("password-file"));
}

int RunOn(const CDbSource& source, EDbUse use,
          const std::function<int(CDBADatabase& database)>& work)
{
    const CAppLogBlock block(DbContext(), u"Work on %1", source.GetName());
    CDBADatabase database;
    if (!source.Open(database, use))
    {
        PrintError(source.GetName() + u": " + CAppError::GetLastErrorString());
        return RESULT_FAILURE;
    }
    try
    {
        return work(database);
    }
    catch (CDBException* exception)
    {
        const CExceptionGuard guard(exception);
        const CString words = exception->GetErrorText();
        CAppLog::Log(DbContext(), u"Refused: %1\n", words);
        PrintError(source.GetName() + u": " + words);
        return RESULT_FAILURE;
    }
}

} // namespace utility
