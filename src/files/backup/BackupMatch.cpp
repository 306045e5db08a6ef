#include "files/backup/BackupMatch.h"

#include "files/backup/BackupTemplate.h"
#include "platform/base/CaseFold.h"
#include "platform/base/CharacterClass.h"
#include "resources/StringIds.h"

#include <limits>

namespace utility
{

namespace
{

int NumberOf(std::u16string_view digits)
{
    constexpr std::int64_t LIMIT = std::numeric_limits<int>::max();
    std::int64_t number = 0;
    for (const char16_t digit : digits)
        number = std::min(number * 10 + (digit - u'0'), LIMIT);
    return static_cast<int>(number);
}

/// A walk over a name from its start, or from its end; all that is taken lies behind it.
class CNameWalk
{
public:
    CNameWalk(std::u16string_view name, bool isBackwards) : m_Name(name), m_IsBackwards(isBackwards)
    {
    }

    // The last digits of a number, date or time are left for what comes next, if they are its.
    bool TakeLiteral(std::u16string_view text);
    bool MatchDateTimeTag(std::size_t digitsOfNext);
    bool MatchNumberTag(std::size_t digitsOfNext, CBackupNameMatch& match);
    /// Whatever comes now may be of any length.
    void TakeAnything() { m_IsSkipping = true; }
    bool IsAtEnd() const { return GetLeft() == 0 || m_IsSkipping; }

private:
    std::size_t GetLeft() const { return m_Name.size() - m_Taken; }
    std::u16string_view Next(std::size_t length) const;
    bool IsAtDigit() const { return GetLeft() > 0 && IsDigit(Next(1)[0]); }
    void SkipToDigit();
    std::size_t TakeDigits(std::size_t digitsOfNext = 0);

    std::u16string_view m_Name;
    bool m_IsBackwards;
    bool m_IsSkipping = false; // what stands here may belong to a part that is any text
    std::size_t m_Taken = 0;
};

std::u16string_view CNameWalk::Next(std::size_t length) const
{
    return m_Name.substr(m_IsBackwards ? GetLeft() - length : m_Taken, length);
}

bool CNameWalk::TakeLiteral(std::u16string_view text)
{
    for (; GetLeft() >= text.size(); ++m_Taken)
    {
        if (EqualNoCase(Next(text.size()), text))
        {
            m_Taken += text.size();
            m_IsSkipping = false;
            return true;
        }
        if (!m_IsSkipping)
            return false;
    }
    return false;
}

void CNameWalk::SkipToDigit()
{
    while (m_IsSkipping && GetLeft() > 0 && !IsAtDigit())
        ++m_Taken;
}

std::size_t CNameWalk::TakeDigits(std::size_t digitsOfNext)
{
    const std::size_t before = m_Taken;
    while (IsAtDigit())
        ++m_Taken;
    m_Taken = std::max(before, m_Taken - std::min(m_Taken, digitsOfNext));
    return m_Taken - before;
}

bool CNameWalk::MatchNumberTag(std::size_t digitsOfNext, CBackupNameMatch& match)
{
    SkipToDigit();
    const std::size_t before = m_Taken;
    const std::size_t count = TakeDigits(digitsOfNext);
    if (count == 0)
        return false;
    const std::size_t start = m_IsBackwards ? GetLeft() : before;
    match.m_Number = NumberOf(m_Name.substr(start, count));
    match.m_Before = CString(m_Name.substr(0, start));
    match.m_After = CString(m_Name.substr(start + count));
    m_IsSkipping = false;
    return true;
}

/// Three groups of digits with any one unit between them.
bool CNameWalk::MatchDateTimeTag(std::size_t digitsOfNext)
{
    constexpr int GROUPS = 3;
    SkipToDigit();
    for (int group = 0; group < GROUPS; ++group)
    {
        if (group > 0 && GetLeft() > 0)
            ++m_Taken;
        if (TakeDigits(group + 1 == GROUPS ? digitsOfNext : 0) == 0)
            return false;
    }
    m_IsSkipping = false;
    return true;
}

/// How many digits the near end of a text has: "board2" met from behind has one.
std::size_t CountDigits(const CBackupNamePart& part, bool isBackwards)
{
    if (part.IsTagPart())
        return 0;
    const std::u16string_view text = part.m_Text.View();
    std::size_t count = 0;
    while (count < text.size() && IsDigit(text[isBackwards ? text.size() - 1 - count : count]))
        ++count;
    return count;
}

bool TakePart(CNameWalk& walk, const CBackupNamePart& part, std::size_t digitsOfNext,
              CBackupNameMatch& match)
{
    switch (part.m_Tag)
    {
    case 0:
        return walk.TakeLiteral(part.m_Text.View());
    case IDS_TOKEN_DATE:
    case IDS_TOKEN_TIME:
        return walk.MatchDateTimeTag(digitsOfNext);
    case IDS_TOKEN_DESIGN_NAME:
    case IDS_TOKEN_LABEL:
        walk.TakeAnything();
        return true;
    default:
        return walk.MatchNumberTag(digitsOfNext, match);
    }
}

} // namespace

bool MatchBackupFilename(std::u16string_view name, const CBackupTemplate& pattern,
                         CBackupNameMatch& match)
{
    const std::vector<CBackupNamePart>& parts = pattern.GetParts();
    const bool isBackwards = pattern.MatchesBackwards();
    const auto partAt = [&](std::size_t index) -> const CBackupNamePart&
    {
        return parts[isBackwards ? parts.size() - 1 - index : index];
    };
    CNameWalk walk(name, isBackwards);
    CBackupNameMatch found;
    for (std::size_t i = 0; i < parts.size(); ++i)
    {
        const std::size_t digitsOfNext =
            i + 1 < parts.size() ? CountDigits(partAt(i + 1), isBackwards) : 0;
        if (!TakePart(walk, partAt(i), digitsOfNext, found))
            return false;
    }
    if (name.empty() || !walk.IsAtEnd())
        return false;
    match = found;
    return true;
}

} // namespace utility
