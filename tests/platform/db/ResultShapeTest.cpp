#include "platform/db/GXDynamicRecordset.h"

#include "DatabaseFixture.h"

namespace utility
{

/// Results of unusual shape: no row at all, as many columns as a source takes and more.
class ResultShapeTest : public CDatabaseTest
{
protected:
    static CString ListColumns(int count, const CString& form)
    {
        CString list;
        for (int column = 0; column < count; ++column)
        {
            if (column > 0)
                list += u", ";
            list.AppendFormat(form, column);
        }
        return list;
    }

    static CString MakeTable(int columns)
    {
        return u"CREATE TABLE [Wide] (" + ListColumns(columns, u"[c %d] INTEGER") + u")";
    }
};

TEST_P(ResultShapeTest, ThousandAreMadeFilledAndReadBack)
{
    constexpr int COLUMNS = 1000;
    Execute(MakeTable(COLUMNS));
    for (int row = 0; row < 3; ++row)
    {
        CString values;
        for (int column = 0; column < COLUMNS; ++column)
            values.AppendFormat(column > 0 ? u", %d" : u"%d", row * COLUMNS + column);
        Execute(u"INSERT INTO [Wide] VALUES (" + values + u")");
    }

    CGXDynamicRecordset set(&m_Database);
    Allowed([&] { set.Open(AFX_DB_USE_DEFAULT_TYPE, u"SELECT * FROM [Wide] ORDER BY [c 0]"); });

    ASSERT_EQ(set.GetFieldCount(), COLUMNS);
    for (int row = 0; row < 3; ++row, set.MoveNext())
        for (const int column : {0, 1, COLUMNS / 2, COLUMNS - 1})
        {
            CString text;
            text.Format(u"%d", row * COLUMNS + column);
            EXPECT_EQ(set.GetFieldData(column), text) << row << ", " << column;
        }
    EXPECT_TRUE(set.IsEOF());
    CString name;
    name.Format(u"[c %d]", COLUMNS - 1);
    EXPECT_EQ(set.GetFieldInfo(COLUMNS - 1).m_strName, name);
}

TEST_P(ResultShapeTest, MoreThanTheSourceTakesAreRefusedInItsWordsAndNothingIsMade)
{
    const CRefusal refusal = RefusalOf([&] { m_Database.ExecuteSQL(MakeTable(3000)); });

    const std::string words = IsOn(EServer::MariaDB)      ? "Table definition is too large"
                              : IsOn(EServer::PostgreSQL) ? "tables can have at most 1600 columns"
                                                          : "too many columns";
    EXPECT_NE(refusal.Text.find(words), std::string::npos) << refusal.Text;
    CGXDynamicRecordset set(&m_Database);
    EXPECT_EQ(RefusalOf([&] { set.Open(AFX_DB_USE_DEFAULT_TYPE, u"[Wide]"); }).Failure,
              EDBFailure::NoTable);
}

TEST_P(ResultShapeTest, NoRowIsBothEndsAndEveryStepIsToldOrStays)
{
    Execute(CStockSet::CREATE);
    CStockSet set(&m_Database);
    Allowed([&] { set.Open(); });

    EXPECT_TRUE(set.IsBOF());
    EXPECT_TRUE(set.IsEOF());
    EXPECT_EQ(set.GetRecordCount(), 0);
    EXPECT_EQ(set.GetODBCFieldCount(), 5);
    EXPECT_EQ(RefusalOf([&] { set.MoveNext(); }).State, "02000");
    EXPECT_EQ(RefusalOf([&] { set.MovePrev(); }).State, "02000");
    EXPECT_EQ(RefusalOf([&] { set.Edit(); }).State, "24000");
    EXPECT_EQ(RefusalOf([&] { set.Delete(); }).State, "24000");
    Allowed(
        [&]
        {
            set.MoveFirst();
            set.MoveLast();
            set.SetAbsolutePosition(7);
            EXPECT_TRUE(set.IsBOF());
            EXPECT_TRUE(set.IsEOF());
            set.AddNew();
            set.m_Id = 1;
            EXPECT_TRUE(set.Update());
            set.Requery();
        });
    EXPECT_EQ(set.m_Id, 1);
}

UTILITY_ON_ALL_SERVERS(ResultShapeTest);

} // namespace utility
