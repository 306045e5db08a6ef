#include "files/FilePath.h"
#include "frame/AppError.h"
#include "platform/base/PathText.h"
#include "platform/system/window/UserInterface.h"
#include "resources/StringIds.h"

namespace utility
{

namespace
{

constexpr char16_t NOT_ALLOWED[] =
    u"\\/:*?\"<>|"; // in a name, on the systems that designs travel to
constexpr char16_t REPLACED[] = u":/\\?*";
constexpr char16_t ELLIPSIS[] = u"...";

bool IsOneOf(char16_t unit, std::u16string_view set)
{
    return set.find(unit) != std::u16string_view::npos;
}

/// The separator that a path is written with; 0 if it has none.
char16_t SeparatorOf(const CString& path)
{
    return path.Find(u'\\') >= 0 ? u'\\' : path.Find(u'/') >= 0 ? u'/' : u'\0';
}

bool Fits(const CString& text, int maxLength, const CWnd* control)
{
    return control != nullptr ? GetUserInterface().DoesTextFit(text, *control)
                              : text.GetLength() <= maxLength;
}

/// The longest of the forms that leave out folders from the right, as `C:\lib\...\Work\board.pcb`;
/// false if there is none that fits.
bool LeaveOutFolders(CString& text, int maxLength, const CWnd* control)
{
    const char16_t separator = SeparatorOf(text);
    if (separator == 0)
        return false;
    const int first = text.Find(separator);
    const int secondLast = text.Left(text.ReverseFind(separator)).ReverseFind(separator);
    if (secondLast < 0)
        return false;
    const int second = text.Find(separator, first + 1);
    const int leftEnd = (second >= 0 ? second : first) + 1;
    if (leftEnd >= secondLast)
        return false;

    const CString tail = ELLIPSIS + text.Mid(secondLast);
    for (int length = leftEnd; length > first; --length)
    {
        const CString candidate = text.Left(length) + tail;
        if (Fits(candidate, maxLength, control))
        {
            text = candidate;
            return true;
        }
    }
    return false;
}

} // namespace

void CFilePath::Clean(CString& name)
{
    CleanWith(name, CString());
}

void CFilePath::CleanWith(CString& name, const CString& replacement)
{
    if (replacement.FindOneOf(NOT_ALLOWED) >= 0)
        return;
    CString clean;
    clean.Preallocate(name.GetLength());
    for (const char16_t unit : name.View())
    {
        if (IsOneOf(unit, NOT_ALLOWED))
            clean += replacement;
        else
            clean += unit;
    }
    name = clean;
}

bool CFilePath::MakeFileNameLegal(CString& name)
{
    bool isChanged = false;
    for (int i = 0; i < name.GetLength(); ++i)
    {
        if (!IsOneOf(name[i], REPLACED))
            continue;
        name.SetAt(i, u'_');
        isChanged = true;
    }
    return isChanged;
}

void CFilePath::Squeeze(CString& text, int maxLength, CWnd* control)
{
    if (!Fits(text, maxLength, control) && !LeaveOutFolders(text, maxLength, control))
    {
        const CPathParts parts = _wsplitpath(text.View());
        text = CString(ELLIPSIS) + GetDirectorySeparator() + parts.m_FileName + parts.m_Extension;
    }
    const int separator = text.ReverseFind(SeparatorOf(text));
    if (separator > 0)
        text = CAppError::GetErrorString(IDS_NAME_IN_FOLDER, text.Mid(separator + 1),
                                         text.Left(separator));
}

} // namespace utility
