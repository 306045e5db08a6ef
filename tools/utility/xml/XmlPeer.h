#pragma once

#include "utility/xml/XmlCheck.h"

namespace utility
{

/// Each construct that a general XML reader reads otherwise than the library's own, in the order of
/// the file and up to the first that it refuses, which is the last then.
///
/// Compared are elements with their names and attributes, and texts under named entities. Where the
/// two go apart, what follows is still compared place by place.
std::vector<CXmlFault> CompareWithGeneralReader(const std::vector<CString>& lines);

} // namespace utility
