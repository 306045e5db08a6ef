#pragma once

#include "database/DBADatabase.h"
#include "platform/base/Encoding.h"
#include "platform/db/DBException.h"

#include "support/DatabaseServers.h"

#include <gtest/gtest.h>

#include <string>

namespace utility
{

/// The driver's words of what a step was refused with; empty if it was not.
template <typename TStep>
std::string RefusalOf(const TStep& step)
{
    try
    {
        step();
        return {};
    }
    catch (CDBException* exception)
    {
        const CExceptionGuard guard(exception);
        return ToUtf8((exception->m_strStateNativeOrigin + exception->GetErrorText()).View());
    }
}

/// A test on each kind of source, with an open connection to a new database.
class CSourceTest : public testing::TestWithParam<EServer>
{
protected:
    CSourceTest() : m_Connect(CDatabaseServers::Get().MakeSource(GetParam())) {}
    void SetUp() override { ASSERT_TRUE(m_Database.Open(nullptr, FALSE, FALSE, m_Connect)); }

    void Execute(const CString& sql)
    {
        ASSERT_EQ(RefusalOf([&] { m_Database.ExecuteSQL(sql); }), "") << ToUtf8(sql.View());
    }

    /// One of three values, by the kind of source.
    template <typename TValue>
    static TValue On(TValue sqlite, TValue postgresql, TValue mariadb)
    {
        return GetParam() == EServer::SQLite       ? sqlite
               : GetParam() == EServer::PostgreSQL ? postgresql
                                                   : mariadb;
    }

    CString m_Connect;
    CDBADatabase m_Database;
};

/// The expectations of a suite hold on every kind of source.
#define UTILITY_ON_ALL_SOURCES(suite)                                                              \
    INSTANTIATE_TEST_SUITE_P(Sources, suite, testing::ValuesIn(ALL_SERVERS),                       \
                             [](const auto& source) { return std::string(NameOf(source.param)); })

} // namespace utility
