#pragma once

namespace utility
{

class CDatabase;

/// Changes that come to stand together: undone unless committed. Refusals raise CDBException.
class CDbTransaction
{
public:
    explicit CDbTransaction(CDatabase& database);
    ~CDbTransaction();
    CDbTransaction(const CDbTransaction&) = delete;
    CDbTransaction& operator=(const CDbTransaction&) = delete;

    void Commit();

private:
    CDatabase& m_Database;
    bool m_IsOpen = false;
};

} // namespace utility
