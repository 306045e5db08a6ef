#pragma once

#include "platform/backend/odbc/DriverQuirks.h"
#include "platform/base/String.h"
#include "platform/db/Driver.h"

#include <memory>
#include <string_view>
#include <vector>

namespace utility
{

class COdbcStatement;

/// One connection through the driver manager.
class COdbcConnection : public ConnectionRecord
{
public:
    COdbcConnection();
    ~COdbcConnection() override;
    COdbcConnection(const COdbcConnection&) = delete;
    COdbcConnection& operator=(const COdbcConnection&) = delete;

    RETCODE Connect(const CConnectRequest& request);

    std::unique_ptr<StatementRecord> MakeStatement(DWORD timeoutSeconds) override;
    const CDriverTraits& GetTraits() const override { return m_Traits; }
    CSourceFacts ReadFacts() const override;
    const CString& GetConnect() const override { return m_Connect; }
    RETCODE SetAutoCommit(bool isOn) override;
    RETCODE EndTransaction(bool keep) override;
    bool IsLost() const override;
    std::vector<CDiagnostic> ReadDiagnostics() const override;

    void* GetHandle() const { return m_Handle; }

    /// Stops what runs on a statement of this connection; any thread.
    void Stop(void* statement) const;
    const CDriverQuirks& GetQuirks() const { return *m_Quirks; }
    CString Adapt(std::u16string_view sql) const;

    /// Where a cursor stands alone, each unfinished one is read to its end: something else is about
    /// to be run.
    void SettleCursors();
    void EnterCursor(COdbcStatement* statement);
    void LeaveCursor(COdbcStatement* statement);

    /// A statement for the direct calls: kept until it is dropped there or the connection goes.
    COdbcStatement* MakeDirectStatement();
    void DropDirectStatement(HSTMT statement);

private:
    void ReadTraits();
    CString ReadInfoText(unsigned short kind) const;

    void* m_Handle = nullptr;
    void* m_IdleStatement = nullptr; // asked to stop instead, where that frees a statement's rows
    bool m_IsConnected = false;
    const CDriverQuirks* m_Quirks;
    CSqlDialect m_Dialect;
    CDriverTraits m_Traits;
    CString m_Connect;
    std::vector<std::unique_ptr<COdbcStatement>> m_DirectStatements;
    std::vector<COdbcStatement*> m_UnfinishedCursors;
};

} // namespace utility
