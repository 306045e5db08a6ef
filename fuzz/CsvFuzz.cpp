#include "files/BreakCSV.h"
#include "files/CsvFileRowMap.h"
#include "files/CsvReader.h"

#include "FuzzFile.h"
#include "Require.h"

#include <cstdint>
#include <vector>

using namespace utility;

namespace
{

constexpr std::size_t LITERAL_LIMIT = 4096; // bytes; the literal rules below are quadratic

// The rules of BreakCSV taken word by word, cutting the front off the line for every field.
std::vector<CString> BreakLiterally(CString line, int limit, char16_t separator)
{
    std::vector<CString> fields;
    const bool isClosed = !line.IsEmpty() && line[line.GetLength() - 1] == separator;
    while (static_cast<int>(fields.size()) < limit && !line.IsEmpty())
    {
        const bool isQuoted = line[0] == u'"';
        if (isQuoted)
            line.Delete(0, 1);
        const int end = line.Find(isQuoted ? u'"' : separator);
        CString field = end < 0 ? line : line.Left(end);
        line = end < 0 ? CString() : line.Mid(end + 1);
        if (isQuoted)
        {
            const int next = line.Find(separator);
            line = next < 0 ? CString() : line.Mid(next + 1);
        }
        else
            field.Trim();
        fields.push_back(field);
    }
    if (isClosed)
        fields.emplace_back();
    return fields;
}

void CheckLine(const CString& line, int limit, char16_t separator)
{
    std::vector<CString> fields(static_cast<std::size_t>(limit) + 1);
    CString rest = line;
    const int count = BreakCSV(rest, fields.data(), limit, separator);
    fields.resize(static_cast<std::size_t>(count));
    Require(fields == BreakLiterally(line, limit, separator));
    Require(line.Right(rest.GetLength()) == rest);
}

void CheckLines(const CString& path)
{
    CStdioFile file(path, CFile::modeRead | CFile::typeText);
    for (CString line; file.ReadString(line);)
    {
        CheckLine(line, line.GetLength() + 1, u',');
        CheckLine(line, 3, u';');
    }
}

// Fields are no longer than their line, and reading again gives the same.
void CheckReader(const CString& path)
{
    CCsvReader reader(path, CFile::modeRead);
    std::vector<CString> fields[2];
    for (std::vector<CString>& run : fields)
    {
        for (int count = reader.NextLine(); count >= 0; count = reader.NextLine())
        {
            Require(reader.GetCount() == count || (count == 0 && reader.GetField(0) == u";"));
            for (int i = 0; i < reader.GetCount(); ++i)
                run.push_back(reader.GetField(i));
        }
        reader.Rewind();
    }
    Require(fields[0] == fields[1]);
}

void CheckFile(const CString& path)
{
    CStringArray header;
    CCsvFileRowMap rows;
    const int count = BreakCSV(path, header, 1, rows, u',');
    Require(count == (header.IsEmpty() ? -1 : header.GetSize()));
    Require(count <= CSV_FIELD_LIMIT + 1);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const CString path = MakeFuzzFile("csv", {reinterpret_cast<const char*>(data), size});
    if (size <= LITERAL_LIMIT)
        CheckLines(path);
    CheckReader(path);
    CheckFile(path);
    RemoveFuzzFile("csv");
    return 0;
}
