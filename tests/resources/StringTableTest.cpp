#include "resources/StringTable.h"

#include "resources/StringIds.h"

#include <gtest/gtest.h>

namespace utility
{

namespace
{

/// Adds a host's table for the length of a scope.
class CHostTableScope
{
public:
    explicit CHostTableScope(std::span<const CStringTableEntry> table) : m_Table(table)
    {
        CStringTable::AddTable(table);
    }
    ~CHostTableScope() { CStringTable::RemoveTable(m_Table); }
    CHostTableScope(const CHostTableScope&) = delete;
    CHostTableScope& operator=(const CHostTableScope&) = delete;

private:
    std::span<const CStringTableEntry> m_Table;
};

} // namespace

TEST(StringTableTest, KnownNumbersGiveTheirTexts)
{
    const struct
    {
        UINT m_Id;
        const char16_t* m_Text;
    } rows[] = {
        {10601, u"Undefined error"}, // the first
        {10617, u"\""},
        {10640, u"Backup Copy of "}, // the blank belongs to it
        {10692, u"Named printer not available\nPrinter %1 not available\nUse default printer?"},
        {10716, u"Name\tDate/Time\tSize"},
        {IDS_NO_ERROR, u"No error"},
        {IDS_CANNOT_CREATE_DOCUMENT, u"The document could not be created."}, // the last
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.m_Id);
        CString text;

        EXPECT_TRUE(AfxLoadString(row.m_Id, text));

        EXPECT_TRUE(text == row.m_Text);
        EXPECT_TRUE(CStringTable::Get(row.m_Id) == row.m_Text);
    }
}

TEST(StringTableTest, UnknownNumbersAreToldAndLeaveTheTextAlone)
{
    const UINT ids[] = {0, 2, 10600, 10605, 10999, 11000, 61699, 61701, 0xFFFFFFFF};
    for (const UINT id : ids)
    {
        SCOPED_TRACE(id);
        CString text = u"preset";

        EXPECT_FALSE(AfxLoadString(id, text));
        EXPECT_FALSE(text.LoadString(id));

        EXPECT_TRUE(text == u"preset");
        EXPECT_EQ(CStringTable::Find(id), nullptr);
        EXPECT_TRUE(CStringTable::Get(id).IsEmpty());
    }
}

TEST(StringTableTest, HostsTextsStandBeforeTheLibrarysUntilTheyAreRemoved)
{
    const CStringTableEntry table[] = {{11000, u"Of the host"}, {IDS_YES, u"Ja"}};
    {
        const CHostTableScope scope(table);

        EXPECT_TRUE(CStringTable::Get(11000) == u"Of the host");
        EXPECT_TRUE(CStringTable::Get(IDS_YES) == u"Ja");
        EXPECT_TRUE(CStringTable::Get(IDS_NO) == u"No");
    }

    EXPECT_EQ(CStringTable::Find(11000), nullptr);
    EXPECT_TRUE(CStringTable::Get(IDS_YES) == u"Yes");
}

TEST(StringTableTest, NewestTableOfSeveralHostsWins)
{
    const CStringTableEntry older[] = {{11000, u"older"}, {11001, u"only older"}};
    const CStringTableEntry newer[] = {{11000, u"newer"}};
    const CHostTableScope olderScope(older);
    {
        const CHostTableScope newerScope(newer);

        EXPECT_TRUE(CStringTable::Get(11000) == u"newer");
        EXPECT_TRUE(CStringTable::Get(11001) == u"only older");
    }

    EXPECT_TRUE(CStringTable::Get(11000) == u"older");
}

TEST(StringTableTest, HostTableNeedsNoOrderAndItsFirstOfEqualNumbersCounts)
{
    const CStringTableEntry table[] = {
        {11009, u"nine"}, {11002, u"two"}, {11002, u"two again"}, {11005, u""}};
    const CHostTableScope scope(table);

    EXPECT_TRUE(CStringTable::Get(11009) == u"nine");
    EXPECT_TRUE(CStringTable::Get(11002) == u"two");
    CString text = u"preset";
    EXPECT_TRUE(AfxLoadString(11005, text)); // known, though empty
    EXPECT_TRUE(text.IsEmpty());
}

TEST(StringTableTest, RemovingATableThatWasNeverAddedChangesNothing)
{
    const CStringTableEntry added[] = {{11000, u"added"}};
    const CStringTableEntry other[] = {{11000, u"other"}};
    const CHostTableScope scope(added);

    CStringTable::RemoveTable(other);

    EXPECT_TRUE(CStringTable::Get(11000) == u"added");
}

} // namespace utility
