#pragma once

#include "platform/base/String.h"

#include <vector>

namespace utility
{

class CCommandCall;
class CXMLSettings;

/// The path of a file argument in classic form.
CString XmlFileArgument(const CCommandCall& call, std::size_t index);

/// Sets encodings and duplicates as the options say.
void PrepareXml(const CCommandCall& call, CXMLSettings& settings);

/// Tells that something is wrong with a file; always false.
bool FailOnXmlFile(const CString& path, const CString& reason);

/// The lines as the library's reader gets them; false if the file cannot be read.
bool ReadXmlLines(const CString& path, std::vector<CString>& lines);

} // namespace utility
