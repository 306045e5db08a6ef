#include "database/DatabaseFixture.h"
#include "database/ODBCRecordset.h"
#include "database/TraceLog.h"

#include <gtest/gtest.h>

namespace utility
{
namespace
{

/// A date that its source holds and its driver cannot give.
class ODBCRecordsetDatesTest : public CSourceTest
{
};

TEST_P(ODBCRecordsetDatesTest, WhatCannotBeReadIsNullAndTraced)
{
    const CTraceLog log(u"ODBCRecordset");
    if (GetParam() == EServer::MariaDB)
        Execute(u"SET sql_mode = ''"); // strict modes refuse the zero date
    Execute(u"CREATE TABLE [Dates] ([made] DATE NOT NULL)");
    Execute(GetParam() == EServer::MariaDB ? u"INSERT INTO [Dates] VALUES ('0000-00-00')"
                                           : u"INSERT INTO [Dates] VALUES ('infinity')");

    CODBCRecordset set(&m_Database);
    ASSERT_TRUE(set.Open(u"SELECT * FROM [Dates]"));

    EXPECT_TRUE(set.IsNull(u"made"));
    EXPECT_EQ(set.GetString(u"made"), u"");
    EXPECT_NE(log.Read().find("Date of [MADE] cannot be read\n"), std::string::npos) << log.Read();
}

INSTANTIATE_TEST_SUITE_P(Servers, ODBCRecordsetDatesTest,
                         testing::Values(EServer::PostgreSQL, EServer::MariaDB),
                         [](const auto& source) { return std::string(NameOf(source.param)); });

} // namespace
} // namespace utility
