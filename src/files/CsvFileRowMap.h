#pragma once

#include "platform/base/collections/MapStringToPtr.h"
#include "platform/base/collections/StringArray.h"

#include <memory>
#include <vector>

namespace utility
{

/// The rows of a CSV file by the text of one of their columns: each value is a `CStringArray*`.
///
/// Owns its rows until it goes, also those that a later row with the same key replaced by
/// `AddRow`. What is taken out by `RemoveKey` or `RemoveAll`, or replaced by `SetAt`, passes to the
/// caller.
class UTILITY_CORE_API CCsvFileRowMap : public CMapStringToPtr
{
public:
    CCsvFileRowMap() = default;
    ~CCsvFileRowMap();
    CCsvFileRowMap(const CCsvFileRowMap&) = delete;
    CCsvFileRowMap& operator=(const CCsvFileRowMap&) = delete;

    /// The last row of a key is the one that is found.
    void AddRow(const CString& key, std::unique_ptr<CStringArray> row);

    /// The row of a key; null if there is none.
    const CStringArray* FindRow(const CString& key) const;

private:
    std::vector<std::unique_ptr<CStringArray>> m_Replaced; // callers may still hold them
};

} // namespace utility
