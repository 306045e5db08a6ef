#pragma once

#include "settings/tree/PTNStrategyRegistry.h"

namespace utility
{

/// Stores a tree as settings keys whose values have types: each text is "T:...", T the type's
/// number.
///
///     1:text          text
///     3:BAEB          bytes, two letters each, low nibble first
///     4:-5            32-bit number
///
/// Values of other types are left out. Long values come as chunks ("name_BinCount", "name_BinVal0"
/// ...), which are put together again here. While one of these lives, tree nodes split long values.
class UTILITY_CORE_API SMCPTNStrategyRegTyped : public SECPTNStrategyRegistry
{
public:
    SMCPTNStrategyRegTyped(const CString& base, HKEY root);
    ~SMCPTNStrategyRegTyped() override;
    SMCPTNStrategyRegTyped(const SMCPTNStrategyRegTyped&) = delete;
    SMCPTNStrategyRegTyped& operator=(const SMCPTNStrategyRegTyped&) = delete;

    /// False, with the fault noted, if a name could not be told from the marks of the file or from
    /// the parts of a long value.
    bool ReadAll(const SECPersistentTreeNode& node, std::vector<CString>& children,
                 CKeyValues& values) override;
    bool DeleteSection(const SECPersistentTreeNode& node) override;
    bool WriteValue(const SECPersistentTreeNode& node, const CString& key,
                    const CString& value) override;

protected:
    bool TextOf(DWORD type, const BYTE* data, DWORD size, CString& text) const override;

private:
    bool AreLinesUnique(const CKeyValues& values) const;
    bool BeginChunks(const CString& key, const CString& value);
    bool IsNextChunk(const CString& key) const;
    void ForgetChunks();
    bool StoreTyped(const SECPersistentTreeNode& node, const CString& key,
                    const CString& value) const;

    CString m_ChunkName; // the value being put together; empty: none
    CString m_ChunkText;
    CString m_ChunkFormat;
    int m_ChunkCount = 0;
    int m_ChunkIndex = 0;
};

} // namespace utility
