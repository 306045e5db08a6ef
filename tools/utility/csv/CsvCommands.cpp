#include "files/SafeFile.h"
#include "frame/AppError.h"
#include "platform/base/Encoding.h"
#include "platform/base/NumberText.h"
#include "platform/system/file/FileException.h"
#include "platform/system/file/NativePath.h"

#include "utility/command/CommandTable.h"
#include "utility/csv/CsvCheck.h"
#include "utility/csv/CsvInput.h"
#include "utility/host/Interrupt.h"
#include "utility/output/ToolOutput.h"

#include <optional>

namespace utility
{

namespace
{

constexpr std::size_t ABSENT = static_cast<std::size_t>(-1);
constexpr char16_t LEFT_AS_IT_WAS[] = u"left as it was";

int TellFailure(const CString& path, const CString& reason)
{
    PrintError(NativePath(path) + u": " + reason);
    return RESULT_FAILURE;
}

int TellLineFailure(const CCsvInput& input, const CString& path, const CString& reason)
{
    CString place;
    place.Format(u"%s:%d", NativePath(path), input.GetTextNumber());
    PrintError(place + u": " + reason);
    return RESULT_FAILURE;
}

/// The format that two options tell; none, and the reason is told, if they do not fit.
std::optional<CCsvFormat> ReadFormat(const CCommandCall& call, const char* rules,
                                     const char* separator, const CCsvFormat& preset)
{
    CCsvFormat format = preset;
    if (call.Has(rules))
        format = {call.Get(rules) == u"break" ? ECsvRules::Break : ECsvRules::Reader, u','};
    CString text = call.Get(separator, CString(format.m_Separator));
    if (text == u"tab")
        text = u"\t";
    const bool isUnit = text.GetLength() == 1 && text.FindOneOf(u"\"\r\n") < 0;
    if (!isUnit || (format.m_Rules == ECsvRules::Reader && text != u","))
    {
        PrintError(FromUtf8(separator) +
                   (isUnit ? u": the reader's rules know the comma alone; see --rules break"
                           : u": one character, or 'tab', is wanted"));
        return std::nullopt;
    }
    format.m_Separator = text[0];
    return format;
}

std::optional<CCsvFormat> SourceFormat(const CCommandCall& call)
{
    return ReadFormat(call, "rules", "separator", CCsvFormat());
}

/// Opens what a call names and reads its header; false, and the reason is told, without one.
bool ReadHeader(CCsvInput& input, const CString& path, std::vector<CString>& header)
{
    if (!input.OpenInput(path))
        TellFailure(path, CAppError::GetLastErrorString());
    else if (input.ReadRow(header))
        return true;
    else if (input.GetFault().IsEmpty())
        TellFailure(path, u"no line has fields");
    else
        TellLineFailure(input, path, input.GetFault());
    return false;
}

/// RESULT_OK if the rows went on to the file's end.
int TellEnd(const CCsvInput& input, const CString& path)
{
    if (!input.GetFault().IsEmpty())
        return TellLineFailure(input, path, input.GetFault());
    return IsInterrupted() ? RESULT_FAILURE : RESULT_OK;
}

int Columns(const CCommandCall& call)
{
    const std::optional<CCsvFormat> format = SourceFormat(call);
    if (!format)
        return RESULT_USAGE;
    CCsvInput input(*format);
    std::vector<CString> header;
    if (!ReadHeader(input, call.GetArgument(0), header))
        return RESULT_FAILURE;
    if (call.WantsJson())
    {
        CJsonWriter json;
        json.BeginArray();
        for (const CString& name : header)
            json.Text(name);
        json.EndArray();
        json.Flush();
        PrintLine(u"");
        return RESULT_OK;
    }
    CTextTable table;
    table.AddColumn(u"Column", CTextTable::EAlign::Right);
    table.AddColumn(u"Name");
    for (std::size_t i = 0; i < header.size(); ++i)
    {
        CString number;
        number.Format(u"%d", static_cast<int>(i + 1));
        table.AddRow({number, header[i]});
    }
    table.Print();
    return RESULT_OK;
}

/// A column by its name in the header, else by its number from 1 on.
std::size_t FindColumn(const std::vector<CString>& header, const CString& wanted)
{
    for (std::size_t i = 0; i < header.size(); ++i)
    {
        if (header[i] == wanted)
            return i;
    }
    const int number = _wtoi(wanted);
    return number >= 1 && static_cast<std::size_t>(number) <= header.size()
               ? static_cast<std::size_t>(number) - 1
               : ABSENT;
}

bool FindColumns(const CCommandCall& call, const std::vector<CString>& header,
                 std::vector<std::size_t>& columns)
{
    for (std::size_t i = 1; i < call.GetArguments().size(); ++i)
    {
        const CString wanted = call.GetArgument(i);
        columns.push_back(FindColumn(header, wanted));
        if (columns.back() == ABSENT)
        {
            PrintError(u"there is no column '" + wanted + u"'; see 'utility csv columns'");
            return false;
        }
    }
    return true;
}

/// A line that is too short has empty fields there.
std::vector<CString> PickFields(const std::vector<CString>& fields,
                                const std::vector<std::size_t>& columns)
{
    std::vector<CString> picked;
    for (const std::size_t column : columns)
        picked.push_back(column < fields.size() ? fields[column] : CString());
    return picked;
}

/// Words why a field cannot be written.
CString WordRefusal(const CString& field)
{
    return u"'" + field + u"' cannot be written so that these rules read it back";
}

int SelectLines(CCsvInput& input, const CCommandCall& call, const CCsvFormat& format,
                std::vector<CString> fields, const std::vector<std::size_t>& columns)
{
    do
    {
        const std::vector<CString> picked = PickFields(fields, columns);
        CString line;
        std::size_t refused = 0;
        if (!ComposeCsvLine(picked, format, line, refused))
            return TellLineFailure(input, call.GetArgument(0), WordRefusal(picked[refused]));
        PrintLine(line);
    } while (!IsInterrupted() && input.ReadRow(fields));
    return TellEnd(input, call.GetArgument(0));
}

int SelectAsJson(CCsvInput& input, const CCommandCall& call, const std::vector<CString>& header,
                 const std::vector<std::size_t>& columns)
{
    CJsonWriter json;
    json.BeginArray();
    for (std::vector<CString> fields; !IsInterrupted() && input.ReadRow(fields);)
    {
        json.BeginObject();
        for (const std::size_t column : columns)
            json.Field(header[column], column < fields.size() ? fields[column] : CString());
        json.EndObject();
        json.Flush();
    }
    json.EndArray();
    json.Flush();
    PrintLine(u"");
    return TellEnd(input, call.GetArgument(0));
}

int Select(const CCommandCall& call)
{
    const std::optional<CCsvFormat> format = SourceFormat(call);
    if (!format)
        return RESULT_USAGE;
    CCsvInput input(*format);
    std::vector<CString> header;
    std::vector<std::size_t> columns;
    if (!ReadHeader(input, call.GetArgument(0), header) || !FindColumns(call, header, columns))
        return RESULT_FAILURE;
    return call.WantsJson() ? SelectAsJson(input, call, header, columns)
                            : SelectLines(input, call, *format, header, columns);
}

int Check(const CCommandCall& call)
{
    const std::optional<CCsvFormat> format = SourceFormat(call);
    if (!format)
        return RESULT_USAGE;
    int result = RESULT_OK;
    for (const CString& path : call.GetArguments())
        result = std::max(result, CheckCsvFile(path, *format));
    return result;
}

/// Writes all rows in the other format; a result of the tool.
int ConvertRows(CCsvInput& input, const CString& path, const CCsvFormat& format, CStdioFile& to)
{
    std::vector<CString> fields;
    CString line;
    std::size_t refused = 0;
    while (!IsInterrupted() && input.ReadRow(fields))
    {
        if (!ComposeCsvLine(fields, format, line, refused))
            return TellLineFailure(input, path, WordRefusal(fields[refused]));
        const std::string bytes = ToUtf8(line.View()) + "\r\n";
        to.Write(bytes.data(), static_cast<UINT>(bytes.size()));
    }
    return TellEnd(input, path);
}

int Convert(const CCommandCall& call)
{
    const std::optional<CCsvFormat> from = SourceFormat(call);
    const std::optional<CCsvFormat> to =
        from ? ReadFormat(call, "to-rules", "to-separator", *from) : std::nullopt;
    if (!to)
        return RESULT_USAGE;
    const CString source = call.GetArgument(0);
    const CString target = call.GetArgument(1);
    CCsvInput input(*from);
    if (!input.OpenInput(source))
        return TellFailure(source, CAppError::GetLastErrorString());
    CSafeFile safe;
    if (!safe.Begin(target))
        return TellFailure(target, CAppError::GetLastErrorString());

    CStdioFile file(safe.GetWrittenPath(), CFile::modeWrite);
    if (ConvertRows(input, source, *to, file) != RESULT_OK)
        return TellFailure(target, LEFT_AS_IT_WAS);
    file.Close();
    input.Close();
    return safe.Commit() ? RESULT_OK : TellFailure(target, CAppError::GetLastErrorString());
}

/// What fails while lines are moved comes as an exception.
template <int (*Run)(const CCommandCall& call)>
int Guarded(const CCommandCall& call)
{
    try
    {
        return Run(call);
    }
    catch (CFileException* exception)
    {
        const CExceptionGuard guard(exception);
        return TellFailure(exception->m_strFileName, exception->GetErrorText());
    }
}

CCommandOption RulesOption()
{
    return {
        "rules",
        "RULES",
        "how lines are read: reader, with comment lines and commas, or break; reader if not given",
        false,
        {"reader", "break"}};
}

CCommandOption SeparatorOption()
{
    return {"separator", "C", "by the rules break: the character between fields, or tab"};
}

} // namespace

std::vector<CCommand> CsvCommands()
{
    const CCommandArgument file{"FILE", "the CSV file in UTF-8, or - for the standard input"};
    return {
        {"csv",
         "columns",
         "Print the columns that a CSV file's first line names",
         "Blank lines and, by the rules reader, comments before it are passed over.\n"
         "\n"
         "    utility csv columns parts.csv --rules break --separator ';'",
         {file},
         {RulesOption(), SeparatorOption()},
         Guarded<Columns>},
        {"csv",
         "select",
         "Print some columns of a CSV file, in the order given",
         "Each line is printed as the same rules read it; a field that they could not read back is "
         "refused. A line\n"
         "too short has empty fields.\n"
         "\n"
         "    utility csv select parts.csv Value Name",
         {file, {"COLUMN", "its name in the header, or its number from 1 on", EArity::Many}},
         {RulesOption(), SeparatorOption()},
         Guarded<Select>},
        {"csv",
         "check",
         "Find what is lost when a CSV file is read",
         "Tells each line with a quote that is not closed, with text behind a closing quote, with "
         "a "
         "NUL or a lone\n"
         "CR, with more fields than whoever reads whole files gets, or with another count of "
         "fields "
         "than the header.\n"
         "Ends with 3 if there is one.",
         {{"FILE", "the CSV file in UTF-8, or - for the standard input", EArity::Many}},
         {RulesOption(), SeparatorOption()},
         Guarded<Check>},
        {"csv",
         "convert",
         "Write a CSV file for other rules or with another separator",
         "Comments and blank lines are left out; lines end in CR LF. A field that the rules of the "
         "target could not\n"
         "read back is refused. The target is replaced as a whole, or left as it was; it may be "
         "the "
         "source.\n"
         "\n"
         "    utility csv convert parts.csv other.csv --to-rules break --to-separator tab",
         {file, {"TARGET", "the file to be made"}},
         {RulesOption(),
          SeparatorOption(),
          {"to-rules",
           "RULES",
           "for whom the target is written; as --rules if not given",
           false,
           {"reader", "break"}},
          {"to-separator", "C", "by the rules break: what the target has between fields"}},
         Guarded<Convert>},
    };
}

} // namespace utility
