#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

#include <span>

namespace utility
{

/// One line of a table of texts. The text lives as long as the table is in use.
struct CStringTableEntry
{
    UINT m_Id;
    const char16_t* m_Text;
};

/// All texts of the process by number: the hosts' tables, the newest first, then the library's own.
///
/// Hosts number from 11000; an entry with a number of the library replaces its text. Any thread may
/// look up; tables come and go on the user-interface thread. A number is known or not, and an
/// unknown number is never an empty text by itself: error codes of the system share the range.
class UTILITY_CORE_API CStringTable
{
public:
    CStringTable() = delete;

    /// The text, or null if no table holds the number. Valid while its table is in use.
    static const char16_t* Find(UINT id);

    /// The text, or the empty text.
    static CString Get(UINT id) { return CString(Find(id)); }

    /// Any order; of a number that stands twice in one table the first line counts.
    /// The entries are copied, their texts are not.
    static void AddTable(std::span<const CStringTableEntry> table);

    /// Forgets the newest table that was added from these entries; nothing if there is none.
    static void RemoveTable(std::span<const CStringTableEntry> table);
};

/// False, and `text` is left alone, if no table holds the number.
UTILITY_CORE_API bool AfxLoadString(UINT id, CString& text);

} // namespace utility
