#include "files/AppFolder.h"
#include "files/backup/BackupFiles.h"
#include "platform/base/Rect.h"
#include "platform/system/window/WindowStyles.h"
#include "platform/ui/ControlStyles.h"
#include "platform/ui/controls/ComboBox.h"

#include "support/SettingsSandbox.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

class AppFolderComboTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_Dialog.CreateEx(0, u"Frame", u"", WS_POPUP, {0, 0, 300, 200}, nullptr));
        // One that sorts: the order of the choices stands all the same.
        ASSERT_TRUE(m_Combo.Create(WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST | CBS_SORT,
                                   {0, 0, 200, 100}, &m_Dialog, 1));
    }
    std::vector<CString> GetRows() const
    {
        std::vector<CString> rows(static_cast<std::size_t>(m_Combo.GetCount()));
        for (std::size_t row = 0; row < rows.size(); ++row)
            m_Combo.GetLBText(static_cast<int>(row), rows[row]);
        return rows;
    }
    EFolderType GetSelected() const
    {
        return static_cast<EFolderType>(m_Combo.GetItemData(m_Combo.GetCurSel()));
    }

    const CSettingsSandbox m_Settings;
    CWnd m_Dialog;
    CComboBox m_Combo;
};

TEST_F(AppFolderComboTest, ListsTheDesignsFolderFirstAndTheGeneralOneLast)
{
    m_Combo.AddString(u"left over");
    CAppFolder::FillCombo(EFolderType::General, m_Combo, false);
    EXPECT_EQ(GetRows(),
              (std::vector<CString>{u"Design Folder", u"This Folder:",
                                    u"This Folder below design file:", u"General Folder"}));
    EXPECT_EQ(GetSelected(), EFolderType::General);

    CAppFolder::FillCombo(EFolderType::BelowDesign, m_Combo, true);
    EXPECT_EQ(GetRows(),
              (std::vector<CString>{u"Library Folder", u"This Folder:",
                                    u"This Folder below Library file:", u"General Folder"}));
    EXPECT_EQ(GetSelected(), EFolderType::BelowDesign);
}

TEST_F(AppFolderComboTest, SelectsWhatIsStored)
{
    CAppFolder folder(u"Reports");
    folder.FillCombo(m_Combo, false);
    EXPECT_EQ(GetSelected(), EFolderType::Design);
    folder.SetFolderType(EFolderType::Named);
    folder.FillCombo(m_Combo, false);
    EXPECT_EQ(GetSelected(), EFolderType::Named);

    CBackupFiles::SetBackupKeepWhere(EFolderType::General);
    CBackupFiles::SetSecurityCopyKeepWhere(EFolderType::BelowDesign);
    CBackupFiles::FillBackupKeepWhereCombo(m_Combo);
    EXPECT_EQ(GetSelected(), EFolderType::General);
    CBackupFiles::FillSecurityCopyKeepWhereCombo(m_Combo);
    EXPECT_EQ(GetSelected(), EFolderType::BelowDesign);
    CBackupFiles::FillRestorePointKeepWhereCombo(m_Combo);
    EXPECT_EQ(GetSelected(), EFolderType::Design);
}

} // namespace
} // namespace utility
