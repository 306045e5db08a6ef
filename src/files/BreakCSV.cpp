#include "files/BreakCSV.h"

#include "files/CsvFileRowMap.h"
#include "frame/AppLog.h"
#include "platform/base/UnitSearch.h"
#include "platform/base/object/Exception.h"
#include "platform/system/file/FileException.h"
#include "platform/system/file/StdioFile.h"
#include "text/TrimView.h"

namespace utility
{

namespace
{

constexpr char16_t QUOTE = u'"';

/// The text up to the next such unit, which is cut with it; all of the rest without one.
std::u16string_view CutTo(std::u16string_view& rest, char16_t unit)
{
    const std::size_t end = units::Find(rest, unit);
    const std::u16string_view cut = rest.substr(0, end);
    rest.remove_prefix(end == units::NOT_FOUND ? rest.size() : end + 1);
    return cut;
}

/// Cuts the next field off a rest that is not empty.
std::u16string_view CutField(std::u16string_view& rest, char16_t separator)
{
    if (rest.front() != QUOTE)
        return TrimView(CutTo(rest, separator));
    rest.remove_prefix(1);
    const std::u16string_view field = CutTo(rest, QUOTE);
    CutTo(rest, separator); // what stands between the closing quote and the separator is dropped
    return field;
}

using CRow = std::unique_ptr<CStringArray>;

/// The lines of one file, broken into an array that serves them all.
class CRowFile
{
public:
    CRowFile(const CString& path, char16_t separator)
        : m_File(path, CFile::modeRead | CFile::typeText),
          m_Path(path),
          m_Separator(separator),
          m_Fields(CSV_FIELD_LIMIT + 1)
    {
    }

    /// The fields of the next line that is not empty; null at the end of the file.
    CRow ReadRow()
    {
        do
        {
            if (!m_File.ReadString(m_Line))
                return nullptr;
            ++m_LineNumber;
        } while (m_Line.IsEmpty());

        const int count = BreakCSV(m_Line, m_Fields.data(), CSV_FIELD_LIMIT, m_Separator);
        if (!m_Line.IsEmpty())
            TraceLongLine();
        CRow row = std::make_unique<CStringArray>();
        row->SetSize(count);
        for (int i = 0; i < count; ++i)
            std::swap((*row)[i], m_Fields[static_cast<std::size_t>(i)]);
        return row;
    }

private:
    void TraceLongLine() const
    {
        static const CAppLogContext context(u"BreakCSV", 0);
        CAppLog::Log(context, u"Line %1!d! of %2 has more than %3!d! fields\n", m_LineNumber,
                     m_Path, CSV_FIELD_LIMIT);
    }

    CStdioFile m_File;
    CString m_Path;
    char16_t m_Separator;
    std::vector<CString> m_Fields;
    CString m_Line;
    int m_LineNumber = 0;
};

/// All rows of a file, the header first; none if it cannot be read to its end.
std::vector<CRow> ReadRows(const CString& path, char16_t separator)
{
    try
    {
        std::vector<CRow> rows;
        CRowFile file(path, separator);
        while (CRow row = file.ReadRow())
            rows.push_back(std::move(row));
        return rows;
    }
    catch (CFileException* exception)
    {
        const CExceptionGuard guard(exception);
        return {};
    }
}

} // namespace

int BreakCSV(CString& line, CString* fields, int maxFields, char16_t separator)
{
    std::u16string_view rest = line.View();
    const bool isClosed = rest.ends_with(separator);
    int count = 0;
    while (count < maxFields && !rest.empty())
        fields[count++] = CutField(rest, separator);
    if (isClosed)
        fields[count++].Empty();
    line.Delete(0, line.GetLength() - static_cast<int>(rest.size()));
    return count;
}

int BreakCSV(const CString& path, CStringArray& header, int keyColumn, CCsvFileRowMap& rows,
             char16_t separator)
{
    std::vector<CRow> read = ReadRows(path, separator);
    if (read.empty())
        return -1;
    header.Copy(*read.front());
    for (std::size_t i = 1; i < read.size(); ++i)
    {
        const CStringArray& row = *read[i];
        const bool hasKey = keyColumn >= 0 && keyColumn < row.GetSize();
        rows.AddRow(hasKey ? row[keyColumn] : CString(), std::move(read[i]));
    }
    return header.GetSize();
}

int BreakCSV(const CString& path, CStringArray& header, CCsvFileRowMap& rows, char16_t separator)
{
    return BreakCSV(path, header, 0, rows, separator);
}

} // namespace utility
