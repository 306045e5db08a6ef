#include "platform/ui/ControlStyles.h"
#include "platform/ui/controls/Button.h"
#include "platform/ui/controls/CheckListBox.h"
#include "platform/ui/controls/ComboBox.h"
#include "platform/ui/controls/ComboBoxMessages.h"
#include "platform/ui/controls/Edit.h"
#include "platform/ui/controls/ListBoxMessages.h"
#include "platform/ui/controls/TabCtrl.h"
#include "platform/ui/controls/TreeCtrl.h"

#include "ControlTest.h"

#include <functional>
#include <memory>

namespace utility
{
namespace
{

/// Ends the control that tells it of one thing.
class CEndingParent final : public CWnd
{
public:
    int m_Code = 0;
    CWnd* m_Control = nullptr;

protected:
    bool OnCommand(WPARAM wParam, LPARAM) override
    {
        End(HIWORD(wParam));
        return true;
    }
    bool OnNotify(WPARAM, LPARAM lParam, LRESULT*) override
    {
        End(reinterpret_cast<const NMHDR*>(lParam)->code);
        return true;
    }

private:
    void End(int code)
    {
        if (code == m_Code && m_Control)
            std::exchange(m_Control, nullptr)->DestroyWindow();
    }
};

class DestroyedControlTest : public ControlTest
{
protected:
    DestroyedControlTest()
    {
        m_Ending.CreateEx(0, u"Host", u"", WS_POPUP | WS_VISIBLE, {0, 0, 400, 300}, nullptr);
    }
    template <typename TControl>
    std::unique_ptr<CWnd> Make(DWORD style)
    {
        auto control = std::make_unique<TControl>();
        if constexpr (std::is_same_v<TControl, CButton>)
            control->Create(u"Go", SEEN | style, PLACE, &m_Ending, 5);
        else
            control->Create(SEEN | style, PLACE, &m_Ending, 5);
        return control;
    }

    CEndingParent m_Ending;
};

TEST_F(DestroyedControlTest, MayEndInEachOfItsNotes)
{
    struct CCase
    {
        const char* m_Name;
        std::function<std::unique_ptr<CWnd>()> m_Make;
        int m_Code;
        Qt::Key m_Key; // what the user presses
    };
    const auto list = [&]
    {
        auto control = Make<CCheckListBox>(LBS_NOTIFY);
        static_cast<CListBox&>(*control).AddString(u"R1");
        static_cast<CListBox&>(*control).AddString(u"R2");
        static_cast<CListBox&>(*control).SetCurSel(0);
        return control;
    };
    const auto combo = [&]
    {
        auto control = Make<CComboBox>(CBS_DROPDOWNLIST);
        static_cast<CComboBox&>(*control).AddString(u"mm");
        static_cast<CComboBox&>(*control).AddString(u"inch");
        static_cast<CComboBox&>(*control).SetCurSel(0);
        return control;
    };
    const auto tree = [&]
    {
        auto control = Make<CTreeCtrl>(TVS_HASBUTTONS | TVS_CHECKBOXES);
        auto& items = static_cast<CTreeCtrl&>(*control);
        const HTREEITEM first = items.InsertItem(u"Parts");
        items.InsertItem(u"R1", first);
        items.InsertItem(u"Models");
        items.SelectItem(first);
        return control;
    };
    const auto tabs = [&]
    {
        auto control = Make<CTabCtrl>(0);
        static_cast<CTabCtrl&>(*control).InsertItem(0, u"Part");
        static_cast<CTabCtrl&>(*control).InsertItem(1, u"Model");
        return control;
    };
    const auto edit = [&](DWORD style)
    {
        return [this, style]
        {
            return Make<CEdit>(style);
        };
    };
    const CCase CASES[] = {
        {"field, update", edit(0), EN_UPDATE, Qt::Key_A},
        {"field, change", edit(0), EN_CHANGE, Qt::Key_A},
        {"many lines", edit(ES_MULTILINE), EN_CHANGE, Qt::Key_A},
        {"button", [&] { return Make<CButton>(0); }, BN_CLICKED, Qt::Key_Space},
        {"check box", [&] { return Make<CButton>(BS_AUTO3STATE); }, BN_CLICKED, Qt::Key_Space},
        {"list, row", list, LBN_SELCHANGE, Qt::Key_Down},
        {"list, mark", list, CLBN_CHKCHANGE, Qt::Key_Space},
        {"combo, taken", combo, CBN_SELENDOK, Qt::Key_Down},
        {"combo, changed", combo, CBN_SELCHANGE, Qt::Key_Down},
        {"tree, asked", tree, TVN_SELCHANGING, Qt::Key_Down},
        {"tree, selected", tree, TVN_SELCHANGED, Qt::Key_Down},
        {"tree, opening", tree, TVN_ITEMEXPANDING, Qt::Key_Right},
        {"tree, opened", tree, TVN_ITEMEXPANDED, Qt::Key_Right},
        {"tree, mark", tree, TVN_ITEMCHANGED, Qt::Key_Space},
        {"tree, Enter", tree, NM_RETURN, Qt::Key_Return},
        {"tabs, asked", tabs, TCN_SELCHANGING, Qt::Key_Right},
        {"tabs, changed", tabs, TCN_SELCHANGE, Qt::Key_Right}};
    for (const CCase& row : CASES)
    {
        SCOPED_TRACE(row.m_Name);
        const std::unique_ptr<CWnd> control = row.m_Make();
        QWidget* target = FindWidget(*control).focusProxy();
        if (!target)
            target = &FindWidget(*control);
        m_Ending.m_Code = row.m_Code;
        m_Ending.m_Control = control.get();

        QTest::keyClick(target, Turned(row.m_Key));
        Settle();

        EXPECT_EQ(control->GetSafeHwnd(), nullptr);
        EXPECT_EQ(m_Ending.m_Control, nullptr) << "it was told";
    }
}

} // namespace
} // namespace utility
