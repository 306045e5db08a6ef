#include "files/CsvReader.h"

#include "platform/base/NumberText.h"
#include "platform/base/UnitSearch.h"
#include "text/TrimView.h"

namespace utility
{

namespace
{

constexpr char16_t SEPARATOR = u',';
constexpr char16_t QUOTE = u'"';
constexpr std::u16string_view EMPTY_QUOTES = u"\"\"";
constexpr std::u16string_view COMMENT = u";"; // what a comment line leaves as its field

bool IsComment(std::u16string_view line)
{
    return line.front() == u';' || line.front() == u'#';
}

void Skip(std::u16string_view& rest, std::size_t count)
{
    rest.remove_prefix(std::min(count, rest.size()));
}

/// The text up to the next such unit, which is cut with it; all of the rest, and false, without
/// one.
bool CutTo(std::u16string_view& rest, char16_t unit, std::u16string_view& field)
{
    const std::size_t end = units::Find(rest, unit);
    field = rest.substr(0, end);
    Skip(rest, end == units::NOT_FOUND ? rest.size() : end + 1);
    return end != units::NOT_FOUND;
}

/// Cuts the next field off a rest that is not empty.
std::u16string_view CutField(std::u16string_view& rest)
{
    std::u16string_view field;
    if (rest.starts_with(EMPTY_QUOTES))
    {
        // On purpose without the comma behind: it gives a further empty field.
        Skip(rest, EMPTY_QUOTES.size());
        return field;
    }
    if (rest.front() != QUOTE)
    {
        CutTo(rest, SEPARATOR, field);
        return TrimView(field);
    }
    Skip(rest, 1);
    if (CutTo(rest, QUOTE, field))
        Skip(rest, 1); // whatever it is, a comma in well-made files
    return field;
}

} // namespace

int CCsvReader::NextLine()
{
    while (ReadString(m_Line))
    {
        ++m_LineNumber;
        const std::u16string_view line = TrimView(m_Line.View());
        if (!line.empty())
            return BreakLine(line);
    }
    return -1;
}

int CCsvReader::BreakLine(std::u16string_view rest)
{
    int count = 0;
    if (IsComment(rest))
    {
        StoreField(0, COMMENT);
        m_Fields.SetSize(1);
        return 0;
    }
    while (!rest.empty())
        StoreField(count++, CutField(rest));
    m_Fields.SetSize(count);
    return count;
}

/// Over the fields of the line before, whose buffers are used again.
void CCsvReader::StoreField(int index, std::u16string_view field)
{
    if (index == m_Fields.GetSize())
        m_Fields.Add(CString(field));
    else
        m_Fields[index] = field;
}

CString CCsvReader::GetField(int index) const
{
    return index >= 0 && index < GetCount() ? m_Fields[index] : CString();
}

int CCsvReader::GetFieldAsInt(int index, int base) const
{
    return wcstol(GetField(index), nullptr, base);
}

void CCsvReader::Rewind()
{
    SeekToBegin();
    m_LineNumber = 0;
}

} // namespace utility
