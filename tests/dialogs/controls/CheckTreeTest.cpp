#include "dialogs/controls/CheckTree.h"

#include "platform/ui/ControlStyles.h"
#include "platform/ui/controls/Button.h"
#include "platform/ui/controls/ControlTest.h"

#include <string>

namespace utility
{
namespace
{

/// Layers: top (pads, tracks) and bottom (pads).
class CheckTreeTest : public ControlTest
{
protected:
    CheckTreeTest()
    {
        m_Tree.Create(SEEN | TVS_HASBUTTONS | TVS_LINESATROOT, PLACE, &m_Parent, 7);
        for (const char16_t* path :
             {u"Top", u"Top\\Pads", u"Top\\Tracks", u"Bottom", u"Bottom\\Pads"})
        {
            const CString text = path;
            const int cut = text.ReverseFind(u'\\');
            const HTREEITEM above = cut < 0 ? TVI_ROOT : m_Tree.FindPath(text.Left(cut));
            m_Tree.InsertItem(text.Mid(cut + 1), above);
        }
        m_Tree.ExpandAll();
        m_Parent.m_Silent = {NM_CLICK, TVN_SELCHANGING, TVN_SELCHANGED};
    }
    /// Each item's mark as it is seen: "x" marked, "-" half, "." not.
    std::string Marks() const
    {
        std::string marks;
        for (HTREEITEM item = m_Tree.GetRootItem(); item; item = m_Tree.GetNext(item))
            marks += ".x-"[m_Tree.GetMark(item)];
        return marks;
    }
    HTREEITEM At(const char16_t* path) const { return m_Tree.FindPath(path); }

    CCheckTree m_Tree;
};

TEST_F(CheckTreeTest, SpreadsMarksDownAndUp)
{
    struct CCase
    {
        const char16_t* m_Path;
        bool m_IsMarked;
        const char* m_Marks; // Top, its Pads, its Tracks, Bottom, its Pads
    };
    constexpr CCase CASES[] = {{u"Top", true, "xxx.."},          {u"Top\\Pads", false, "-.x.."},
                               {u"Bottom\\Pads", true, "-.xxx"}, {u"Top\\Tracks", false, "...xx"},
                               {u"Top\\Pads", true, "-x.xx"},    {u"Top\\Tracks", true, "xxxxx"},
                               {u"Bottom", false, "xxx.."}};
    for (const CCase& row : CASES)
    {
        SCOPED_TRACE(row.m_Marks);
        m_Tree.SetMark(At(row.m_Path), row.m_IsMarked);
        EXPECT_EQ(Marks(), row.m_Marks);
    }
    EXPECT_EQ(m_Parent.TakeCodes(), std::vector<int>{}) << "the program's own marks";
    EXPECT_EQ(m_Tree.GetMarkedEnds(),
              (std::vector<HTREEITEM>{At(u"Top\\Pads"), At(u"Top\\Tracks")}));
    m_Tree.MarkAll(false);
    EXPECT_EQ(Marks(), ".....");
}

TEST_F(CheckTreeTest, SpreadsWhatTheUserDoesAndTellsOnce)
{
    const auto press = [&](const char16_t* path)
    {
        m_Tree.SelectItem(At(path));
        Press(m_Tree, Qt::Key_Space);
    };
    press(u"Top\\Pads");
    EXPECT_EQ(Marks(), "-x...");
    EXPECT_EQ(m_Parent.TakeCodes(), std::vector<int>{TVN_ITEMCHANGED});
    press(u"Top");
    EXPECT_EQ(Marks(), "xxx..") << "a half mark becomes a whole one";
    press(u"Top");
    EXPECT_EQ(Marks(), ".....");
}

TEST_F(CheckTreeTest, PutsMarksRightAfterItemsWereAdded)
{
    m_Tree.SetMark(At(u"Bottom"));
    m_Tree.InsertItem(u"Tracks", At(u"Bottom"));
    EXPECT_EQ(Marks(), "...xx.");

    m_Tree.UpdateMarks();
    EXPECT_EQ(Marks(), "...-x.");
    EXPECT_EQ(m_Tree.GetMark(At(u"Bottom")), BST_INDETERMINATE);
    EXPECT_FALSE(m_Tree.IsMarked(At(u"Bottom")));
}

} // namespace
} // namespace utility
