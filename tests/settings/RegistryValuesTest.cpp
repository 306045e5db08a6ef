#include "platform/base/ErrorCodes.h"
#include "platform/base/Point.h"
#include "platform/base/collections/ByteArray.h"
#include "platform/base/collections/StringArray.h"
#include "platform/base/object/OleException.h"
#include "platform/base/time/Time.h"
#include "settings/Registry.h"

#include "support/StoreFolder.h"

#include <gtest/gtest.h>

namespace utility
{

namespace
{

class RegistryValuesTest : public testing::Test
{
protected:
    template <typename T>
    T RoundTrip(const T& value, T preset)
    {
        EXPECT_TRUE(m_Key.SetValue(u"v", value));
        EXPECT_TRUE(m_Key.GetValue(u"v", preset));
        return preset;
    }

    CStoreFolder m_Store;
    CRegistry m_Key{u"Software\\K", HKEY_CURRENT_USER};
};

CStringArray Rows(std::initializer_list<const char16_t*> rows)
{
    CStringArray array;
    for (const char16_t* row : rows)
        array.Add(row);
    return array;
}

} // namespace

TEST_F(RegistryValuesTest, EveryTypeComesBack)
{
    EXPECT_EQ(RoundTrip(CString(u"Ω \"x\""), CString()), u"Ω \"x\"");
    EXPECT_EQ(RoundTrip(-5, 0), -5);
    EXPECT_EQ(RoundTrip(DWORD{4000000000U}, DWORD{0}), 4000000000U);
    EXPECT_TRUE(RoundTrip(true, false));
    EXPECT_FALSE(RoundTrip(false, true));
    EXPECT_EQ(RoundTrip(std::int64_t{1} << 62, std::int64_t{0}), std::int64_t{1} << 62);
    EXPECT_DOUBLE_EQ(RoundTrip(0.1234567, 0.0), 0.123457);
    EXPECT_EQ(RoundTrip(CPoint(3, -4), CPoint()), CPoint(3, -4));
    EXPECT_EQ(RoundTrip(CTime(1700000000), CTime()), CTime(1700000000));
    CByteArray bytes;
    for (int at = 0; at < 700; ++at) // beyond the first buffer
        bytes.Add(static_cast<BYTE>(at));
    const CByteArray back = RoundTrip(bytes, CByteArray());
    ASSERT_EQ(back.GetSize(), 700);
    EXPECT_EQ(back[699], static_cast<BYTE>(699));
}

TEST_F(RegistryValuesTest, AFailedReadKeepsThePreset)
{
    ASSERT_TRUE(m_Key.SetValue(u"text", u"12"));
    ASSERT_TRUE(m_Key.SetValue(u"number", 1));
    int number = 7;
    bool flag = true;
    std::int64_t wide = 8;
    double real = 1.5;
    CByteArray bytes;
    bytes.Add(9);

    EXPECT_FALSE(m_Key.GetValue(u"text", number));
    EXPECT_FALSE(m_Key.GetValue(u"text", flag));
    EXPECT_FALSE(m_Key.GetValue(u"number", wide));
    EXPECT_FALSE(m_Key.GetValue(u"none", real));
    EXPECT_FALSE(m_Key.GetValue(u"text", bytes));

    EXPECT_EQ(number, 7);
    EXPECT_TRUE(flag);
    EXPECT_EQ(wide, 8);
    EXPECT_EQ(real, 1.5);
    EXPECT_EQ(bytes.GetSize(), 1);
}

TEST_F(RegistryValuesTest, TextIsReadWhateverTheTypeAndUpToItsLimit)
{
    ASSERT_TRUE(m_Key.SetValue(u"number", 1));
    CString text;
    EXPECT_TRUE(m_Key.GetValue(u"number", text));
    EXPECT_EQ(text, u"\x01");

    EXPECT_TRUE(m_Key.SetValue(u"long", CString(u'x', 1023)));
    EXPECT_TRUE(m_Key.GetValue(u"long", text));
    EXPECT_EQ(text.GetLength(), 1023);
    EXPECT_TRUE(m_Key.SetValue(u"long", CString(u'y', 1024)));
    EXPECT_FALSE(m_Key.GetValue(u"long", text));
    EXPECT_FALSE(m_Key.SetValue(u"long", CString(u'z', 2048)));
    EXPECT_EQ(text, CString(u'x', 1023));
}

TEST_F(RegistryValuesTest, AShorterListLeavesNoStaleRows)
{
    ASSERT_TRUE(m_Key.SetValue(u"list", Rows({u"1", u"2", u"3", u"4", u"5"})));
    ASSERT_TRUE(m_Key.SetValue(u"list", Rows({u"a", u"b"})));

    CStringArray rows = Rows({u"preset"});
    EXPECT_TRUE(m_Key.GetValue(u"list", rows));
    ASSERT_EQ(rows.GetSize(), 2);
    EXPECT_EQ(rows[1], u"b");
    CString name;
    CRegistry list(u"Software\\K\\list", HKEY_CURRENT_USER);
    EXPECT_TRUE(list.GetNextValue(name, 2));
    EXPECT_EQ(name, u"String1");
    EXPECT_FALSE(list.GetNextValue(name, 3));

    ASSERT_TRUE(list.DeleteValue(u"String0"));
    EXPECT_FALSE(m_Key.GetValue(u"list", rows));
    ASSERT_EQ(rows.GetSize(), 1);
    EXPECT_EQ(rows[0], u"");
}

TEST_F(RegistryValuesTest, OneHalfOfAPointIsEnough)
{
    ASSERT_TRUE(CRegistry(u"Software\\K\\p", HKEY_CURRENT_USER).SetValue(u"y", 6));
    CPoint point(1, 2);

    EXPECT_TRUE(m_Key.GetValue(u"p", point));

    EXPECT_EQ(point, CPoint(1, 6));
    EXPECT_FALSE(m_Key.GetValue(u"q", point));
}

TEST_F(RegistryValuesTest, ATextThatIsNoTimeRaisesTheException)
{
    for (const char16_t* text :
         {u"not a time", u"", u"23:59:59 31-Dec-1969", u"00:00:00 30-Feb-2024"})
    {
        SCOPED_TRACE(testing::PrintToString(CString(text)));
        ASSERT_TRUE(m_Key.SetValue(u"t", text));
        CTime time(5);
        HRESULT code = 0;
        try
        {
            m_Key.GetValue(u"t", time);
        }
        catch (COleException* exception)
        {
            code = exception->m_sc;
            exception->Delete();
        }
        EXPECT_EQ(code, E_FAIL);
        EXPECT_EQ(time, CTime(5));
    }
}

TEST_F(RegistryValuesTest, MultipleTextsAreAppendedOneByOne)
{
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, u"Software\\K", 0, nullptr, 0, KEY_WRITE, nullptr,
                              &key, nullptr),
              0);
    const char16_t texts[] = u"one\0two\0";
    ASSERT_EQ(RegSetValueExW(key, u"m", 0, REG_MULTI_SZ, reinterpret_cast<const BYTE*>(texts),
                             sizeof(texts)),
              0);
    RegCloseKey(key);
    CStringArray values = Rows({u"before"});

    EXPECT_TRUE(m_Key.GetMultiValues_64BFlag(u"m", values));

    ASSERT_EQ(values.GetSize(), 3);
    EXPECT_EQ(values[2], u"two");
}

TEST_F(RegistryValuesTest, TreesAreCopiedAndDeletedAsAWhole)
{
    ASSERT_TRUE(CRegistry(u"Software\\K\\a\\b", HKEY_CURRENT_USER).SetValue(u"v", 1));
    ASSERT_TRUE(m_Key.CopyKey(u"a", u"a\\copy")); // below itself: ends
    int number = 0;
    EXPECT_TRUE(CRegistry(u"Software\\K\\a\\copy\\b", HKEY_CURRENT_USER).GetValue(u"v", number));
    EXPECT_EQ(number, 1);
    EXPECT_FALSE(m_Key.CopyKey(u"none", u"c"));

    EXPECT_TRUE(m_Key.DeleteKey(u"a"));
    EXPECT_EQ(m_Key.GetKey(), u"Software\\K");
    EXPECT_FALSE(m_Key.KeyExists(u"a"));
    EXPECT_TRUE(m_Key.KeyExists(u""));
    EXPECT_TRUE(m_Key.DeleteKey());
    EXPECT_EQ(m_Key.GetKey(), u"Software");
}

} // namespace utility
