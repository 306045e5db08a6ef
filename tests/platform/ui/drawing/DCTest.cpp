#include "platform/ui/drawing/DC.h"

#include "platform/base/String.h"
#include "platform/ui/drawing/Bitmap.h"
#include "platform/ui/drawing/Brush.h"
#include "platform/ui/drawing/ClientDC.h"
#include "platform/ui/drawing/Font.h"
#include "platform/ui/drawing/MemoryDC.h"
#include "platform/ui/drawing/Pen.h"

#include <gtest/gtest.h>

#include <functional>

namespace utility
{
namespace
{

constexpr COLORREF RED = RGB(255, 0, 0);
constexpr COLORREF GREEN = RGB(0, 255, 0);

/// A context over a black bitmap of 17 by 17.
class DCTest : public testing::Test
{
protected:
    DCTest()
    {
        m_Bitmap.CreateBitmap(17, 17);
        m_Context.SelectObject(&m_Bitmap);
    }

    /// The letter of each dot: "." black, "R" red, "G" green, "W" white, "?" another.
    std::string GetRow(int y) const
    {
        const CPicture& picture = *CBitmap::Find(m_Bitmap);
        std::string row;
        for (int x = 0; x < picture.m_Size.cx; ++x)
        {
            switch (picture.m_Dots[static_cast<std::size_t>(y * picture.m_Size.cx + x)])
            {
            case 0xFF000000:
                row += '.';
                break;
            case 0xFFFF0000:
                row += 'R';
                break;
            case 0xFF00FF00:
                row += 'G';
                break;
            case 0xFFFFFFFF:
                row += 'W';
                break;
            default:
                row += '?';
                break;
            }
        }
        return row;
    }
    std::string GetFirstRows(int count) const
    {
        std::string rows;
        for (int y = 0; y < count; ++y)
            rows += GetRow(y).substr(0, 8) + "\n";
        return rows;
    }

    CBitmap m_Bitmap;
    CMemoryDC m_Context;
};

TEST_F(DCTest, DrawsDotByDot)
{
    struct CCase
    {
        const char* m_Name;
        std::function<void(CDC&)> m_Draw;
        const char* m_Rows; // the top left corner afterwards
    };
    static const CBrush GREEN_BRUSH(GREEN);
    static constexpr CPoint CORNERS[] = {{1, 1}, {5, 1}, {5, 3}, {1, 3}};
    const CCase CASES[] = {{"filled",
                            [](CDC& dc) {
                                dc.FillSolidRect({1, 1, 4, 3}, RED);
                            },
                            "........\n.RRR....\n.RRR....\n........\n"},
                           {"by a brush",
                            [](CDC& dc) {
                                dc.FillRect({1, 1, 4, 3}, &GREEN_BRUSH);
                            },
                            "........\n.GGG....\n.GGG....\n........\n"},
                           {"framed",
                            [](CDC& dc) {
                                dc.FrameRect({1, 0, 5, 4}, &GREEN_BRUSH);
                            },
                            ".GGGG...\n.G..G...\n.G..G...\n.GGGG...\n"},
                           {"pen and brush",
                            [](CDC& dc) {
                                dc.Rectangle({1, 0, 5, 4});
                            },
                            ".RRRR...\n.RGGR...\n.RGGR...\n.RRRR...\n"},
                           {"hollow",
                            [](CDC& dc)
                            {
                                dc.SelectStockObject(HOLLOW_BRUSH);
                                dc.Rectangle({1, 0, 5, 4});
                            },
                            ".RRRR...\n.R..R...\n.R..R...\n.RRRR...\n"},
                           {"no pen",
                            [](CDC& dc)
                            {
                                dc.SelectStockObject(NULL_PEN);
                                dc.Polygon(CORNERS);
                            },
                            "........\n.GGGG...\n.GGGG...\n........\n"},
                           {"a line without its last dot",
                            [](CDC& dc)
                            {
                                dc.MoveTo({1, 1});
                                dc.LineTo({5, 1});
                            },
                            "........\n.RRRR...\n........\n........\n"},
                           {"lines go on",
                            [](CDC& dc)
                            {
                                dc.MoveTo({1, 0});
                                dc.LineTo({4, 0});
                                dc.LineTo({4, 3});
                            },
                            ".RRRR...\n....R...\n....R...\n........\n"},
                           {"inverted",
                            [](CDC& dc) {
                                dc.InvertRect({0, 0, 2, 2});
                            },
                            "WW......\nWW......\n........\n........\n"},
                           {"a path",
                            [](CDC& dc)
                            {
                                dc.BeginPath();
                                dc.MoveTo({1, 1});
                                dc.LineTo({5, 1});
                                dc.LineTo({5, 3});
                                dc.LineTo({1, 3});
                                dc.EndPath();
                                dc.FillPath();
                            },
                            "........\n.GGGG...\n.GGGG...\n........\n"}};
    for (const CCase& row : CASES)
    {
        SCOPED_TRACE(row.m_Name);
        CPen red(PS_SOLID, 1, RED);
        CBrush green(GREEN);
        m_Context.FillSolidRect({0, 0, 17, 17}, RGB(0, 0, 0));
        m_Context.SelectObject(&red);
        m_Context.SelectObject(&green);
        row.m_Draw(m_Context);
        EXPECT_EQ(GetFirstRows(4), row.m_Rows);
        m_Context.SelectStockObject(BLACK_PEN);
        m_Context.SelectStockObject(WHITE_BRUSH);
    }
}

TEST_F(DCTest, GivesBackWhatWasSelectedBefore)
{
    CPen pen(PS_DOT, 2, RED);
    CFont font;
    ASSERT_TRUE(font.CreatePointFont(90, CString()));

    CPen* first = m_Context.SelectObject(&pen);
    EXPECT_NE(first, nullptr) << "a context begins with a pen";
    EXPECT_EQ(m_Context.SelectObject(first), &pen);
    EXPECT_EQ(m_Context.SelectObject(&font), nullptr);
    EXPECT_EQ(m_Context.SelectObject(static_cast<CFont*>(nullptr)), &font);
    EXPECT_EQ(m_Context.SelectObject(static_cast<CBitmap*>(nullptr)), &m_Bitmap);
    EXPECT_EQ(m_Context.SelectStockObject(999), nullptr);
    EXPECT_EQ(m_Context.SetTextColor(RED), RGB(0, 0, 0));
    EXPECT_EQ(m_Context.SetTextColor(0), RED);
}

TEST_F(DCTest, CopiesFromAnotherBitmap)
{
    CBitmap source;
    source.CreateBitmap(4, 4);
    CMemoryDC from;
    EXPECT_FALSE(m_Context.BitBlt({0, 0, 4, 4}, &from, {}, SRCCOPY)) << "no picture";
    from.SelectObject(&source);
    from.FillSolidRect({0, 0, 4, 4}, GREEN);
    from.FillSolidRect({0, 0, 2, 1}, RED);

    EXPECT_TRUE(m_Context.BitBlt({1, 1, 3, 3}, &from, {1, 0}, SRCCOPY));
    EXPECT_EQ(GetFirstRows(4), "........\n.RG.....\n.GG.....\n........\n");
    EXPECT_TRUE(m_Context.BitBlt({1, 1, 3, 3}, &from, {1, 0}, SRCINVERT));
    EXPECT_EQ(GetFirstRows(4), "........\n........\n........\n........\n");
    EXPECT_FALSE(m_Context.BitBlt({0, 0, 4, 4}, &from, {}, 12345));
}

TEST_F(DCTest, MeasuresAndPlacesTexts)
{
    const CString text = u"Value";
    const CSize one = m_Context.GetTextExtent(text);
    EXPECT_GT(one.cx, 10);
    EXPECT_EQ(one.cy, m_Context.GetTextMetrics().tmHeight);

    CRect rect(3, 4, 5, 6);
    const int height = m_Context.DrawText(text, rect, DT_CALCRECT | DT_SINGLELINE | DT_NOPREFIX);
    EXPECT_EQ(rect.TopLeft(), CPoint(3, 4));
    EXPECT_EQ(rect.Height(), height);
    EXPECT_GE(rect.Width(), one.cx - 2);
    EXPECT_EQ(GetFirstRows(1), "........\n") << "nothing is drawn";

    CRect marked;
    m_Context.DrawText(u"V&alue", marked, DT_CALCRECT | DT_SINGLELINE);
    EXPECT_EQ(marked.Width(), rect.Width()) << "the mark of the letter takes no room";
    CRect wrapped(0, 0, one.cx, 0);
    m_Context.DrawText(u"Value Value", wrapped, DT_CALCRECT | DT_WORDBREAK);
    EXPECT_GE(wrapped.Height(), 2 * one.cy);

    m_Context.SetBkColor(GREEN);
    m_Context.SetBkMode(OPAQUE);
    m_Context.SetTextColor(GREEN);
    CRect all(0, 0, 17, 17);
    m_Context.DrawText(u"WWWWWW", all, DT_LEFT | DT_SINGLELINE);
    EXPECT_EQ(GetRow(3).find_first_not_of("G."), std::string::npos);
    EXPECT_NE(GetRow(3).find('G'), std::string::npos) << "ground behind the text";
}

TEST_F(DCTest, ShowsFontsOfTheSizeAskedFor)
{
    struct CCase
    {
        const char* m_Name;
        LONG m_Height;
        LONG m_Lowest, m_Highest; // of a line
    };
    constexpr CCase CASES[] = {{"letters of 20", -20, 20, 30},
                               {"a line of 20", 20, 17, 21},
                               {"letters of 40", -40, 40, 60}};
    for (const CCase& row : CASES)
    {
        SCOPED_TRACE(row.m_Name);
        CFont font;
        LOGFONT description;
        description.lfHeight = row.m_Height;
        ASSERT_TRUE(font.CreateFontIndirect(description));
        EXPECT_FALSE(font.CreateFontIndirect(description)) << "it is made";
        LOGFONT found;
        ASSERT_TRUE(font.GetLogFont(found));
        EXPECT_EQ(found, description);

        CClientDC context(nullptr);
        context.SelectObject(&font);
        const LONG height = context.GetTextMetrics().tmHeight;
        EXPECT_GE(height, row.m_Lowest);
        EXPECT_LE(height, row.m_Highest);
    }
    CFont points;
    ASSERT_TRUE(points.CreatePointFont(90, u"DejaVu Sans"));
    LOGFONT found;
    ASSERT_TRUE(points.GetLogFont(found));
    EXPECT_EQ(found.lfHeight, -12) << "9 points are 12 of 96 pixels an inch";
}

TEST_F(DCTest, ForgetsHandlesOfToolsThatAreGone)
{
    HBITMAP handle = nullptr;
    {
        CBitmap bitmap;
        EXPECT_FALSE(bitmap.CreateBitmap(0, 5));
        EXPECT_FALSE(bitmap.CreateBitmap(40000, 5));
        EXPECT_FALSE(bitmap.CreateFromPicture({{2, 2}, {0, 0, 0}})) << "a dot too few";
        EXPECT_TRUE(bitmap.CreateBitmap(2, 5));
        handle = bitmap;
        EXPECT_EQ(bitmap.GetSize(), CSize(2, 5));
    }
    EXPECT_EQ(CBitmap::Find(handle), nullptr);
    EXPECT_EQ(CFont::Find(nullptr), nullptr);
}

} // namespace
} // namespace utility
