#include "files/backup/BackupTemplate.h"

#include "files/FilePath.h"
#include "platform/base/CaseFold.h"
#include "resources/StringIds.h"
#include "resources/StringTable.h"
#include "text/time/DateText.h"
#include "text/time/TimeFormatter.h"

#include <algorithm>

namespace utility
{

namespace
{

constexpr std::u16string_view TAG_START = u"$(";
constexpr char16_t REPLACEMENT[] = u"-"; // for what a file name may not hold
constexpr char16_t SEPARATOR[] = u" ";   // between digits that belong to two tags

constexpr UINT TAGS[] = {IDS_TOKEN_DESIGN_NAME, IDS_TOKEN_DATE,      IDS_TOKEN_TIME,
                         IDS_TOKEN_LABEL,       IDS_TOKEN_INCREMENT, IDS_TOKEN_DECREMENT,
                         IDS_TOKEN_INFINITE};

bool IsNumberTag(UINT tag)
{
    return tag == IDS_TOKEN_INCREMENT || tag == IDS_TOKEN_DECREMENT || tag == IDS_TOKEN_INFINITE;
}

bool IsOfDigits(const CBackupNamePart& part)
{
    return IsNumberTag(part.m_Tag) || part.m_Tag == IDS_TOKEN_DATE || part.m_Tag == IDS_TOKEN_TIME;
}

CString Cleaned(CString text)
{
    CFilePath::CleanWith(text, REPLACEMENT);
    return text;
}

CString DateOf(const CTimeFormatter* time)
{
    return time ? time->GetDefaultDateString() : GetCurrentSystemDate();
}

CString TimeOf(const CTimeFormatter* time)
{
    return time ? time->GetDefaultTimeString() : GetCurrentSystemTime();
}

} // namespace

CBackupTemplate::CBackupTemplate(const CString& text, const CString& designName)
{
    PrepareFilenameParts(text.View(), designName);
}

UINT CBackupTemplate::GetTag(std::u16string_view text)
{
    for (const UINT tag : TAGS)
    {
        const CString name = CStringTable::Get(tag);
        if (!name.IsEmpty() && EqualNoCase(text.substr(0, name.View().size()), name.View()))
            return tag;
    }
    return 0;
}

void CBackupTemplate::PrepareFilenameParts(std::u16string_view text, const CString& designName)
{
    for (std::size_t start = text.find(TAG_START); start != text.npos; start = text.find(TAG_START))
    {
        m_Literal += text.substr(0, start);
        text.remove_prefix(start);
        const UINT tag = GetTag(text);
        if (tag == 0)
            m_Literal += TAG_START;
        else if (tag == IDS_TOKEN_DESIGN_NAME && !designName.IsEmpty())
        {
            m_MatchesBackwards = m_MatchesBackwards || m_NumberTag == 0;
            m_Literal += designName;
        }
        else
            AddTag(tag);
        text.remove_prefix(tag == 0 ? TAG_START.size() : CStringTable::Get(tag).View().size());
    }
    m_Literal += text;
    if (!m_Literal.IsEmpty() || m_Parts.empty())
        m_Parts.push_back({0, m_Literal});
}

void CBackupTemplate::AddTag(UINT tag)
{
    if (IsNumberTag(tag))
    {
        if (m_NumberTag != 0)
            return;
        m_NumberTag = tag;
    }
    m_MatchesBackwards = m_MatchesBackwards || m_NumberTag == 0;
    m_HasLabel = m_HasLabel || tag == IDS_TOKEN_LABEL;
    if (!m_Literal.IsEmpty())
        m_Parts.push_back({0, m_Literal});
    m_Literal.Empty();
    AddTagPart(tag);
}

/// Where two tags of digits meet, nobody could tell whose the digits are.
void CBackupTemplate::AddTagPart(UINT tag)
{
    const CBackupNamePart part{tag, CStringTable::Get(tag)};
    if (!m_Parts.empty() && IsOfDigits(m_Parts.back()) && IsOfDigits(part))
        m_Parts.push_back({0, SEPARATOR});
    m_Parts.push_back(part);
}

void CBackupTemplate::AddNumber(int copyCount)
{
    if (m_NumberTag != 0 || copyCount < 2 || m_HasLabel)
        return;
    m_NumberTag = IDS_TOKEN_INCREMENT;
    AddTagPart(m_NumberTag);
}

void CBackupTemplate::FixLabel(const CString& label)
{
    for (CBackupNamePart& part : m_Parts)
    {
        if (part.m_Tag == IDS_TOKEN_LABEL)
            part = {0, Cleaned(label)};
    }
}

bool CBackupTemplate::HasLiteral() const
{
    return std::ranges::any_of(m_Parts,
                               [](const CBackupNamePart& part)
                               {
                                   CString text = part.m_Text;
                                   return !part.IsTagPart() && !text.Trim().IsEmpty();
                               });
}

CString CBackupTemplate::BuildMultipleCopyName(int number, const CString& label,
                                               const CTimeFormatter* time) const
{
    CString name;
    for (const CBackupNamePart& part : m_Parts)
    {
        if (!part.IsTagPart())
            name += part.m_Text;
        else if (part.m_Tag == m_NumberTag)
            name.AppendFormat(u"%d", number);
        else if (part.m_Tag == IDS_TOKEN_DATE)
            name += Cleaned(DateOf(time));
        else if (part.m_Tag == IDS_TOKEN_TIME)
            name += Cleaned(TimeOf(time));
        else if (part.m_Tag == IDS_TOKEN_LABEL)
            name += Cleaned(label);
    }
    return name;
}

} // namespace utility
