#include "platform/db/GXDynamicRecordset.h"
#include "platform/system/process/Handle.h"

#include "DatabaseFixture.h"

namespace utility
{

class RecordsetMoveTest : public CDatabaseTest
{
protected:
    void SetUp() override
    {
        CDatabaseTest::SetUp();
        Execute(CStockSet::CREATE);
    }

    void FillTo(int count)
    {
        Allowed(
            [&]
            {
                m_Database.BeginTrans();
                CStockSet set(&m_Database);
                set.Open(AFX_DB_USE_DEFAULT_TYPE, u"SELECT * FROM [Stock] WHERE 0");
                for (LONG id = 0; id < count; ++id)
                {
                    set.AddNew();
                    set.m_Id = id;
                    set.m_Name.Format(u"part %d", id % 50);
                    set.Update();
                }
                set.Close();
                m_Database.CommitTrans();
            });
    }
};

/// One of 300 texts of 1 to 40 letters; two of them differ in a single place.
CString RepeatedText(int row)
{
    const int number = row % 300;
    CString text(u'a', number % 40 + 1);
    text.SetAt(number % text.GetLength(), static_cast<char16_t>(u'b' + number / 40));
    return text;
}

struct CStep
{
    WORD Fetch;
    std::int32_t Rows;
    const char* Expected; // "BOF", "EOF", "both", the row's id, or the state it is refused with
};

std::string Describe(const CStockSet& set)
{
    if (set.IsBOF() && set.IsEOF())
        return "both";
    return set.IsBOF() ? "BOF" : set.IsEOF() ? "EOF" : std::to_string(set.m_Id);
}

void Walk(CStockSet& set, std::initializer_list<CStep> steps)
{
    int number = 0;
    for (const CStep& step : steps)
    {
        SCOPED_TRACE("step " + std::to_string(++number));
        const CRefusal refusal = RefusalOf([&] { set.Move(step.Rows, step.Fetch); });
        EXPECT_EQ(refusal.Code != 0 ? refusal.State : Describe(set), step.Expected);
    }
}

TEST_P(RecordsetMoveTest, EveryDirectionLandsWhereItSays)
{
    FillTo(250);
    CStockSet set(&m_Database);
    Allowed([&] { set.Open(); });
    EXPECT_EQ(Describe(set), "0");
    EXPECT_EQ(set.GetRecordCount(), 1) << "rows fetched ahead are not seen yet";

    Walk(set, {{SQL_FETCH_NEXT, 1, "1"},         {SQL_FETCH_RELATIVE, 110, "111"},
               {SQL_FETCH_RELATIVE, 0, "111"},   {SQL_FETCH_PRIOR, -1, "110"},
               {SQL_FETCH_ABSOLUTE, 250, "249"}, {SQL_FETCH_NEXT, 1, "EOF"},
               {SQL_FETCH_NEXT, 1, "02000"},     {SQL_FETCH_RELATIVE, 1, "02000"},
               {SQL_FETCH_PRIOR, -1, "249"},     {SQL_FETCH_LAST, 1, "249"},
               {SQL_FETCH_RELATIVE, 2, "EOF"},   {SQL_FETCH_RELATIVE, -3, "247"},
               {SQL_FETCH_FIRST, 1, "0"},        {SQL_FETCH_PRIOR, -1, "BOF"},
               {SQL_FETCH_PRIOR, -1, "02000"},   {SQL_FETCH_RELATIVE, -1, "02000"},
               {SQL_FETCH_NEXT, 0, "0"},         {SQL_FETCH_ABSOLUTE, -1, "249"},
               {SQL_FETCH_ABSOLUTE, -250, "0"},  {SQL_FETCH_ABSOLUTE, -251, "BOF"},
               {SQL_FETCH_ABSOLUTE, 0, "BOF"},   {SQL_FETCH_ABSOLUTE, 251, "EOF"},
               {SQL_FETCH_ABSOLUTE, 100, "99"},  {SQL_FETCH_RELATIVE, -200, "BOF"},
               {SQL_FETCH_RELATIVE, 1, "0"},     {99, 1, "HYC00"}});
}

TEST_P(RecordsetMoveTest, CountAndNumberFollowWhatMovesHaveSeen)
{
    FillTo(120);
    CStockSet set(&m_Database);
    CRecordsetStatus status;
    Allowed(
        [&]
        {
            set.Open();
            set.SetAbsolutePosition(61);
            set.MoveFirst();
            set.GetStatus(status);
            EXPECT_EQ(set.GetRecordCount(), 61);
            EXPECT_EQ(status.m_lCurrentRecord, 0);
            EXPECT_FALSE(status.m_bRecordCountFinal);
            set.MovePrev();
            set.GetStatus(status);
            EXPECT_EQ(status.m_lCurrentRecord, 0) << "before the first row the number counts as 0";
            set.SetAbsolutePosition(1000);
            set.GetStatus(status);
        });
    EXPECT_EQ(set.GetRecordCount(), 120);
    EXPECT_EQ(status.m_lCurrentRecord, 119) << "behind the last as the last";
    EXPECT_TRUE(status.m_bRecordCountFinal);
}

TEST_P(RecordsetMoveTest, FetchingAheadCountsRowsAndLeavesTheCurrentOne)
{
    FillTo(2500);
    CStockSet set(&m_Database);
    EXPECT_FALSE(set.FetchAhead(INFINITE)) << "a closed set has nothing to fetch";
    CRecordsetStatus status;
    Allowed(
        [&]
        {
            set.Open();
            set.MoveNext();
            EXPECT_TRUE(set.FetchAhead(INFINITE, 700));
            EXPECT_GE(set.GetRecordCount(), 700);
            EXPECT_LT(set.GetRecordCount(), 2500);
            const std::int32_t before = set.GetRecordCount();
            EXPECT_TRUE(set.FetchAhead(0));
            EXPECT_GT(set.GetRecordCount(), before) << "without time it is one step";
            EXPECT_LE(set.GetRecordCount(), before + 100);
            set.GetStatus(status);
            EXPECT_FALSE(status.m_bRecordCountFinal);

            EXPECT_FALSE(set.FetchAhead(INFINITE));
            EXPECT_FALSE(set.FetchAhead(INFINITE)) << "twice harms nothing";
            set.GetStatus(status);
        });
    EXPECT_TRUE(status.m_bRecordCountFinal);
    EXPECT_EQ(set.GetRecordCount(), 2500);
    EXPECT_EQ(set.m_Id, 1);
    Walk(set, {{SQL_FETCH_NEXT, 1, "2"}, {SQL_FETCH_LAST, 1, "2499"}, {SQL_FETCH_NEXT, 1, "EOF"}});
}

TEST_P(RecordsetMoveTest, RepeatsNullsAndNewTextsOfAnyLengthKeepTheirRows)
{
    constexpr int ROWS = 9000; // more than one page, and than the look-up of repeats tries
    Execute(u"CREATE TABLE [Texts] ([i] INTEGER, [repeat] VARCHAR(60), [new] VARCHAR(60))");
    CString values;
    for (int row = 0; row < ROWS; ++row)
    {
        const CString repeat = row % 7 == 0 ? CString(u"NULL") : u"'" + RepeatedText(row) + u"'";
        values.AppendFormat(u"%s(%d, %s, 'n%d')", row > 0 ? u"," : u"", row, repeat, row);
    }
    Execute(u"INSERT INTO [Texts] VALUES " + values);
    CGXDynamicRecordset set(&m_Database);
    Allowed([&] { set.Open(AFX_DB_USE_DEFAULT_TYPE, u"SELECT * FROM [Texts] ORDER BY [i]"); });

    for (int row = ROWS - 1; row >= 0; row -= 13)
    {
        set.SetAbsolutePosition(row + 1);
        CString expected;
        expected.Format(u"n%d", row);
        ASSERT_EQ(set.GetFieldData(2), expected);
        ASSERT_EQ(set.GetFieldData(1), row % 7 == 0 ? CString() : RepeatedText(row)) << row;
    }
}

TEST_P(RecordsetMoveTest, EmptySetHasBothEndsAndNoNext)
{
    CStockSet set(&m_Database);
    Allowed([&] { set.Open(); });
    EXPECT_EQ(set.GetRecordCount(), 0);

    Walk(set, {{SQL_FETCH_NEXT, 1, "02000"},
               {SQL_FETCH_PRIOR, 1, "02000"},
               {SQL_FETCH_FIRST, 1, "both"},
               {SQL_FETCH_LAST, 1, "both"}});
}

TEST_P(RecordsetMoveTest, StatementWithoutColumnsIsNotFetched)
{
    CRecordset set(&m_Database);
    set.m_nFields = 9999;
    Allowed([&] { set.Open(AFX_DB_USE_DEFAULT_TYPE, u"INSERT INTO [Stock] ([Id]) VALUES (4)"); });
    EXPECT_TRUE(set.IsOpen());
    EXPECT_TRUE(set.IsBOF() && set.IsEOF());
    EXPECT_EQ(set.GetODBCFieldCount(), 0);
    EXPECT_EQ(set.m_nFields, 9999);
}

TEST_P(RecordsetMoveTest, UnreadRowsOutliveATransactionAndAFailedStatement)
{
    FillTo(3000);
    CStockSet set(&m_Database);
    Allowed(
        [&]
        {
            set.Open();
            ASSERT_TRUE(m_Database.BeginTrans());
            m_Database.ExecuteSQL(u"UPDATE [Stock] SET [Name] = 'new' WHERE [Id] = 2999");
            ASSERT_TRUE(m_Database.CommitTrans());
        });
    CStockSet broken(&m_Database);
    EXPECT_EQ(
        RefusalOf([&] { broken.Open(AFX_DB_USE_DEFAULT_TYPE, u"SELECT * FROM [NoSuch]"); }).Failure,
        EDBFailure::NoTable);
    EXPECT_FALSE(broken.IsOpen());

    LONG rows = 1;
    Allowed(
        [&]
        {
            for (set.MoveNext(); !set.IsEOF(); set.MoveNext())
                EXPECT_EQ(set.m_Id, rows++);
        });
    EXPECT_EQ(rows, 3000);
}

TEST_P(RecordsetMoveTest, ClosedConnectionRefusesPlainlyAndEndsItsSets)
{
    FillTo(5);
    CStockSet set(&m_Database);
    Allowed([&] { set.Open(); });
    m_Database.Close();

    EXPECT_FALSE(set.IsOpen());
    EXPECT_FALSE(set.Open());
    EXPECT_FALSE(set.Requery());
    EXPECT_EQ(RefusalOf([&] { m_Database.ExecuteSQL(u"DROP TABLE [Stock]"); }).State, "08003");
}

TEST_P(RecordsetMoveTest, CancelStopsTheFill)
{
    FillTo(1500);
    CStockSet set(&m_Database);
    Allowed([&] { set.Open(); });
    set.Cancel();

    // A driver may have every row already; the fill stops before it asks for the next ones.
    EXPECT_EQ(RefusalOf([&] { set.FetchAhead(INFINITE); }).Failure, EDBFailure::Cancelled);
}

UTILITY_ON_ALL_SERVERS(RecordsetMoveTest);

} // namespace utility
