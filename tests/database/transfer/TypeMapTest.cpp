#include "database/transfer/TypeMap.h"

#include "platform/base/Encoding.h"
#include "platform/db/ODBCFieldInfo.h"

#include <gtest/gtest.h>

using namespace utility;

namespace
{

TEST(TypeMapTest, EachTargetHasItsOwnNames)
{
    const struct
    {
        const char* m_Name;
        CTransferColumn m_Column;
        const char* m_Types[4]; // by ESourceKind
    } cases[] = {
        {"small decimals",
         {u"c", ETransferType::Decimal, 12, 3},
         {"DECIMAL(12,3)", "NUMERIC(12,3)", "DECIMAL(12,3)", "DECIMAL(12,3)"}},
        {"decimals that a double would round",
         {u"c", ETransferType::Decimal, 16, 3},
         {"VARCHAR(18)", "NUMERIC(16,3)", "DECIMAL(16,3)", "DECIMAL(16,3)"}},
        {"decimals of any length",
         {u"c", ETransferType::Decimal},
         {"TEXT", "NUMERIC", "DECIMAL(65,30)", "DECIMAL(65,30)"}},
        {"short texts",
         {u"c", ETransferType::Text, 255},
         {"VARCHAR(255)", "VARCHAR(255)", "VARCHAR(255)", "VARCHAR(255)"}},
        {"longer texts",
         {u"c", ETransferType::Text, 256},
         {"VARCHAR(256)", "VARCHAR(256)", "LONGTEXT", "VARCHAR(256)"}},
        {"texts of any length", {u"c", ETransferType::Text}, {"TEXT", "TEXT", "LONGTEXT", "CLOB"}},
        {"moments",
         {u"c", ETransferType::Timestamp},
         {"TIMESTAMP", "TIMESTAMP", "DATETIME(6)", "TIMESTAMP"}},
        {"bytes", {u"c", ETransferType::Binary}, {"BLOB", "BYTEA", "LONGBLOB", "BLOB"}},
        {"singles", {u"c", ETransferType::Single}, {"REAL", "REAL", "DOUBLE", "REAL"}},
    };
    for (const auto& row : cases)
        for (const ESourceKind kind : {ESourceKind::SQLite, ESourceKind::PostgreSQL,
                                       ESourceKind::MariaDB, ESourceKind::Other})
            EXPECT_EQ(ToUtf8(ComposeColumnType(kind, row.m_Column).View()),
                      row.m_Types[static_cast<int>(kind)])
                << row.m_Name;
}

TEST(TypeMapTest, RowThatMariaDBWouldFindTooLongHasItsTextsOutside)
{
    const std::vector<CTransferColumn> few(50, {u"c", ETransferType::Text, 255});
    const std::vector<CTransferColumn> many(60, {u"c", ETransferType::Text, 255});

    EXPECT_GE(ComposeCreateTable(ESourceKind::MariaDB, u"t", few).Find(u"VARCHAR"), 0);
    EXPECT_LT(ComposeCreateTable(ESourceKind::MariaDB, u"t", many).Find(u"VARCHAR"), 0);
    EXPECT_EQ(ComposeCreateTable(ESourceKind::SQLite, u"a]b", {{u"c d", ETransferType::Big}}),
              u"CREATE TABLE [a]]b] ([c d] BIGINT)");
}

TEST(TypeMapTest, DeclaredTypesOfSQLiteSayMoreThanItsDriver)
{
    CODBCFieldInfo info;
    info.m_strName = u"c";
    info.m_nSQLType = SQL_VARCHAR; // as which the driver tells DECIMAL(12,3), too
    info.m_nPrecision = 255;

    const CTransferColumn decimal = ReadDeclaredColumn(info, u"Decimal(12, 3)", false);
    EXPECT_EQ(decimal.Type, ETransferType::Decimal);
    EXPECT_EQ(decimal.Length, 12u);
    EXPECT_EQ(decimal.Scale, 3);
    EXPECT_FALSE(decimal.IsNullable);
    EXPECT_EQ(ReadDeclaredColumn(info, u"TEXT", true).Length, 0u);
    EXPECT_EQ(ReadDeclaredColumn(info, u"VARCHAR(40)", true).Length, 40u);
    EXPECT_EQ(ReadDeclaredColumn(info, u"VARCHAR(x)", true).Length, 0u);
}

} // namespace
