#include "platform/backend/posix/process/CommandLine.h"

#include "platform/base/PathText.h"

namespace utility
{

namespace
{

constexpr char16_t QUOTE = u'"';
constexpr char16_t BACKSLASH = u'\\';

bool IsBlank(char16_t unit)
{
    return unit == u' ' || unit == u'\t';
}

std::size_t SkipBlanks(std::u16string_view text, std::size_t place)
{
    while (place < text.size() && IsBlank(text[place]))
        ++place;
    return place;
}

/// Reads one argument from its first unit on.
class CArgumentReader
{
public:
    CArgumentReader(std::u16string_view text, std::size_t place) : m_Text(text), m_Place(place) {}

    CString Read()
    {
        while (m_Place < m_Text.size() && (m_IsQuoted || !IsBlank(m_Text[m_Place])))
        {
            if (m_Text[m_Place] == BACKSLASH)
                ReadBackslashes();
            else if (m_Text[m_Place] == QUOTE)
                ReadQuote();
            else
                m_Argument += m_Text[m_Place++];
        }
        return CString(std::u16string_view(m_Argument));
    }

    std::size_t GetPlace() const { return m_Place; }

private:
    /// Backslashes are characters, but in front of a quote two stand for one, and one left over
    /// makes the quote a character.
    void ReadBackslashes()
    {
        std::size_t count = 0;
        for (; m_Place < m_Text.size() && m_Text[m_Place] == BACKSLASH; ++m_Place)
            ++count;
        const bool isBeforeQuote = m_Place < m_Text.size() && m_Text[m_Place] == QUOTE;
        m_Argument.append(isBeforeQuote ? count / 2 : count, BACKSLASH);
        if (isBeforeQuote && count % 2 != 0)
            m_Argument += m_Text[m_Place++];
    }

    void ReadQuote()
    {
        ++m_Place;
        const bool isDoubled = m_IsQuoted && m_Place < m_Text.size() && m_Text[m_Place] == QUOTE;
        if (isDoubled)
            m_Argument += m_Text[m_Place++];
        else
            m_IsQuoted = !m_IsQuoted;
    }

    std::u16string_view m_Text;
    std::size_t m_Place;
    std::u16string m_Argument;
    bool m_IsQuoted = false;
};

} // namespace

std::vector<CString> SplitArguments(std::u16string_view text)
{
    std::vector<CString> arguments;
    std::size_t place = SkipBlanks(text, 0);
    while (place < text.size())
    {
        CArgumentReader reader(text, place);
        arguments.push_back(reader.Read());
        place = SkipBlanks(text, reader.GetPlace());
    }
    return arguments;
}

std::vector<CProgramName> ProgramNames(std::u16string_view line)
{
    const std::size_t begin = SkipBlanks(line, 0);
    if (begin == line.size())
        return {};
    if (line[begin] == QUOTE)
    {
        const std::size_t end = std::min(line.find(QUOTE, begin + 1), line.size());
        return {{CString(line.substr(begin + 1, end - begin - 1)), std::min(end + 1, line.size())}};
    }

    std::vector<CProgramName> names;
    for (std::size_t end = begin; end < line.size();)
    {
        while (end < line.size() && !IsBlank(line[end]))
            ++end;
        if (end - begin > PATH_LIMIT)
            break; // no path any more, and a long line stays linear
        names.push_back({CString(line.substr(begin, end - begin)), end});
        end = SkipBlanks(line, end);
    }
    return names;
}

} // namespace utility
