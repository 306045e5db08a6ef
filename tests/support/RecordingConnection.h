#pragma once

#include "platform/db/Driver.h"

#include <memory>
#include <vector>

namespace utility
{

/// Takes statements down and gives no columns.
class CRecordingStatement : public StatementRecord
{
public:
    explicit CRecordingStatement(std::vector<CString>& sent) : m_Sent(sent) {}

    RETCODE Execute(std::u16string_view sql) override
    {
        m_Sent.emplace_back(sql);
        return SQL_SUCCESS;
    }
    RETCODE Prepare(std::u16string_view sql) override { return Execute(sql); }
    RETCODE ExecutePrepared() override { return SQL_SUCCESS; }
    std::int64_t GetRowCount() override { return 0; }
    RETCODE SetParameter(std::size_t, const CDbValue&, const CODBCFieldInfo&) override
    {
        return SQL_SUCCESS;
    }
    RETCODE DescribeColumns(std::vector<CODBCFieldInfo>& columns) override
    {
        columns.clear();
        return SQL_SUCCESS;
    }
    RETCODE BindColumns(std::span<const CColumnLayout>) override { return SQL_SUCCESS; }
    RETCODE FetchRows(CSnapshotStore&) override { return SQL_NO_DATA; }
    void CloseCursor() override {}
    void Cancel() override {}
    bool WasStopped() const override { return m_WasStopped; }
    std::vector<CDiagnostic> ReadDiagnostics() const override { return m_Diagnostics; }

    // What the statement tells of its last call
    bool m_WasStopped = false;
    std::vector<CDiagnostic> m_Diagnostics;

private:
    std::vector<CString>& m_Sent;
};

/// A source that takes down what is sent to it, as composed.
class CRecordingConnection : public ConnectionRecord
{
public:
    std::unique_ptr<StatementRecord> MakeStatement(DWORD) override
    {
        return std::make_unique<CRecordingStatement>(m_Sent);
    }
    const CDriverTraits& GetTraits() const override { return m_Traits; }
    const CString& GetConnect() const override { return m_Connect; }
    RETCODE SetAutoCommit(bool) override { return SQL_SUCCESS; }
    RETCODE EndTransaction(bool) override { return SQL_SUCCESS; }
    bool IsLost() const override { return false; }
    std::vector<CDiagnostic> ReadDiagnostics() const override { return {}; }

    std::vector<CString> m_Sent;

private:
    CDriverTraits m_Traits;
    CString m_Connect;
};

} // namespace utility
