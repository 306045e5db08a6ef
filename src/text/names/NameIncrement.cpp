#include "text/names/NameIncrement.h"

#include "files/FilePath.h"
#include "platform/base/CharacterClass.h"
#include "platform/base/String.h"
#include "text/names/NameRange.h"

#include <string>

namespace utility
{

namespace
{

/// Carries leftwards over `first` to `last`, dots skipped: `full` becomes `empty`, the first other
/// digit changes by `step`. False if every digit was full.
bool Carry(std::u16string& text, std::size_t first, std::size_t last, char16_t full, char16_t empty,
           int step)
{
    for (std::size_t index = last; index-- > first;)
    {
        if (text[index] == u'.')
            continue;
        if (text[index] != full)
        {
            text[index] = static_cast<char16_t>(text[index] + step);
            return true;
        }
        text[index] = empty;
    }
    return false;
}

void Raise(std::u16string& text, std::size_t first, std::size_t last)
{
    if (!Carry(text, first, last, u'9', u'0', 1))
        text.insert(first, 1, text[first] == u'0' ? u'1' : u'0');
}

bool IsZero(const std::u16string& text, std::size_t first, std::size_t last)
{
    return text.find_first_not_of(u"0.", first) >= last;
}

void Lower(std::u16string& text, std::size_t first, std::size_t last)
{
    if (Carry(text, first, last, u'0', u'9', -1))
        return;
    for (std::size_t index = first; index < last; ++index)
    {
        if (text[index] == u'9')
            text[index] = u'0';
    }
    text[text.find_last_of(u'0', last - 1)] = u'1';
    text.insert(first, 1, u'-');
}

/// The last run of digits and dots that holds a digit.
void FindNumber(std::u16string& text, std::size_t& first, std::size_t& last)
{
    constexpr const char16_t* DIGITS = u"0123456789";
    constexpr const char16_t* NUMBER = u"0123456789.";
    if (text.find_last_of(DIGITS) == std::u16string::npos)
        text += u'0';
    const std::size_t digit = text.find_last_of(DIGITS);
    const std::size_t before = text.find_last_not_of(NUMBER, digit);
    const std::size_t behind = text.find_first_not_of(NUMBER, digit);
    first = before == std::u16string::npos ? 0 : before + 1;
    last = behind == std::u16string::npos ? text.size() : behind;
}

/// Letters from `index` down; true when the carry has run past the beginning.
bool CarryLetters(std::u16string& text, std::size_t index)
{
    for (++index; index-- > 0;)
    {
        char16_t& unit = text[index];
        if (unit != u'z' && unit != u'Z')
        {
            ++unit;
            return false;
        }
        unit = unit == u'z' ? u'a' : u'A';
    }
    return true;
}

CString NextPart(const CString& part)
{
    std::u16string text(part.View());
    std::size_t first = text.size();
    while (first > 0 && IsDigit(text[first - 1]))
        --first;
    if (first == text.size())
        return part + u'1';
    Raise(text, first, text.size());
    return CString(text);
}

} // namespace

CString Increment(const CString& name)
{
    CString stem;
    CString tail;
    int number = 0;
    int width = 0;
    CNameRange::GetStem(name, stem, number, width, tail);
    if (width == 0)
        return stem + u'1';
    CString next;
    next.Format(u"%s%0*d%s", stem, width, number + 1, tail);
    return next;
}

CString IncrementStyleName(const CString& name)
{
    CString stem;
    CString tail;
    int number = 0;
    int width = 0;
    CNameRange::GetStem(name, stem, number, width, tail);
    return tail.IsEmpty() ? Increment(name) : name + u'1';
}

void IncrementNumber(CString& text, bool up)
{
    std::u16string units(text.View());
    std::size_t first = 0;
    std::size_t last = 0;
    FindNumber(units, first, last);
    bool isNegative = first > 0 && units[first - 1] == u'-';
    if (isNegative && IsZero(units, first, last))
    {
        units.erase(--first, 1);
        --last;
        isNegative = false;
    }
    if (up != isNegative)
        Raise(units, first, last);
    else
        Lower(units, first, last);
    if (isNegative && up && IsZero(units, first, last))
        units.erase(first - 1, 1);
    text = CString(units);
}

void IncrementString(CString& text)
{
    std::u16string units(text.View());
    std::size_t end = units.size();
    while (end > 0 && !IsAlnum(units[end - 1]))
        --end;
    if (end == 0)
    {
        text += u'A';
        return;
    }
    if (IsDigit(units[end - 1]))
    {
        IncrementNumber(text, true);
        return;
    }
    if (CarryLetters(units, end - 1))
        units.insert(0, 1, units.front() == u'a' ? u'a' : u'A');
    text = CString(units);
}

void NextFileName(CString& path)
{
    CFilePath parts(path);
    if (parts.GetFileName().IsEmpty())
        return;
    parts.SetFileName(NextPart(parts.GetFileName()));
    path = parts.GetPath();
}

void NextFileExtn(CString& path)
{
    CFilePath parts(path);
    if (parts.GetExtension().IsEmpty())
        return;
    parts.SetExtension(NextPart(parts.GetExtension()));
    path = parts.GetPath();
}

} // namespace utility
