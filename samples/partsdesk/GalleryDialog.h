#pragma once

#include "dialogs/BaseDialog.h"
#include "dialogs/controls/BaseTasksPane.h"
#include "dialogs/controls/ColorWell.h"
#include "dialogs/controls/SimpleSplitter.h"
#include "dialogs/controls/Splash.h"
#include "dialogs/controls/TabWnd.h"
#include "platform/ui/controls/ComboBox.h"
#include "platform/ui/controls/Edit.h"
#include "platform/ui/controls/SpinButton.h"
#include "platform/ui/controls/ToolTipCtrl.h"
#include "platform/ui/controls/TreeCtrl.h"
#include "platform/ui/drawing/Bitmap.h"

namespace partsdesk
{

/// One of each small control, and a line that tells what was heard of it last.
class CGalleryDialog : public utility::CBaseDialog
{
public:
    explicit CGalleryDialog(utility::CWnd* parent);

protected:
    bool OnInitDialog() override;
    void DoDataExchange(utility::CDataExchange* exchange) override;
    bool OnCommand(utility::WPARAM wParam, utility::LPARAM lParam) override;
    bool OnNotify(utility::WPARAM wParam, utility::LPARAM lParam,
                  utility::LRESULT* result) override;

private:
    void FillFields();
    void FillTree();
    void MakePages();
    void MakePanes();
    void MakeTasks();
    void OnColourChange();
    void OnSplash();
    void Tell(const utility::CString& heard);
    utility::CRect TakePlace(int id);

    utility::CTreeCtrl m_Tree;
    utility::SECColorWell m_Colour;
    utility::CComboBox m_Packages;
    utility::CSpinButtonCtrl m_Spin;
    utility::CTabWnd m_Pages;
    utility::CEdit m_FirstPage;
    utility::CEdit m_SecondPage;
    utility::CSimpleSplitter m_Splitter;
    utility::CEdit m_UpperPane;
    utility::CEdit m_LowerPane;
    utility::CBaseTasksPane m_Tasks;
    utility::CToolTipCtrl m_Tips;
    utility::CBitmap m_SplashPicture;
    utility::CSplash m_Splash;
};

} // namespace partsdesk
