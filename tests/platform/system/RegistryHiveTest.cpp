#include "platform/system/RegistryHive.h"

#include "platform/base/ErrorCodes.h"
#include "platform/base/String.h"

#include "support/ChildProcess.h"
#include "support/StoreFolder.h"

#include <gtest/gtest.h>

namespace utility
{

namespace
{

/// An open key for one expression's length.
class CKey
{
public:
    explicit CKey(const char16_t* path, HKEY root = HKEY_CURRENT_USER)
    {
        m_Code =
            RegCreateKeyExW(root, path, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &m_Key, nullptr);
    }
    ~CKey()
    {
        if (m_Code == ERROR_SUCCESS)
            RegCloseKey(m_Key);
    }
    operator HKEY() const { return m_Key; }

private:
    HKEY m_Key = nullptr;
    LONG m_Code;
};

LONG SetNumber(HKEY key, const char16_t* name, DWORD number)
{
    return RegSetValueExW(key, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number),
                          sizeof(number));
}

/// -1 for none.
std::int64_t GetNumber(HKEY root, const char16_t* path, const char16_t* name)
{
    HKEY key = nullptr;
    if (RegOpenKeyExW(root, path, 0, KEY_READ, &key) != ERROR_SUCCESS)
        return -1;
    DWORD number = 0;
    DWORD size = sizeof(number);
    const LONG code =
        RegQueryValueExW(key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(&number), &size);
    RegCloseKey(key);
    return code == ERROR_SUCCESS ? std::int64_t{number} : -1;
}

bool IsThere(HKEY root, const char16_t* path)
{
    HKEY key = nullptr;
    if (RegOpenKeyExW(root, path, 0, KEY_READ, &key) != ERROR_SUCCESS)
        return false;
    RegCloseKey(key);
    return true;
}

CString ListKeys(HKEY key)
{
    CString list;
    char16_t name[64];
    DWORD length = 64;
    for (DWORD at = 0;
         RegEnumKeyExW(key, at, name, &length, nullptr, nullptr, nullptr) == ERROR_SUCCESS; ++at)
    {
        list += name;
        list += u' ';
        length = 64;
    }
    return list;
}

CString ListValues(HKEY key)
{
    CString list;
    char16_t name[64];
    DWORD length = 64;
    for (DWORD at = 0;
         RegEnumValueW(key, at, name, &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
         ++at)
    {
        list += name;
        list += u' ';
        length = 64;
    }
    return list;
}

class RegistryHiveTest : public testing::Test
{
protected:
    CStoreFolder m_Store;
};

} // namespace

TEST_F(RegistryHiveTest, NothingIsMadeByReading)
{
    EXPECT_FALSE(IsThere(HKEY_CURRENT_USER, u"Software\\None"));

    EXPECT_TRUE(m_Store.GetFolder().List().empty());
}

TEST_F(RegistryHiveTest, PathsAreCutFoldedAndKeptAsFirstSpelled)
{
    EXPECT_EQ(SetNumber(CKey(u"Soft\\Maker\\Tool"), u"Size", 7), ERROR_SUCCESS);

    for (const char16_t* path :
         {u"Soft\\Maker\\Tool", u"\\Soft\\\\Maker\\Tool\\", u"SOFT\\maker\\tOOL"})
        EXPECT_EQ(GetNumber(HKEY_CURRENT_USER, path, u"SIZE"), 7) << CString(path).GetLength();
    EXPECT_FALSE(IsThere(HKEY_CURRENT_USER, u"Soft/Maker"));
    static_cast<void>(CKey(u"SOFT\\MAKER"));
    EXPECT_EQ(ListKeys(CKey(u"Soft")), u"Maker ");
}

TEST_F(RegistryHiveTest, KeysListInFoldedOrderAndValuesAsTheyWereMade)
{
    for (const char16_t* path : {u"K\\b", u"K\\A", u"K\\é", u"K\\C"})
        static_cast<void>(CKey(path));
    for (const char16_t* name : {u"z", u"a", u"m", u"Z"})
        EXPECT_EQ(SetNumber(CKey(u"K"), name, 1), ERROR_SUCCESS);

    EXPECT_EQ(ListKeys(CKey(u"K")), u"A b C é ");
    EXPECT_EQ(ListValues(CKey(u"K")), u"z a m ");
}

TEST_F(RegistryHiveTest, BytesOfEveryTypeComeBackAsTheyWere)
{
    const std::vector<std::pair<DWORD, std::string>> cases = {
        {REG_SZ, std::string("a\0b\0\0\0", 6)},
        {REG_SZ, std::string("a\0", 2)},            // no terminator
        {REG_SZ, std::string("a\0\0\0b\0\0\0", 8)}, // one inside
        {REG_SZ, std::string("\x00\xd8\0\0", 4)},   // half a pair
        {REG_SZ, "odd"},
        {REG_DWORD, std::string("\xff\xff\xff\xff", 4)},
        {REG_DWORD, "xy"},
        {REG_QWORD, std::string("\0\0\0\0\0\0\0\x80", 8)},
        {REG_BINARY, ""},
        {REG_BINARY, std::string(5000, '\x80')},
        {REG_MULTI_SZ, std::string("a\0\0\0\0\0", 6)},
        {4711, "anything"},
    };
    const CKey key(u"K");
    for (const auto& [type, bytes] : cases)
    {
        SCOPED_TRACE(testing::Message() << type << " of " << bytes.size());
        ASSERT_EQ(RegSetValueExW(key, u"v", 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                                 static_cast<DWORD>(bytes.size())),
                  ERROR_SUCCESS);
        for (int again = 0; again < 2; ++again) // from the store, then from memory
        {
            std::string read(bytes.size(), '?');
            DWORD readType = 0;
            DWORD size = static_cast<DWORD>(read.size());
            ASSERT_EQ(RegQueryValueExW(key, u"v", nullptr, &readType,
                                       reinterpret_cast<BYTE*>(read.data()), &size),
                      ERROR_SUCCESS);
            EXPECT_EQ(readType, type);
            EXPECT_EQ(read.substr(0, size), bytes);
        }
    }
}

TEST_F(RegistryHiveTest, AShortBufferGetsTheSizeAndIsLeftAlone)
{
    const CKey key(u"K");
    ASSERT_EQ(RegSetValueExW(key, u"v", 0, REG_BINARY, reinterpret_cast<const BYTE*>("abcd"), 4),
              ERROR_SUCCESS);
    BYTE buffer[3] = {9, 9, 9};
    DWORD size = sizeof(buffer);

    EXPECT_EQ(RegQueryValueExW(key, u"v", nullptr, nullptr, buffer, &size), ERROR_MORE_DATA);

    EXPECT_EQ(size, 4U);
    EXPECT_EQ(buffer[0], 9);
    EXPECT_EQ(RegQueryValueExW(key, u"none", nullptr, nullptr, nullptr, &size),
              ERROR_FILE_NOT_FOUND);
}

TEST_F(RegistryHiveTest, OnlyALeafKeyIsDeletedAndItsValuesGoWithIt)
{
    ASSERT_EQ(SetNumber(CKey(u"A\\B"), u"v", 1), ERROR_SUCCESS);

    EXPECT_EQ(RegDeleteKeyW(HKEY_CURRENT_USER, u"A"), ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegDeleteKeyW(HKEY_CURRENT_USER, u"a\\b"), ERROR_SUCCESS);
    EXPECT_EQ(RegDeleteKeyW(HKEY_CURRENT_USER, u"A\\B"), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(RegDeleteKeyW(HKEY_CURRENT_USER, u""), ERROR_ACCESS_DENIED);

    static_cast<void>(CKey(u"A\\B"));
    EXPECT_EQ(GetNumber(HKEY_CURRENT_USER, u"A\\B", u"v"), -1);
}

TEST_F(RegistryHiveTest, ADeletedKeyTakesNoMoreValues)
{
    const CKey key(u"A");
    ASSERT_EQ(RegDeleteKeyW(HKEY_CURRENT_USER, u"A"), ERROR_SUCCESS);

    EXPECT_EQ(SetNumber(key, u"v", 1), ERROR_FILE_NOT_FOUND);
    EXPECT_FALSE(IsThere(HKEY_CURRENT_USER, u"A"));
}

TEST_F(RegistryHiveTest, RootsAreApartAndTheClassesAreLaidOver)
{
    ASSERT_EQ(SetNumber(CKey(u"Software\\Classes\\.pcb", HKEY_LOCAL_MACHINE), u"v", 1),
              ERROR_SUCCESS);
    ASSERT_EQ(SetNumber(CKey(u"Software\\Classes\\.sch", HKEY_LOCAL_MACHINE), u"v", 2),
              ERROR_SUCCESS);
    ASSERT_EQ(SetNumber(CKey(u".sch", HKEY_CLASSES_ROOT), u"v", 3), ERROR_SUCCESS);
    ASSERT_EQ(SetNumber(CKey(u"Display", HKEY_CURRENT_CONFIG), u"v", 4), ERROR_SUCCESS);

    EXPECT_EQ(GetNumber(HKEY_CLASSES_ROOT, u".pcb", u"v"), 1);
    EXPECT_EQ(GetNumber(HKEY_CLASSES_ROOT, u".sch", u"v"), 3);
    EXPECT_EQ(GetNumber(HKEY_CURRENT_USER, u"Software\\Classes\\.sch", u"v"), 3);
    EXPECT_EQ(GetNumber(HKEY_LOCAL_MACHINE, u"Software\\Classes\\.sch", u"v"), 2);
    EXPECT_EQ(ListKeys(CKey(u"", HKEY_CLASSES_ROOT)), u".sch .pcb ");
    EXPECT_FALSE(IsThere(HKEY_CURRENT_USER, u"Display"));
    HKEY key = nullptr;
    EXPECT_EQ(
        RegOpenKeyExW(reinterpret_cast<HKEY>(std::uintptr_t{0x80000003}), u"", 0, KEY_READ, &key),
        ERROR_INVALID_HANDLE);
}

TEST_F(RegistryHiveTest, ATransactionIsAllOrNothing)
{
    ASSERT_EQ(SetNumber(CKey(u"K"), u"old", 1), ERROR_SUCCESS);
    {
        CRegistryTransaction outer(HKEY_CURRENT_USER);
        ASSERT_EQ(SetNumber(CKey(u"K\\New"), u"v", 2), ERROR_SUCCESS);
        EXPECT_EQ(GetNumber(HKEY_CURRENT_USER, u"K\\New", u"v"), 2);
        CRegistryTransaction inner(HKEY_CURRENT_USER);
        ASSERT_EQ(SetNumber(CKey(u"K"), u"old", 3), ERROR_SUCCESS);
        EXPECT_TRUE(inner.Commit());
    }
    EXPECT_FALSE(IsThere(HKEY_CURRENT_USER, u"K\\New"));
    EXPECT_EQ(GetNumber(HKEY_CURRENT_USER, u"K", u"old"), 1);

    CRegistryTransaction again(HKEY_CURRENT_USER);
    ASSERT_EQ(SetNumber(CKey(u"K\\New"), u"v", 2), ERROR_SUCCESS);
    EXPECT_TRUE(again.Commit());
    EXPECT_EQ(GetNumber(HKEY_CURRENT_USER, u"K\\New", u"v"), 2);
}

TEST_F(RegistryHiveTest, AnInnerStepThatIsNotKeptTakesTheWholeBack)
{
    CRegistryTransaction outer(HKEY_CURRENT_USER);
    ASSERT_EQ(SetNumber(CKey(u"K"), u"v", 1), ERROR_SUCCESS);
    {
        const CRegistryTransaction inner(HKEY_CURRENT_USER);
    }

    EXPECT_FALSE(outer.Commit());
    EXPECT_FALSE(IsThere(HKEY_CURRENT_USER, u"K"));
}

TEST_F(RegistryHiveTest, AnotherProcessSeesAndIsSeenAtOnce)
{
    ASSERT_EQ(SetNumber(CKey(u"K"), u"v", 0), ERROR_SUCCESS);
    for (DWORD round = 1; round < 20; ++round)
    {
        SCOPED_TRACE(round);
        CChildProcess child(
            [round]
            {
                const bool seen = GetNumber(HKEY_CURRENT_USER, u"K", u"v") == round * 2 - 2;
                return seen ? SetNumber(CKey(u"K"), u"v", round * 2 - 1) : 1;
            });
        ASSERT_EQ(child.Wait(), 0);
        ASSERT_EQ(GetNumber(HKEY_CURRENT_USER, u"K", u"v"), round * 2 - 1);
        ASSERT_EQ(SetNumber(CKey(u"K"), u"v", round * 2), ERROR_SUCCESS);
        ASSERT_EQ(GetNumber(HKEY_CURRENT_USER, u"K", u"v"), round * 2);
    }
}

TEST_F(RegistryHiveTest, ANameThatIsNoTextIsRefused)
{
    const char16_t half[] = {0xD800, 0};

    EXPECT_EQ(SetNumber(CKey(u"K"), half, 1), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(GetNumber(HKEY_CURRENT_USER, half, u"v"), -1);
}

} // namespace utility
