#include "utility/db/stock/PassiveTable.h"

#include "database/DBADatabase.h"
#include "database/ODBCRecordset.h"

#include "utility/db/DbTransaction.h"
#include "utility/host/Interrupt.h"
#include "utility/output/RowProgress.h"

namespace utility
{

namespace
{

constexpr char16_t CREATE_PASSIVES[] = u"CREATE TABLE [Passives] ([Name] VARCHAR(64) NOT NULL "
                                       u"PRIMARY KEY, [Kind] VARCHAR(32) NOT NULL, "
                                       u"[Value] VARCHAR(32) NOT NULL, [Package] VARCHAR(32) NOT "
                                       u"NULL, [Tolerance] VARCHAR(16) NOT NULL, "
                                       u"[Rating] VARCHAR(16) NOT NULL, [Stock] INTEGER NOT NULL)";

constexpr int STEP_ROWS = 500; // between two looks at the user

void AddPart(CODBCRecordset& rows, const CPassive& part)
{
    rows.AddNew();
    rows.SetString(u"Name", part.m_Name);
    rows.SetString(u"Kind", part.m_Kind);
    rows.SetString(u"Value", part.m_Value);
    rows.SetString(u"Package", part.m_Package);
    rows.SetString(u"Tolerance", part.m_Tolerance);
    rows.SetString(u"Rating", part.m_Rating);
    rows.SetInt(u"Stock", part.m_Stock);
    for (int field = 0; field < rows.m_nFields; field++)
        rows.SetFieldNull(static_cast<DWORD>(field), false);
    rows.Update();
}

} // namespace

bool StorePassives(CDBADatabase& database, const std::vector<CPassive>& stock)
{
    if (!database.TableExists(u"Passives"))
        database.ExecuteSQL(CREATE_PASSIVES);

    CRowProgress progress(u"Storing", static_cast<std::int64_t>(stock.size()));
    CDbTransaction transaction(database);
    database.ExecuteSQL(u"DELETE FROM [Passives]");
    CODBCRecordset rows(&database);
    rows.SetThrowOnError(true);
    rows.Open(u"SELECT * FROM [Passives] WHERE 0");
    std::int64_t stored = 0;
    for (const CPassive& part : stock)
    {
        AddPart(rows, part);
        if (++stored % STEP_ROWS != 0)
            continue;
        if (IsInterrupted())
            return false;
        progress.Step(stored, stored);
    }
    rows.Close();
    transaction.Commit();
    return true;
}

} // namespace utility
