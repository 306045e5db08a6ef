#include "platform/ui/DialogTemplate.h"

#include "platform/base/Encoding.h"
#include "platform/ui/ControlStyles.h"
#include "platform/ui/ResourceTables.h"

#include "Require.h"

#include <cstdint>
#include <string_view>

using namespace utility;

namespace
{

/// What every control of an accepted text has.
void CheckItem(const CDialogTemplateItem& item, CSize dialog)
{
    Require(!item.m_ClassName.IsEmpty());
    Require(item.m_Id >= 1 && item.m_Id <= 0xFFFF);
    Require(item.m_Place.left >= 0 && item.m_Place.right <= dialog.cx);
    Require(item.m_Place.top >= 0 && item.m_Place.bottom <= dialog.cy);
    Require(!item.m_Place.IsRectEmpty());
    Require((item.m_Style & WS_CHILD) != 0);
}

void CheckDialogs(std::u16string_view text)
{
    CDialogTextReader reader(text);
    CDialogLine line;
    while (reader.ReadDialog(line))
    {
        std::size_t controls = 0;
        for (CControlLine control; reader.ReadControl(control); ++controls)
        {
        }
        CDialogTemplate dialog;
        Require(line.m_Id != 0 ? dialog.Load(line.m_Id) : dialog.Load(CString(line.m_Name)));
        Require(dialog.GetItems().size() == controls);
        for (const CDialogTemplateItem& item : dialog.GetItems())
            CheckItem(item, dialog.GetSizeInDialogUnits());
    }
}

} // namespace

// A text is refused with a place inside it, or each of its dialogs is found and made.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const CString text = FromUtf8(std::string_view(reinterpret_cast<const char*>(data), size));
    CDialogTextFault fault;
    if (CResourceTables::AddDialogs(text.View(), fault))
    {
        CheckDialogs(text.View());
        CResourceTables::RemoveDialogs(text.View());
        return 0;
    }
    Require(fault.m_Line >= 1 && fault.m_Column >= 1);
    Require(fault.m_Offset <= text.View().size());
    Require(!DescribeFault(fault, text.View()).IsEmpty());
    return 0;
}
