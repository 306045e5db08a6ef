#pragma once

#include "DatabaseFixture.h"

namespace utility
{

/// Texts and bytes of any length.
class CDocSet : public CRecordset
{
public:
    explicit CDocSet(CDatabase* database) : CRecordset(database) { m_nFields = 3; }

    CString GetDefaultSQL() override { return u"SELECT * FROM [Docs]"; }
    void DoFieldExchange(CFieldExchange* exchange) override
    {
        exchange->SetFieldType(CFieldExchange::outputColumn);
        RFX_Long(exchange, u"[Id]", m_Id);
        RFX_LongBinary(exchange, u"[Body]", m_Body);
        RFX_Text(exchange, u"[Words]", m_Words, 8196);
    }

    /// So many bytes, each of which tells its place.
    void SetBody(int size)
    {
        GlobalFree(m_Body.m_hData); // of the row before, or null
        m_Body.m_hData = GlobalAlloc(GMEM_MOVEABLE, static_cast<std::size_t>(size));
        m_Body.m_dwDataLength = static_cast<DWORD>(size);
        auto* const bytes = static_cast<BYTE*>(GlobalLock(m_Body.m_hData));
        for (int index = 0; index < size; ++index)
            bytes[index] = static_cast<BYTE>(index * 7);
        SetFieldNull(1, false);
        SetFieldDirty(1);
    }

    LONG m_Id = 0;
    CLongBinary m_Body;
    CString m_Words;
};

/// Three rows of stock and, on demand, a table of documents.
class CRecordsetEditTest : public CDatabaseTest
{
protected:
    void SetUp() override
    {
        CDatabaseTest::SetUp();
        Execute(CStockSet::CREATE);
        Execute(u"INSERT INTO [Stock] VALUES (1, 'R1', 0.1, 4.7e-6, '2024-01-31 10:11:12')");
        Execute(u"INSERT INTO [Stock] VALUES (2, NULL, NULL, NULL, NULL)");
        Execute(u"INSERT INTO [Stock] VALUES (3, 'C3', 12.5, 0.1, '1999-12-31 23:59:59')");
    }

    LONG CountRows(const CString& condition)
    {
        CStockSet set(&m_Database);
        LONG count = 0;
        Allowed(
            [&]
            {
                set.Open(AFX_DB_USE_DEFAULT_TYPE, u"SELECT * FROM [Stock] WHERE " + condition);
                for (; !set.IsEOF(); set.MoveNext())
                    ++count;
            });
        return count;
    }

    void MakeDocs()
    {
        CString create;
        create.Format(u"CREATE TABLE [Docs] ([Id] INTEGER, [Body] %s, [Words] %s)",
                      IsOn(EServer::PostgreSQL) ? u"BYTEA"
                      : IsOn(EServer::MariaDB)  ? u"LONGBLOB"
                                                : u"BLOB",
                      IsOn(EServer::MariaDB) ? u"LONGTEXT" : u"TEXT");
        Execute(create);
    }
};

} // namespace utility
