#pragma once

#include "platform/base/Encoding.h"
#include "platform/base/GlobalMemory.h"
#include "platform/db/DBException.h"
#include "platform/db/Database.h"
#include "platform/db/FieldExchange.h"
#include "platform/db/LongBinary.h"
#include "platform/db/Recordset.h"

#include "support/DatabaseServers.h"

#include <gtest/gtest.h>

#include <string>

namespace utility
{

/// What a step was refused with; empty if it was not.
struct CRefusal
{
    RETCODE Code = 0;
    EDBFailure Failure = EDBFailure::Other;
    std::string State; // of the first message
    std::string Text;
    std::string StateNativeOrigin;
};

template <typename TStep>
CRefusal RefusalOf(const TStep& step)
{
    try
    {
        step();
        return {};
    }
    catch (CDBException* exception)
    {
        const CExceptionGuard guard(exception);
        const std::string origin = ToUtf8(exception->m_strStateNativeOrigin.View());
        const std::string head = "State:";
        return {exception->m_nRetCode, exception->m_Failure,
                origin.substr(std::min(head.size(), origin.size()), origin.find(',') - head.size()),
                ToUtf8(exception->GetErrorText().View()), origin};
    }
}

/// Runs steps that nothing may refuse.
template <typename TStep>
void Allowed(const TStep& step)
{
    const CRefusal refusal = RefusalOf(step);
    if (refusal.Code != 0)
        FAIL() << refusal.Text << "\n" << refusal.StateNativeOrigin;
}

/// A test on each kind of source, with an open connection to a new database.
class CDatabaseTest : public testing::TestWithParam<EServer>
{
protected:
    void SetUp() override
    {
        m_Connect = CDatabaseServers::Get().MakeSource(GetParam());
        Allowed([&] { m_Database.Open(nullptr, FALSE, FALSE, m_Connect); });
    }

    void Execute(const CString& sql)
    {
        Allowed([&] { m_Database.ExecuteSQL(sql); });
    }

    bool IsOn(EServer server) const { return GetParam() == server; }

    CString m_Connect;
    CDatabase m_Database;
};

#define UTILITY_ON_ALL_SERVERS(suite)                                                              \
    INSTANTIATE_TEST_SUITE_P(Sources, suite, testing::ValuesIn(ALL_SERVERS),                       \
                             [](const auto& source) { return std::string(NameOf(source.param)); })

/// Those that have a server, which may be lost.
#define UTILITY_ON_SERVERS(suite)                                                                  \
    INSTANTIATE_TEST_SUITE_P(Servers, suite,                                                       \
                             testing::Values(EServer::PostgreSQL, EServer::MariaDB),               \
                             [](const auto& source) { return std::string(NameOf(source.param)); })

/// Rows of a stock table, with declared fields.
class CStockSet : public CRecordset
{
public:
    explicit CStockSet(CDatabase* database) : CRecordset(database) { m_nFields = 5; }

    static constexpr LPCWSTR CREATE =
        u"CREATE TABLE [Stock] ([Id] INTEGER, [Name] VARCHAR(600), "
        u"[Price] NUMERIC(12,3), [Weight] DOUBLE PRECISION, [Made] TIMESTAMP NULL)";
    enum EField : DWORD
    {
        ID,
        NAME,
        PRICE,
        WEIGHT,
        MADE
    };

    CString GetDefaultSQL() override { return u"SELECT * FROM [Stock] ORDER BY [Id]"; }
    void DoFieldExchange(CFieldExchange* exchange) override
    {
        exchange->SetFieldType(CFieldExchange::outputColumn);
        RFX_Long(exchange, u"[Id]", m_Id);
        RFX_Text(exchange, u"[Name]", m_Name, 512);
        RFX_Text(exchange, u"[Price]", m_Price, 512);
        RFX_Double(exchange, u"[Weight]", m_Weight);
        RFX_Date(exchange, u"[Made]", m_Made);
    }

    LONG m_Id = 0;
    CString m_Name;
    CString m_Price;
    double m_Weight = 0;
    TIMESTAMP_STRUCT m_Made = {};
};

} // namespace utility
