#include "files/backup/BackupTemplate.h"

#include "files/backup/BackupMatch.h"
#include "platform/base/Encoding.h"
#include "resources/StringIds.h"
#include "text/time/TimeFormatter.h"

#include "Require.h"

#include <algorithm>
#include <cstdint>

using namespace utility;

namespace
{

bool IsDigit(char16_t unit)
{
    return unit >= u'0' && unit <= u'9';
}

/// Text before the number, its digits and the text behind it make up the name.
void RequireParts(const CString& name, const CBackupNameMatch& match)
{
    const int count = name.GetLength() - match.m_Before.GetLength() - match.m_After.GetLength();
    Require(count > 0 && match.m_Number >= 0);
    const CString digits = name.Mid(match.m_Before.GetLength(), count);
    Require(std::ranges::all_of(digits.View(), IsDigit));
    Require(match.m_Before + digits + match.m_After == name);
}

/// Nothing in it stands for any text, and no text has digits that a number could be taken for.
bool IsUnambiguous(const CBackupTemplate& pattern)
{
    return std::ranges::none_of(
        pattern.GetParts(),
        [](const CBackupNamePart& part)
        {
            return part.m_Tag == IDS_TOKEN_DESIGN_NAME || part.m_Tag == IDS_TOKEN_LABEL ||
                   (!part.IsTagPart() && std::ranges::any_of(part.m_Text.View(), IsDigit));
        });
}

} // namespace

// A template, a line end, a design's name, a line end, and a file name.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const CString text = FromUtf8({reinterpret_cast<const char*>(data), size});
    const int firstEnd = text.Find(u'\n');
    const int secondEnd = firstEnd < 0 ? -1 : text.Find(u'\n', firstEnd + 1);
    if (secondEnd < 0)
        return 0;
    const CString name = text.Mid(secondEnd + 1);
    const CTimeFormatter time(2024, 12, 31, 23, 59, 58);

    for (const int copyCount : {1, 3})
    {
        CBackupTemplate pattern(text.Left(firstEnd),
                                text.Mid(firstEnd + 1, secondEnd - firstEnd - 1));
        pattern.AddNumber(copyCount);
        Require(!pattern.GetParts().empty());
        CBackupNameMatch match;
        if (MatchBackupFilename(name.View(), pattern, match) && pattern.GetNumberTag() != 0)
            RequireParts(name, match);

        const CString built = pattern.BuildMultipleCopyName(42, u"label", &time);
        CBackupNameMatch own;
        if (!built.IsEmpty() && IsUnambiguous(pattern))
        {
            Require(MatchBackupFilename(built.View(), pattern, own));
            Require(own.m_Number == (pattern.GetNumberTag() != 0 ? 42 : -1));
        }
    }
    return 0;
}
