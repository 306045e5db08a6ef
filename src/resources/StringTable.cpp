#include "resources/StringTable.h"

#include <algorithm>
#include <shared_mutex>
#include <vector>

namespace utility
{

namespace
{

constexpr CStringTableEntry OWN_TEXTS[] = {
#define UTILITY_TEXT(id, name, text) {id, text},
#include "resources/Strings.def"
#undef UTILITY_TEXT
};

constexpr bool ById(const CStringTableEntry& left, const CStringTableEntry& right)
{
    return left.m_Id < right.m_Id;
}

constexpr bool IsStrictlyAscending(std::span<const CStringTableEntry> table)
{
    for (std::size_t i = 1; i < table.size(); i++)
    {
        if (!ById(table[i - 1], table[i]))
            return false;
    }
    return true;
}

static_assert(IsStrictlyAscending(OWN_TEXTS),
              "Strings.def is out of order or holds a number twice");

const char16_t* FindSorted(std::span<const CStringTableEntry> table, UINT id)
{
    const CStringTableEntry wanted{id, nullptr};
    const auto place = std::lower_bound(table.begin(), table.end(), wanted, ById);
    return place != table.end() && place->m_Id == id ? place->m_Text : nullptr;
}

/// A table of a host, put in order.
struct CHostTable
{
    const CStringTableEntry* m_Origin; // tells which table this is
    std::vector<CStringTableEntry> m_Entries;
};

struct CHostTables
{
    std::shared_mutex m_Lock;
    std::vector<CHostTable> m_Tables; // newest last
};

CHostTables& HostTables()
{
    // Never destroyed: texts are still asked for while the process ends.
    static CHostTables& tables = *new CHostTables;
    return tables;
}

const char16_t* FindInHostTables(UINT id)
{
    CHostTables& tables = HostTables();
    const std::shared_lock lock(tables.m_Lock);
    for (auto table = tables.m_Tables.rbegin(); table != tables.m_Tables.rend(); ++table)
    {
        if (const char16_t* text = FindSorted(table->m_Entries, id))
            return text;
    }
    return nullptr;
}

} // namespace

const char16_t* CStringTable::Find(UINT id)
{
    const char16_t* text = FindInHostTables(id);
    return text ? text : FindSorted(OWN_TEXTS, id);
}

void CStringTable::AddTable(std::span<const CStringTableEntry> table)
{
    CHostTable added{table.data(), {table.begin(), table.end()}};
    std::stable_sort(added.m_Entries.begin(), added.m_Entries.end(), ById);

    CHostTables& tables = HostTables();
    const std::unique_lock lock(tables.m_Lock);
    tables.m_Tables.push_back(std::move(added));
}

void CStringTable::RemoveTable(std::span<const CStringTableEntry> table)
{
    CHostTables& tables = HostTables();
    const std::unique_lock lock(tables.m_Lock);
    const auto isThat = [&](const CHostTable& held)
    {
        return held.m_Origin == table.data();
    };
    const auto found = std::find_if(tables.m_Tables.rbegin(), tables.m_Tables.rend(), isThat);
    if (found != tables.m_Tables.rend())
        tables.m_Tables.erase(std::next(found).base());
}

bool AfxLoadString(UINT id, CString& text)
{
    const char16_t* found = CStringTable::Find(id);
    if (!found)
        return false;

    text = found;
    return true;
}

} // namespace utility
