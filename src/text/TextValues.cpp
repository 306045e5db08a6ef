#include "text/TextValues.h"

#include "platform/base/CaseFold.h"
#include "platform/base/CharacterClass.h"
#include "platform/base/NumberText.h"
#include "resources/StringIds.h"

namespace utility
{

CString TitleCase(const CString& text)
{
    std::u16string title(text.View());
    bool isStart = true;
    for (char16_t& unit : title)
    {
        unit = isStart ? ToUpper(ToLower(unit)) : ToLower(unit);
        isStart = IsSpace(unit);
    }
    return CString(std::u16string_view(title));
}

int StringToInt(const CString& text)
{
    return _wtoi(text);
}

CString GetYesNo(bool value)
{
    CString text;
    text.LoadString(value ? IDS_YES : IDS_NO);
    return text;
}

} // namespace utility
