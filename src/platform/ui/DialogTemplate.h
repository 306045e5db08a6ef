#pragma once

#include "platform/base/Export.h"
#include "platform/base/Rect.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"
#include "platform/ui/DialogUnits.h"

#include <vector>

namespace utility
{

/// The id of controls that nobody asks for: labels, lines.
constexpr UINT IDC_STATIC = 0xFFFF;

/// One control of a template, in the order of tabs.
struct CDialogTemplateItem
{
    UINT m_Id = IDC_STATIC;
    CString m_ClassName;
    CString m_Text;           // of a picture "#" and its id
    CString m_AccessibleName; // what a screen reader says; never empty where keys are taken
    CRect m_Place;            // dialog units
    DWORD m_Style = 0;        // with WS_CHILD, and WS_VISIBLE unless it begins hidden
};

/// The design of a dialog: its frame and its controls, before it is a window.
///
/// A value: a copy may be changed without touching the table that it came from. There is one form,
/// which holds what plain and extended templates hold elsewhere. Places and sizes are dialog units,
/// of the client area.
class UTILITY_UI_API CDialogTemplate
{
public:
    CDialogTemplate() = default;

    // From the tables (ResourceTables.h). False, with the last system code 1814 and the template
    // left alone, if no table has it.
    [[nodiscard]] bool Load(UINT id);
    [[nodiscard]] bool Load(const char16_t* name); // case does not matter

    // The dialog
    UINT GetId() const { return m_Id; } // 0: it goes by its name
    const CString& GetName() const { return m_Name; }
    const CString& GetCaption() const { return m_Caption; }
    DWORD GetStyle() const { return m_Style; }
    DWORD GetExStyle() const { return m_ExStyle; }
    /// Of its top left corner; counts only without DS_CENTER.
    CPoint GetPosition() const { return m_Position; }
    CSize GetSizeInDialogUnits() const { return m_Size; }
    CSize GetSizeInPixels(const CDialogUnits& units) const { return units.ToPixels(m_Size); }

    // The font
    bool HasFont() const { return m_FontHeight != 0; }
    /// False, and both keep their presets, if it takes the font of all dialogs.
    bool GetFont(CString& face, WORD& height) const;
    /// `height` is in points; 0 goes back to the font of all dialogs.
    void SetFont(const CString& face, WORD height);

    // The controls
    const std::vector<CDialogTemplateItem>& GetItems() const { return m_Items; }
    /// Null if there is none.
    const CDialogTemplateItem* FindItem(UINT id) const;

private:
    friend class CDialogTemplateMaker;

    UINT m_Id = 0;
    CString m_Name;
    CString m_Caption;
    DWORD m_Style = 0;
    DWORD m_ExStyle = 0;
    CPoint m_Position;
    CSize m_Size;
    CString m_FontFace;
    WORD m_FontHeight = 0; // 0: the font of all dialogs
    std::vector<CDialogTemplateItem> m_Items;
};

} // namespace utility
