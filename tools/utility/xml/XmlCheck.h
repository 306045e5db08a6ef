#pragma once

#include "platform/base/String.h"

#include <vector>

namespace utility
{

/// A place where a file of XML settings does not say what it seems to; line and column from 1.
struct CXmlFault
{
    int m_Line = 1;
    int m_Column = 1;
    CString m_Reason;
};

/// What the library's reader, which stays silent, makes nothing of.
struct CXmlLook
{
    std::vector<CXmlFault> m_Faults; // in the order of the file, elements left open last
    bool m_HasComments = false;      // a save would drop them
    int m_Elements = 0;
};

/// Looks through the lines of a file by the rules of the library's reader.
CXmlLook LookThroughXml(const std::vector<CString>& lines);

/// "file:line:column: reason"
CString DescribeXmlFault(const CString& path, const CXmlFault& fault);

} // namespace utility
