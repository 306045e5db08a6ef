#include "platform/backend/odbc/ColumnProbe.h"

#include "platform/backend/odbc/DriverManager.h"

#include <array>
#include <span>

namespace utility
{

namespace
{

constexpr SQLSMALLINT NAME_CAPACITY = 1024;

/// A statement for one question.
class CQuestion
{
public:
    explicit CQuestion(SQLHDBC connection)
    {
        ::SQLAllocHandle(SQL_HANDLE_STMT, connection, &m_Handle);
    }
    ~CQuestion()
    {
        if (m_Handle)
            ::SQLFreeHandle(SQL_HANDLE_STMT, m_Handle);
    }
    CQuestion(const CQuestion&) = delete;
    CQuestion& operator=(const CQuestion&) = delete;

    SQLHSTMT GetHandle() const { return m_Handle; }
    bool Prepare(const std::string& sql) const
    {
        auto* const text = reinterpret_cast<SQLCHAR*>(const_cast<char*>(sql.c_str()));
        return m_Handle && SQL_SUCCEEDED(::SQLPrepare(m_Handle, text, SQL_NTS));
    }

private:
    SQLHSTMT m_Handle = nullptr;
};

std::string ReadText(SQLHSTMT statement, SQLUSMALLINT number, SQLUSMALLINT attribute)
{
    std::array<SQLCHAR, NAME_CAPACITY> text{};
    SQLSMALLINT length = 0;
    ::SQLColAttribute(statement, number, attribute, text.data(), NAME_CAPACITY, &length, nullptr);
    return reinterpret_cast<const char*>(text.data());
}

/// A column of a table has its declared type; what comes from none and is called a text is hidden.
bool IsHidden(SQLHSTMT statement, SQLUSMALLINT number)
{
    SQLLEN type = 0;
    ::SQLColAttribute(statement, number, SQL_DESC_CONCISE_TYPE, nullptr, 0, nullptr, &type);
    const bool isText = type == SQL_VARCHAR || type == SQL_CHAR;
    return isText && ReadText(statement, number, SQL_DESC_TABLE_NAME).empty();
}

std::string ComposeTypeQuestion(const std::string& sql, std::span<const SQLUSMALLINT> hidden,
                                std::size_t count)
{
    std::string names;
    for (std::size_t column = 1; column <= count; ++column)
        names.append(column > 1 ? ",c" : "c").append(std::to_string(column));
    std::string types;
    for (const SQLUSMALLINT column : hidden)
    {
        const std::string name = "c" + std::to_string(column);
        types += types.empty() ? "" : ",";
        types += "CASE typeof(" + name + ") WHEN 'integer' THEN CASE WHEN " + name +
                 " BETWEEN -2147483648 AND 2147483647 THEN " + std::to_string(SQL_INTEGER) +
                 " ELSE " + std::to_string(SQL_BIGINT) + " END WHEN 'real' THEN " +
                 std::to_string(SQL_DOUBLE) + " WHEN 'blob' THEN " + std::to_string(SQL_BINARY) +
                 " ELSE 0 END";
    }
    // The line's end closes a comment that the query may end with.
    return "WITH utility_query(" + names + ") AS (" + sql + "\n) SELECT " + types +
           " FROM utility_query LIMIT 1";
}

void ProbeTypes(SQLHDBC connection, const std::string& sql, std::deque<CParameter>& parameters,
                std::span<const SQLUSMALLINT> hidden, std::vector<CProbedColumn>& columns)
{
    const CQuestion question(connection);
    if (!question.Prepare(ComposeTypeQuestion(sql, hidden, columns.size())))
        return;
    for (std::size_t index = 0; index < parameters.size(); ++index)
        parameters[index].Bind(question.GetHandle(), index);
    if (!SQL_SUCCEEDED(::SQLExecute(question.GetHandle())) ||
        !SQL_SUCCEEDED(::SQLFetch(question.GetHandle())))
        return;
    for (std::size_t index = 0; index < hidden.size(); ++index)
    {
        SQLINTEGER type = 0;
        SQLLEN length = 0;
        ::SQLGetData(question.GetHandle(), static_cast<SQLUSMALLINT>(index + 1), SQL_C_SLONG, &type,
                     sizeof(type), &length);
        columns[hidden[index] - 1U].Type = static_cast<short>(type);
    }
}

/// With a constant beside the columns the driver gives whole names as labels; nothing is executed
/// for it.
void ProbeNames(SQLHDBC connection, SQLHSTMT prepared, const std::string& sql,
                std::vector<CProbedColumn>& columns)
{
    const CQuestion question(connection);
    if (!question.Prepare("SELECT *,NULL FROM (" + sql + "\n)"))
        return;
    for (std::size_t index = 0; index < columns.size(); ++index)
    {
        const auto number = static_cast<SQLUSMALLINT>(index + 1);
        const std::string label = ReadText(question.GetHandle(), number, SQL_DESC_LABEL);
        if (label.ends_with("." + ReadText(prepared, number, SQL_DESC_NAME)))
            columns[index].Name = label;
    }
}

} // namespace

std::vector<CProbedColumn> ProbeColumns(void* connection, void* prepared, const std::string& sql,
                                        std::deque<CParameter>& parameters)
{
    SQLSMALLINT count = 0;
    if (!SQL_SUCCEEDED(::SQLNumResultCols(prepared, &count)) || count <= 0)
        return {};
    std::vector<CProbedColumn> columns(static_cast<std::size_t>(count));
    std::vector<SQLUSMALLINT> hidden;
    for (SQLUSMALLINT number = 1; number <= count; ++number)
        if (IsHidden(prepared, number))
            hidden.push_back(number);
    ProbeNames(connection, prepared, sql, columns);
    if (!hidden.empty())
        ProbeTypes(connection, sql, parameters, hidden, columns);
    return columns;
}

} // namespace utility
