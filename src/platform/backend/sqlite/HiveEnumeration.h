#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace utility
{

enum class EHiveWalk
{
    Keys,  // in the order of their paths
    Values // in the order of their row numbers
};

/// A place in a listing: exactly `m_Count` rows stand at or before the mark.
struct CHiveMark
{
    std::string m_Path;      // of a sub-key
    std::int64_t m_Row = -1; // of a value
    std::int64_t m_Count = 0;
};

/// How to reach an index: the first row after the mark, or at or before it when going back, less
/// `m_Skip`.
struct CHiveStep
{
    CHiveMark m_From;
    bool m_Back = false;
    std::int64_t m_Skip = 0;
};

/// Remembers where the last listings by index of one connection stand, so that the next index costs
/// one step.
///
/// Own changes move the marks along; a change by any other connection (the database's data version
/// tells) drops all.
class CHiveEnumeration
{
public:
    /// Drops all marks if the data is of another version than they.
    void CheckVersion(std::int64_t dataVersion);

    CHiveStep StepTo(EHiveWalk walk, std::string_view key, std::int64_t index) const;
    void Remember(EHiveWalk walk, std::string_view key, CHiveMark mark);

    // Own changes; a new value needs no call, since it stands behind all others
    void KeyMade(std::string_view path);
    void KeyDeleted(std::string_view path);
    void ValueDeleted(std::string_view key, std::int64_t row);
    void ForgetAll() { m_Walks.clear(); }

private:
    struct CWalk
    {
        EHiveWalk m_Kind;
        std::string m_Key;
        CHiveMark m_Mark;
    };

    const CWalk* Find(EHiveWalk walk, std::string_view key) const;
    CHiveMark* FindMark(EHiveWalk walk, std::string_view key);

    std::vector<CWalk> m_Walks; // the latest last
    std::int64_t m_Version = -1;
};

} // namespace utility
