#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

#include <vector>

namespace utility
{

class CTimeFormatter;

/// One part of a template: a text that stands as it is, or a tag.
struct CBackupNamePart
{
    bool IsTagPart() const { return m_Tag != 0; }

    UINT m_Tag; // an id of IDS_TOKEN_..., 0 for a text
    CString m_Text;
};

/// A template of backup names, cut into literal texts and tags.
///
///     template, design "board"        parts
///     "Copy of $(DesignName)"         "Copy of board"
///     "$(designname) $(Increment)"    "board ", $(Increment)
///     "$(Date)$(Time)"                $(Date), " ", $(Time)
///     "$(Nonsense)"                   "$(Nonsense)"
///     ""                              ""
///
/// Tags are known whatever their case. A name may have one number; a second number tag is dropped.
/// Neighbours that are both of digits (number, date, time) are set apart by a blank, or nobody
/// could find them again. Without a design's name its tag stays a part, which any text matches.
class UTILITY_CORE_API CBackupTemplate
{
public:
    CBackupTemplate(const CString& text, const CString& designName);

    /// Appends "$(Increment)" where several copies would otherwise have one name. A label tells
    /// copies apart by itself.
    void AddNumber(int copyCount);
    /// Makes the label's tag a text, so that only names with this label match.
    void FixLabel(const CString& label);

    const std::vector<CBackupNamePart>& GetParts() const { return m_Parts; }
    /// The id of the number tag; 0 if there is none.
    UINT GetNumberTag() const { return m_NumberTag; }
    bool HasLabel() const { return m_HasLabel; }
    /// Something that varies stands before the number, so names are matched from their end.
    bool MatchesBackwards() const { return m_MatchesBackwards; }
    /// There is a text that is more than blanks, so the names are not just anything.
    bool HasLiteral() const;

    /// The name with a number, a label and a time (null: now). What a file name may not hold is "-"
    /// in label, date and time.
    CString BuildMultipleCopyName(int number, const CString& label,
                                  const CTimeFormatter* time) const;

private:
    void PrepareFilenameParts(std::u16string_view text, const CString& designName);
    void AddTag(UINT tag);
    void AddTagPart(UINT tag);
    static UINT GetTag(std::u16string_view text);

    std::vector<CBackupNamePart> m_Parts;
    CString m_Literal; // what is before the next part, while parts are made
    UINT m_NumberTag = 0;
    bool m_HasLabel = false;
    bool m_MatchesBackwards = false;
};

} // namespace utility
