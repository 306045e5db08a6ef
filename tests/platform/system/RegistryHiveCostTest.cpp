#include "settings/Registry.h"

#include "support/StoreFolder.h"

#include <gtest/gtest.h>

namespace utility
{

namespace
{

CString NameOf(int number)
{
    CString name;
    name.Format(u"v%d", number);
    return name;
}

void Fill(CRegistry& key, int count)
{
    CRegistryTransaction transaction(HKEY_CURRENT_USER);
    for (int number = 0; number < count; ++number)
        ASSERT_TRUE(key.SetValue(NameOf(number), number));
    ASSERT_TRUE(transaction.Commit());
}

struct CWalk
{
    const char* m_What;
    int (*m_Run)(CRegistry& key, int count); // how many values it met
};

int List(CRegistry& key, int)
{
    CString name;
    int met = 0;
    while (key.GetNextValue(name, met))
        ++met;
    return met;
}

int EmptyFromTheFront(CRegistry& key, int)
{
    CString name;
    int met = 0;
    const CRegistryTransaction transaction(HKEY_CURRENT_USER);
    for (; key.GetNextValue(name, 0) && key.DeleteValue(name); ++met)
        ;
    return met;
}

int EmptyFromTheBack(CRegistry& key, int count)
{
    CString name;
    int met = 0;
    const CRegistryTransaction transaction(HKEY_CURRENT_USER);
    for (; key.GetNextValue(name, count - met - 1) && key.DeleteValue(name); ++met)
        ;
    return met;
}

/// Every second value goes while the walk is under way.
int Thin(CRegistry& key, int)
{
    CString name;
    int met = 0;
    const CRegistryTransaction transaction(HKEY_CURRENT_USER);
    for (int index = 0; key.GetNextValue(name, index); ++met)
    {
        if (met % 2 == 0)
            EXPECT_TRUE(key.DeleteValue(name));
        else
            ++index;
    }
    return met;
}

std::uint64_t StepsOf(const CWalk& walk, int count)
{
    const CStoreFolder store;
    CRegistry key(u"K", HKEY_CURRENT_USER);
    Fill(key, count);
    const std::uint64_t before = GetRegistryCost().m_Steps;
    EXPECT_EQ(walk.m_Run(key, count), count);
    return GetRegistryCost().m_Steps - before;
}

} // namespace

TEST(RegistryHiveCostTest, AWalkByIndexTakesLinearTime)
{
    for (const CWalk& walk : {CWalk{"list", &List}, CWalk{"from the front", &EmptyFromTheFront},
                              CWalk{"from the back", &EmptyFromTheBack}, CWalk{"thin", &Thin}})
    {
        SCOPED_TRACE(walk.m_What);
        const std::uint64_t few = StepsOf(walk, 1000);
        const std::uint64_t many = StepsOf(walk, 10000);
        EXPECT_LT(many, few * 11);
    }
}

} // namespace utility
