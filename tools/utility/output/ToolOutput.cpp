#include "utility/output/ToolOutput.h"

#include "platform/base/Encoding.h"

#include "utility/output/ScreenWidth.h"

#include <charconv>
#include <cmath>
#include <cstdio>

namespace utility
{

namespace
{

CString QuoteForCsv(const CString& text)
{
    if (text.FindOneOf(u",\"\r\n") < 0)
        return text;
    CString quoted = text;
    quoted.Replace(u"\"", u"\"\"");
    return u"\"" + quoted + u"\"";
}

} // namespace

void PrintBytes(std::string_view bytes)
{
    std::fwrite(bytes.data(), 1, bytes.size(), stdout);
}

void PrintLine(const CString& text)
{
    PrintBytes(ToUtf8(text.View()) + "\n");
}

void PrintCsvLine(const std::vector<CString>& cells)
{
    CString line;
    for (std::size_t cell = 0; cell < cells.size(); cell++)
        line += (cell == 0 ? u"" : u",") + QuoteForCsv(cells[cell]);
    PrintLine(line);
}

void PrintError(const CString& text)
{
    std::fflush(stdout); // keeps the order where both go to one place
    const std::string line = "utility: " + ToUtf8(text.View()) + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
}

bool FinishOutput()
{
    if (std::fflush(stdout) == 0 && !std::ferror(stdout))
        return true;

    PrintError(u"the output could not be written");
    return false;
}

void CJsonWriter::BeginValue()
{
    if (m_NeedsComma)
        m_Text += ", ";
    m_NeedsComma = true;
}

void CJsonWriter::BeginObject()
{
    BeginValue();
    m_Text += '{';
    m_NeedsComma = false;
}

void CJsonWriter::EndObject()
{
    m_Text += '}';
    m_NeedsComma = true;
}

void CJsonWriter::BeginArray()
{
    BeginValue();
    m_Text += '[';
    m_NeedsComma = false;
}

void CJsonWriter::EndArray()
{
    m_Text += ']';
    m_NeedsComma = true;
}

void CJsonWriter::Key(const CString& name)
{
    BeginValue();
    AppendQuoted(name);
    m_Text += ": ";
    m_NeedsComma = false;
}

void CJsonWriter::Text(const CString& text)
{
    BeginValue();
    AppendQuoted(text);
}

void CJsonWriter::Number(std::int64_t value)
{
    BeginValue();
    m_Text += std::to_string(value);
}

void CJsonWriter::Number(double value)
{
    if (!std::isfinite(value))
    {
        Null();
        return;
    }
    BeginValue();
    char digits[32];
    const std::to_chars_result end = std::to_chars(digits, digits + sizeof digits, value);
    m_Text.append(digits, end.ptr);
}

void CJsonWriter::Bool(bool value)
{
    BeginValue();
    m_Text += value ? "true" : "false";
}

void CJsonWriter::Null()
{
    BeginValue();
    m_Text += "null";
}

void CJsonWriter::Field(const CString& name, const CString& text)
{
    Key(name);
    Text(text);
}

void CJsonWriter::Flush()
{
    PrintBytes(m_Text);
    m_Text.clear();
}

void CJsonWriter::AppendQuoted(const CString& text)
{
    m_Text += '"';
    for (const char byte : ToUtf8(text.View()))
    {
        switch (byte)
        {
        case '"':
            m_Text += "\\\"";
            break;
        case '\\':
            m_Text += "\\\\";
            break;
        case '\n':
            m_Text += "\\n";
            break;
        case '\r':
            m_Text += "\\r";
            break;
        case '\t':
            m_Text += "\\t";
            break;
        default:
            if (static_cast<unsigned char>(byte) < 0x20)
            {
                char escape[8];
                std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(byte));
                m_Text += escape;
            }
            else
            {
                m_Text += byte;
            }
        }
    }
    m_Text += '"';
}

namespace
{

constexpr std::u16string_view COLUMN_GAP = u"  ";

void AppendCell(CString& line, const CString& cell, int width, CTextTable::EAlign align)
{
    const CString padding(u' ', std::max(0, width - ScreenWidth(cell)));
    line += align == CTextTable::EAlign::Right ? padding + cell : cell + padding;
}

} // namespace

CString Printable(const CString& text)
{
    CString shown;
    for (const char16_t unit : text.View())
    {
        if (unit == u'\n')
            shown += u"\\n";
        else if (unit == u'\r')
            shown += u"\\r";
        else if (unit == u'\t')
            shown += u"\\t";
        else if (unit < 0x20 || (unit >= 0x7F && unit < 0xA0))
            shown.AppendFormat(u"\\x%02x", static_cast<unsigned>(unit));
        else
            shown += unit;
    }
    return shown;
}

void CTextTable::AddColumn(const CString& heading, EAlign align)
{
    m_Headings.push_back(Printable(heading));
    m_Aligns.push_back(align);
}

void CTextTable::AddRow(std::vector<CString> cells)
{
    cells.resize(m_Headings.size());
    for (CString& cell : cells)
        cell = Printable(cell);
    m_Rows.push_back(std::move(cells));
}

CString CTextTable::Format() const
{
    std::vector<int> widths;
    std::vector<CString> rule;
    for (std::size_t column = 0; column < m_Headings.size(); column++)
    {
        int width = ScreenWidth(m_Headings[column]);
        for (const std::vector<CString>& row : m_Rows)
            width = std::max(width, ScreenWidth(row[column]));
        widths.push_back(width);
        rule.push_back(CString(u'-', width));
    }

    CString text;
    const auto appendLine = [&](const std::vector<CString>& cells)
    {
        CString line;
        for (std::size_t column = 0; column < cells.size(); column++)
        {
            if (column > 0)
                line += COLUMN_GAP;
            AppendCell(line, cells[column], widths[column], m_Aligns[column]);
        }
        text += line.TrimRight(u' ');
        text += u'\n';
    };
    appendLine(m_Headings);
    appendLine(rule);
    for (const std::vector<CString>& row : m_Rows)
        appendLine(row);
    return text;
}

void CTextTable::Print() const
{
    PrintBytes(ToUtf8(Format().View()));
}

} // namespace utility
