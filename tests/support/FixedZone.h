#pragma once

#include <string>

namespace utility
{

/// The process's time zone while it lives, as in "Europe/Berlin".
class CFixedZone
{
public:
    explicit CFixedZone(const char* zone);
    ~CFixedZone();
    CFixedZone(const CFixedZone&) = delete;
    CFixedZone& operator=(const CFixedZone&) = delete;

private:
    std::string m_Previous;
};

} // namespace utility
