#include "utility/csv/CsvCheck.h"

#include "files/BreakCSV.h"
#include "frame/AppError.h"
#include "platform/system/file/NativePath.h"

#include "utility/command/Command.h"
#include "utility/csv/CsvInput.h"
#include "utility/host/Interrupt.h"
#include "utility/output/ToolOutput.h"

namespace utility
{

namespace
{

/// The first of a row's faults; empty if it has none.
CString FindRowFault(const CCsvInput& input, std::size_t fields, std::size_t wanted,
                     const CCsvFormat& format)
{
    const CString& text = input.GetText();
    if (text.Find(u'\0') >= 0)
        return u"it holds a NUL";
    if (text.Find(u'\r') >= 0)
        return u"it holds a CR without LF, which ends no line";
    CString fault = FindCsvFault(text, format);
    if (fault.IsEmpty() && format.m_Rules == ECsvRules::Break &&
        fields > static_cast<std::size_t>(CSV_FIELD_LIMIT))
        fault.Format(u"%d fields; whoever reads whole files gets the first %d",
                     static_cast<int>(fields), CSV_FIELD_LIMIT);
    if (fault.IsEmpty() && fields != wanted)
        fault.Format(u"%d fields, the header has %d", static_cast<int>(fields),
                     static_cast<int>(wanted));
    return fault;
}

void TellFault(const CString& path, int line, const CString& fault)
{
    CString text;
    text.Format(u"%s:%d: %s", NativePath(path), line, fault);
    PrintError(text);
}

} // namespace

int CheckCsvFile(const CString& path, const CCsvFormat& format)
{
    CCsvInput input(format);
    if (!input.OpenInput(path))
    {
        PrintError(NativePath(path) + u": " + CAppError::GetLastErrorString());
        return RESULT_FAILURE;
    }
    std::vector<CString> fields;
    std::size_t wanted = 0;
    int rows = 0;
    int faults = 0;
    for (; !IsInterrupted() && input.ReadRow(fields); ++rows)
    {
        wanted = rows == 0 ? fields.size() : wanted;
        const CString fault = FindRowFault(input, fields.size(), wanted, format);
        if (fault.IsEmpty())
            continue;
        TellFault(path, input.GetTextNumber(), fault);
        ++faults;
    }
    if (!input.GetFault().IsEmpty())
        TellFault(path, input.GetTextNumber(), input.GetFault());
    if (faults > 0 || !input.GetFault().IsEmpty() || IsInterrupted())
        return RESULT_FAILURE;

    CString summary;
    summary.Format(u"%s: %d lines of %d fields", NativePath(path), rows, static_cast<int>(wanted));
    PrintLine(summary);
    return RESULT_OK;
}

} // namespace utility
