#include "PartsRows.h"

#include "frame/AppError.h"
#include "platform/system/file/NativePath.h"
#include "resources/StringIds.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace utility;

namespace partsdesk
{

namespace
{

class PartsRowsTest : public testing::Test
{
protected:
    PartsRowsTest() : m_File(m_Folder.PathOf(u"stock.db"))
    {
        CDBADatabase database;
        EXPECT_TRUE(
            database.Open(nullptr, FALSE, FALSE, u"DRIVER=SQLite3;Database=" + NativePath(m_File)));
        database.ExecuteSQL(u"CREATE TABLE [Passives] ([Name] VARCHAR(20), [Kind] VARCHAR(20), "
                            u"[Value] VARCHAR(20), [Stock] INTEGER)");
        database.ExecuteSQL(u"INSERT INTO [Passives] VALUES ('R1', 'Resistor', '4k7', 3), "
                            u"('R2', 'Resistor', '10k', 20), ('R3', 'Resistor', '9999', 7), "
                            u"('C1', 'Capacitor', '100n', 50)");
        database.ExecuteSQL(u"CREATE TABLE [Empty] ([Name] VARCHAR(20))");
    }

    /// The names of all rows that are shown.
    CString Names()
    {
        while (m_Rows.FetchAhead(1000))
        {
        }
        CString names;
        for (int row = 0; row < m_Rows.GetCount(); ++row)
            names += m_Rows.GetLine(row, 1) + u" ";
        return names;
    }

    CTemporaryFolder m_Folder;
    CString m_File;
    CPartsRows m_Rows;
};

} // namespace

TEST_F(PartsRowsTest, AFileShowsItsTablesAndTheRowsOfOne)
{
    ASSERT_TRUE(m_Rows.Open(m_File));

    EXPECT_EQ(m_Rows.GetTables(), (std::vector<CString>{u"Empty", u"Passives"}));
    EXPECT_EQ(m_Rows.GetTable(), u"Empty");
    EXPECT_EQ(Names(), u"");
    ASSERT_TRUE(m_Rows.OpenTable(u"Passives"));
    EXPECT_EQ(Names(), u"R1 R2 R3 C1 ");
    EXPECT_EQ(m_Rows.GetLine(1, 3), u"R2\tResistor\t10k");
    EXPECT_EQ(m_Rows.GetLine(4, 3), u"");
    const std::vector<CPartValue> part = m_Rows.GetPart(3);
    ASSERT_EQ(part.size(), 4U);
    EXPECT_EQ(part[3].m_Name, u"Stock");
    EXPECT_EQ(part[3].m_Text, u"50");
}

TEST_F(PartsRowsTest, AFilterWorksAtOnceAndAWrongOneChangesNothing)
{
    ASSERT_TRUE(m_Rows.Open(m_File));
    ASSERT_TRUE(m_Rows.OpenTable(u"Passives"));
    CString reason;

    ASSERT_TRUE(m_Rows.SetFilter(u"Kind=Resistor Value=4k7..9k999", reason));
    EXPECT_EQ(Names(), u"R1 R3 ");
    EXPECT_FALSE(m_Rows.SetFilter(u"Size=1", reason));
    EXPECT_EQ(reason, u"There is no column \"Size\"");
    EXPECT_EQ(Names(), u"R1 R3 ");
    ASSERT_TRUE(m_Rows.SetFilter(u"Stock>10", reason));
    EXPECT_EQ(Names(), u"R2 C1 ");
    ASSERT_TRUE(m_Rows.SetFilter(u"Stock>1000", reason));
    EXPECT_EQ(Names(), u"");
    ASSERT_TRUE(m_Rows.SetFilter(u"", reason));
    EXPECT_EQ(Names(), u"R1 R2 R3 C1 ");
}

TEST_F(PartsRowsTest, WhatIsNoDatabaseIsRefusedWithTheReason)
{
    EXPECT_FALSE(m_Rows.Open(m_Folder.PathOf(u"absent.db")));
    EXPECT_EQ(CAppError::GetLastError(), IDS_PAGE_NOT_FOUND);

    const CString text = m_Folder.MakeFile(u"notes.txt", std::string(2000, 'x'));
    EXPECT_FALSE(m_Rows.Open(text));
    EXPECT_EQ(CAppError::GetLastError(), IDS_PLAIN_TEXT);
    EXPECT_EQ(m_Rows.GetFile(), u"");
    EXPECT_EQ(m_Rows.GetCount(), 0);
    EXPECT_FALSE(m_Rows.FetchAhead(1));
}

} // namespace partsdesk
