#pragma once

#include "platform/base/String.h"

#include <string>

namespace utility
{

/// The bits of an encodings set; see `CXMLSettings`.
enum EXMLEncoding : int
{
    XML_ENCODING_UTF8 = 1,
    XML_ENCODING_NAMED = 2,
    XML_ENCODING_NUMERIC = 4,
    XML_ENCODING_HEADER = 8,
    XML_ENCODING_ATTRIBUTES = 16
};

/// Appends the text as a file holds it under these encodings.
void AppendEncodedXML(std::u16string& out, int encodings, const CString& text);

/// The text that a file's piece stands for. A zero unit ends it, encodings 0 excepted.
CString DecodeXML(int encodings, std::u16string_view text);

} // namespace utility
