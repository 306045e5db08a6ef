#pragma once

#include "utility/db/stock/SymbolTable.h"

namespace utility
{

/// Brings a folder of symbol libraries into table `Symbols`, one transaction a library. Progress is
/// shown on the way.
///
/// Libraries of the table that the folder does not have stay: another folder may have them.
class CSymbolImport
{
public:
    /// Finds the libraries and looks all of them through, so that nothing is stored while one is
    /// damaged. False, and the reason is told, if there are none or one is damaged, or when the
    /// user interrupted.
    [[nodiscard]] bool Check(const CString& folder);

    /// False, and the reason is told, at the first failure or when the user interrupted; libraries
    /// stored until then stay.
    [[nodiscard]] bool Store(CDBADatabase& database);

    std::size_t GetLibraryCount() const { return m_Libraries; }
    std::int64_t GetSymbolCount() const { return m_Symbols; }
    const CRowChanges& GetChanges() const { return m_Changes; }

private:
    struct CSource
    {
        CString m_Path;
        std::int64_t m_Length = 0;
    };

    bool FindFiles(const CString& folder);
    bool StoreFile(const CSource& file, CSymbolTable& table);
    bool TellInterrupt() const;

    std::vector<CSource> m_Files;
    std::int64_t m_Bytes = 0; // of all files
    std::size_t m_Libraries = 0;
    std::int64_t m_Symbols = 0;
    CRowChanges m_Changes;
};

} // namespace utility
