#pragma once

#include "dialogs/ResizeDialog.h"
#include "frame/IdleHandler.h"
#include "platform/ui/controls/ComboBox.h"
#include "platform/ui/controls/Edit.h"
#include "platform/ui/controls/ListBox.h"

#include "DeskSettings.h"
#include "PartsRows.h"

namespace partsdesk
{

/// The desk: the parts of a table, a line that filters them, and the ways to everything else. The
/// main loop runs around it, not one of its own, since it reads in idle time; closing ends that.
class CPartsWindow : public utility::CResizeDialog
{
public:
    /// An empty `database` is the one read at last.
    explicit CPartsWindow(const utility::CString& database);

    /// Makes and shows the window; false if it cannot.
    bool Open();
    bool PreTranslateMessage(utility::UINT message, utility::WPARAM wParam,
                             utility::LPARAM lParam) override;

protected:
    bool OnInitDialog() override;
    void OnCancel() override;
    void DoDataExchange(utility::CDataExchange* exchange) override;

private:
    /// Reads on while nothing else is to do.
    class CReading : public utility::CIdleHandler
    {
    public:
        explicit CReading(CPartsWindow& window) : m_Window(window) {}
        bool DoIdleProcessing(utility::LONG) override { return m_Window.ReadOn(); }

    private:
        CPartsWindow& m_Window;
    };

    const utility::CMessageMap* GetMessageMap() const override;

    // Commands
    void OnShowPart();
    void OnCopyLine();
    void OnGoToFilter();
    void OnClearFilter();
    void OnReadAgain();
    void OnSettings();
    void OnLog();
    void OnGallery();
    void OnAbout();
    void OnMenu();

    // Notes of controls, and messages
    void OnTableChosen();
    void OnFilterChange();
    utility::LRESULT OnContextMenu(utility::WPARAM wParam, utility::LPARAM lParam);

    void OpenDatabase(const utility::CString& file);
    void ListTables();
    void ListFromStart();
    bool ReadOn();
    void TellState();
    void ShowMenuAt(utility::CPoint place);

    CDeskSettings m_Settings;
    CPartsRows m_Rows;
    int m_Listed = 0; // rows that the list has
    bool m_IsReading = false;
    CReading m_Reading{*this};
    utility::CListBox m_List;
    utility::CComboBox m_Tables;
    utility::CEdit m_Filter;
};

} // namespace partsdesk
