#pragma once

#include <string>
#include <vector>

namespace utility
{

/// An archive that somebody made to harm, or that the world has harmed, and what must come of it.
struct CHostileZip
{
    std::string m_Name;
    std::string m_Bytes;
    std::string m_Words; // of "zip extract", behind the archive's or the entry's name
    std::vector<std::string> m_Unpacked = {}; // all that is there afterwards, in byte order
};

/// The whole set, made anew at each call.
std::vector<CHostileZip> HostileZips();

} // namespace utility
