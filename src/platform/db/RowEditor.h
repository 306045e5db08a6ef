#pragma once

#include "platform/base/String.h"
#include "platform/db/Driver.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace utility
{

class CDatabase;

/// The new value of one column, with its text.
struct CRowChange
{
    std::size_t Column = 0;
    CDbValue Value;
    std::string Bytes;

    CDbValue GetValue() const
    {
        CDbValue value = Value;
        value.Bytes = Bytes;
        return value;
    }
};

/// Sends single rows to one table, by bound values; statements are kept for the next row of the
/// same shape.
///
/// A row to change or delete is found by its old values, but for bytes that stay as they are. If
/// they are found in more or fewer rows than one, the statement is rolled back and CDBException
/// 44000 raised.
class CRowEditor
{
public:
    using CReadOld = std::function<CDbValue(std::size_t column)>;

    CRowEditor(CDatabase& database, const CString& table,
               const std::vector<CODBCFieldInfo>& columns);

    void Insert(const std::vector<CRowChange>& changes);
    void Update(const std::vector<CRowChange>& changes, const CReadOld& readOld);
    void Delete(const CReadOld& readOld);

private:
    StatementRecord& Prepare(const CString& sql);
    StatementRecord& PrepareInsert(const std::vector<CRowChange>& changes);
    struct COldValue
    {
        std::size_t Column = 0;
        CDbValue Value;
    };

    std::vector<COldValue>
    ReadOldValues(const CReadOld& readOld,
                  const std::function<bool(std::size_t)>& comparesBytesOf) const;
    CString ComposeComparison(const COldValue& old) const;
    CString ComposeCondition(const std::vector<COldValue>& oldValues) const;
    void SetChanges(StatementRecord& statement, const std::vector<CRowChange>& changes,
                    std::size_t& mark);
    void SetOldValues(StatementRecord& statement, const std::vector<COldValue>& oldValues,
                      std::size_t mark);
    void SetMark(StatementRecord& statement, std::size_t& mark, const CDbValue& value,
                 std::size_t column);
    void RunForOneRow(StatementRecord& statement);
    const CString& NameOf(std::size_t column) const { return m_Names[column]; }

    CDatabase& m_Database;
    CString m_Table;
    const std::vector<CODBCFieldInfo>& m_Columns;
    std::vector<CString> m_Names; // delimited
    std::unordered_map<CString, std::unique_ptr<StatementRecord>> m_Statements;
    StatementRecord* m_Insert = nullptr; // the last one; of m_Statements
    std::vector<std::size_t> m_InsertColumns;
};

} // namespace utility
