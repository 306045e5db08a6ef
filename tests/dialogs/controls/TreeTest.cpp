#include "dialogs/controls/Tree.h"

#include "platform/ui/ControlStyles.h"
#include "platform/ui/controls/ControlTest.h"

namespace utility
{
namespace
{

class TreeTest : public ControlTest
{
protected:
    TreeTest()
    {
        m_Tree.Create(SEEN | TVS_HASBUTTONS, PLACE, &m_Parent, 7);
        const HTREEITEM parts = m_Tree.InsertItem(u"Parts");
        const HTREEITEM passive = m_Tree.InsertItem(u"Passive", parts);
        m_R1 = m_Tree.InsertItem(u"R1", passive);
        m_Tree.InsertItem(u"C1", passive);
        m_Tree.InsertItem(u"Active", parts);
        m_Tree.InsertItem(u"Models");
        m_Tree.SetItemData(m_R1, 5);
    }
    std::vector<CString> Walk(HTREEITEM top) const
    {
        std::vector<CString> texts;
        for (HTREEITEM item = m_Tree.GetNext(nullptr, top); item; item = m_Tree.GetNext(item, top))
            texts.push_back(m_Tree.GetItemText(item));
        return texts;
    }

    CTree m_Tree;
    HTREEITEM m_R1 = nullptr;
};

TEST_F(TreeTest, WalksItemsAsTheyAreSeen)
{
    using Texts = std::vector<CString>;
    EXPECT_EQ(Walk(nullptr), (Texts{u"Parts", u"Passive", u"R1", u"C1", u"Active", u"Models"}));
    EXPECT_EQ(Walk(m_Tree.FindPath(u"Parts")), (Texts{u"Passive", u"R1", u"C1", u"Active"}));
    EXPECT_EQ(Walk(m_Tree.FindPath(u"Parts\\Passive")), (Texts{u"R1", u"C1"}));
    EXPECT_EQ(Walk(m_R1), Texts{});
}

TEST_F(TreeTest, FindsItemsByPathAndData)
{
    EXPECT_EQ(m_Tree.GetPath(m_R1), u"Parts\\Passive\\R1");
    EXPECT_EQ(m_Tree.GetPath(m_R1, u'/'), u"Parts/Passive/R1");
    EXPECT_EQ(m_Tree.GetLevel(m_R1), 2);
    EXPECT_EQ(m_Tree.FindPath(u"parts/PASSIVE/r1", u'/'), m_R1);
    for (const char16_t* path : {u"", u"Parts\\", u"Passive", u"Parts\\Passive\\R1\\X"})
    {
        SCOPED_TRACE(testing::PrintToString(CString(path)));
        EXPECT_EQ(m_Tree.FindPath(path), nullptr);
    }
    EXPECT_EQ(m_Tree.FindItemData(5), m_R1);
    EXPECT_EQ(m_Tree.FindItemData(6), nullptr);
}

TEST_F(TreeTest, OpensAndEmptiesItemsAsAWhole)
{
    const HTREEITEM passive = m_Tree.FindPath(u"Parts\\Passive");
    m_Tree.ExpandAll();
    EXPECT_TRUE(m_Tree.GetItemState(passive, TVIS_EXPANDED));
    m_Tree.ExpandAll(false);
    EXPECT_FALSE(m_Tree.GetItemState(passive, TVIS_EXPANDED));

    m_Tree.DeleteChildren(passive);
    EXPECT_EQ(m_Tree.GetCount(), 4U);
    EXPECT_FALSE(m_Tree.ItemHasChildren(passive));
}

} // namespace
} // namespace utility
