#include "platform/ui/drawing/Bitmap.h"

#include "platform/ui/ControlStyles.h"
#include "platform/ui/ResourceTables.h"
#include "platform/ui/SystemMetrics.h"
#include "platform/ui/controls/ImageList.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

constexpr CPixelPicture PICTURES[] = {
    {11090,
     {{'r', RGB(255, 0, 0)}, {'m', RGB(255, 0, 255)}, {'t', SystemColour(COLOR_WINDOWTEXT)}},
     R"(
rm.t
)"}};

class BitmapTest : public testing::Test
{
protected:
    BitmapTest() { CResourceTables::AddBitmaps(PICTURES); }
    ~BitmapTest() override { CResourceTables::RemoveBitmaps(PICTURES); }
};

TEST_F(BitmapTest, LoadsPicturesById)
{
    CBitmap bitmap;
    EXPECT_FALSE(bitmap.LoadBitmap(11091));
    ASSERT_TRUE(bitmap.LoadBitmap(11090));
    EXPECT_FALSE(bitmap.LoadBitmap(11090)) << "it is made";

    const CPicture& picture = *CBitmap::Find(bitmap);
    EXPECT_EQ(picture.m_Size, CSize(4, 1));
    EXPECT_EQ(picture.m_Dots[0], 0xFFFF0000U);
    EXPECT_EQ(picture.m_Dots[1], 0xFFFF00FFU);
    EXPECT_EQ(picture.m_Dots[2], 0U) << "see-through";
    const COLORREF text = GetSysColor(COLOR_WINDOWTEXT);
    EXPECT_EQ(picture.m_Dots[3] & 0xFF, GetBValue(text)) << "the desktop's";
}

TEST_F(BitmapTest, CutsAStripIntoPicturesWithAClearColour)
{
    CImageList images;
    EXPECT_FALSE(images.Create(11091, 2, 0));
    ASSERT_TRUE(images.Create(11090, 2, RGB(255, 0, 255)));

    EXPECT_EQ(images.GetImageCount(), 2);
    EXPECT_EQ(images.GetSize(), CSize(2, 1));
    EXPECT_EQ(images.GetPicture(0)->m_Dots, (std::vector<std::uint32_t>{0xFFFF0000, 0}));
    EXPECT_EQ(images.GetPicture(2), nullptr);
    EXPECT_EQ(images.GetPicture(-1), nullptr);
}

} // namespace
} // namespace utility
