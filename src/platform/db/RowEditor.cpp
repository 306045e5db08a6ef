#include "platform/db/RowEditor.h"

#include "platform/db/DBException.h"
#include "platform/db/DBRefusal.h"
#include "platform/db/Database.h"
#include "platform/db/DelimitName.h"

#include <algorithm>

namespace utility
{

namespace
{

constexpr std::size_t MOST_STATEMENTS =
    32; // shapes differ by the columns changed and those that were NULL
constexpr LPCWSTR SAVE = u"SAVEPOINT utility_row";
constexpr LPCWSTR SAVE_UNDO = u"ROLLBACK TO SAVEPOINT utility_row";
constexpr LPCWSTR SAVE_KEEP = u"RELEASE SAVEPOINT utility_row";

const char16_t* ConditionFor(EValueKind kind, const CDriverTraits& traits)
{
    switch (kind)
    {
    case EValueKind::Single:
    case EValueKind::Real:
        return traits.RealCondition;
    case EValueKind::Date:
        return traits.DateCondition;
    default:
        return u"%s=?";
    }
}

bool IsDone(RETCODE code)
{
    return code == SQL_SUCCESS || code == SQL_SUCCESS_WITH_INFO;
}

/// One statement that is undone unless kept: by a transaction of its own or, within the caller's,
/// by a savepoint.
class CStatementGuard
{
public:
    explicit CStatementGuard(CDatabase& database)
        : m_Database(database),
          m_IsNested(database.IsInTransaction()),
          m_IsOpen(Begin())
    {
    }
    ~CStatementGuard()
    {
        if (m_IsOpen)
            Undo();
    }
    CStatementGuard(const CStatementGuard&) = delete;
    CStatementGuard& operator=(const CStatementGuard&) = delete;

    void Keep()
    {
        if (!m_IsOpen)
            return;
        m_IsOpen = false;
        if (m_IsNested)
            m_Database.ExecuteSQL(SAVE_KEEP);
        else if (!m_Database.CommitTrans())
            m_Database.ThrowDBException(SQL_ERROR);
    }

private:
    bool Begin()
    {
        if (!m_Database.CanTransact())
            return false;
        if (!m_IsNested)
            return m_Database.BeginTrans() != 0;
        m_Database.ExecuteSQL(SAVE);
        return true;
    }

    void Undo()
    {
        if (!m_IsNested)
        {
            m_Database.Rollback();
            return;
        }
        try
        {
            m_Database.ExecuteSQL(SAVE_UNDO);
            m_Database.ExecuteSQL(SAVE_KEEP);
        }
        catch (CDBException* exception)
        {
            exception->Delete(); // the failure that led here is the one to tell
        }
    }

    CDatabase& m_Database;
    bool m_IsNested;
    bool m_IsOpen;
};

} // namespace

CRowEditor::CRowEditor(CDatabase& database, const CString& table,
                       const std::vector<CODBCFieldInfo>& columns)
    : m_Database(database),
      m_Table(table),
      m_Columns(columns)
{
    for (const CODBCFieldInfo& column : columns)
        m_Names.push_back(DelimitName(column.m_strName));
}

void CRowEditor::Insert(const std::vector<CRowChange>& changes)
{
    StatementRecord& statement = PrepareInsert(changes);
    std::size_t mark = 0;
    SetChanges(statement, changes, mark);
    const RETCODE code = statement.ExecutePrepared();
    if (!IsDone(code))
        AfxThrowDBException(code, &m_Database, &statement);
    statement.CloseCursor();
}

/// Rows are added one after the other, mostly of one shape: only another one is composed.
StatementRecord& CRowEditor::PrepareInsert(const std::vector<CRowChange>& changes)
{
    if (m_Insert && std::ranges::equal(changes, m_InsertColumns, {}, &CRowChange::Column))
        return *m_Insert;
    CString names;
    CString marks;
    for (const CRowChange& change : changes)
    {
        names += names.IsEmpty() ? u"" : u",";
        names += NameOf(change.Column);
        marks += marks.IsEmpty() ? u"?" : u",?";
    }
    m_Insert = &Prepare(u"INSERT INTO " + m_Table + u" (" + names + u") VALUES (" + marks + u")");
    m_InsertColumns.clear();
    for (const CRowChange& change : changes)
        m_InsertColumns.push_back(change.Column);
    return *m_Insert;
}

void CRowEditor::Update(const std::vector<CRowChange>& changes, const CReadOld& readOld)
{
    CString assignments;
    for (const CRowChange& change : changes)
    {
        assignments += assignments.IsEmpty() ? u"" : u",";
        assignments += NameOf(change.Column);
        assignments += u"=?";
    }
    const std::vector<COldValue> oldValues = ReadOldValues(
        readOld, [&](std::size_t column)
        { return std::ranges::find(changes, column, &CRowChange::Column) != changes.end(); });
    StatementRecord& statement =
        Prepare(u"UPDATE " + m_Table + u" SET " + assignments + ComposeCondition(oldValues));
    std::size_t mark = 0;
    SetChanges(statement, changes, mark);
    SetOldValues(statement, oldValues, mark);
    RunForOneRow(statement);
}

void CRowEditor::Delete(const CReadOld& readOld)
{
    const std::vector<COldValue> oldValues =
        ReadOldValues(readOld, [](std::size_t) { return true; });
    StatementRecord& statement = Prepare(u"DELETE FROM " + m_Table + ComposeCondition(oldValues));
    SetOldValues(statement, oldValues, 0);
    RunForOneRow(statement);
}

StatementRecord& CRowEditor::Prepare(const CString& sql)
{
    const auto found = m_Statements.find(sql);
    if (found != m_Statements.end())
        return *found->second;
    if (m_Statements.size() >= MOST_STATEMENTS)
    {
        m_Statements.clear();
        m_Insert = nullptr;
    }
    std::unique_ptr<StatementRecord> statement =
        m_Database.m_hdbc->MakeStatement(m_Database.GetQueryTimeout());
    if (!statement)
        AfxThrowDBException(SQL_ERROR, &m_Database, nullptr);
    const RETCODE code = statement->Prepare(sql.View());
    if (!IsDone(code))
        AfxThrowDBException(code, &m_Database, statement.get());
    return *(m_Statements[sql] = std::move(statement));
}

/// Those that the row is found by. Bytes may be many, so they are sent only where somebody else's
/// would be lost.
std::vector<CRowEditor::COldValue>
CRowEditor::ReadOldValues(const CReadOld& readOld,
                          const std::function<bool(std::size_t)>& comparesBytesOf) const
{
    std::vector<COldValue> oldValues;
    for (std::size_t column = 0; column < m_Columns.size(); ++column)
    {
        const CDbValue old = readOld(column);
        if (old.Kind != EValueKind::None &&
            (old.Kind != EValueKind::Binary || comparesBytesOf(column)))
            oldValues.push_back({column, old});
    }
    return oldValues;
}

CString CRowEditor::ComposeComparison(const COldValue& old) const
{
    const CString& name = NameOf(old.Column);
    if (old.Value.IsNull)
        return name + u" IS NULL";
    CString comparison;
    comparison.Format(ConditionFor(old.Value.Kind, m_Database.m_hdbc->GetTraits()), name);
    return comparison;
}

CString CRowEditor::ComposeCondition(const std::vector<COldValue>& oldValues) const
{
    CString condition;
    for (const COldValue& old : oldValues)
    {
        condition += condition.IsEmpty() ? u" WHERE " : u" AND ";
        condition += ComposeComparison(old);
    }
    return condition;
}

void CRowEditor::SetChanges(StatementRecord& statement, const std::vector<CRowChange>& changes,
                            std::size_t& mark)
{
    for (const CRowChange& change : changes)
        SetMark(statement, mark, change.GetValue(), change.Column);
}

void CRowEditor::SetOldValues(StatementRecord& statement, const std::vector<COldValue>& oldValues,
                              std::size_t mark)
{
    for (const COldValue& old : oldValues)
        if (!old.Value.IsNull)
            SetMark(statement, mark, old.Value, old.Column);
}

void CRowEditor::SetMark(StatementRecord& statement, std::size_t& mark, const CDbValue& value,
                         std::size_t column)
{
    const RETCODE code = statement.SetParameter(mark++, value, m_Columns[column]);
    if (!IsDone(code))
        AfxThrowDBException(code, &m_Database, &statement);
}

void CRowEditor::RunForOneRow(StatementRecord& statement)
{
    CStatementGuard guard(m_Database);
    const RETCODE code = statement.ExecutePrepared();
    if (!IsDone(code) && code != SQL_NO_DATA)
        AfxThrowDBException(code, &m_Database, &statement);
    const std::int64_t count = code == SQL_NO_DATA ? 0 : statement.GetRowCount();
    statement.CloseCursor();
    if (count != 1)
    {
        CString text;
        text.Format(u"%I64d", static_cast<long long>(count));
        ThrowRefusal(AFX_SQL_ERROR_ROW_CHANGED, text.View());
    }
    guard.Keep();
}

} // namespace utility
