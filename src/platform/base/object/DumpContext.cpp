#include "platform/base/object/DumpContext.h"

#include "platform/base/Encoding.h"
#include "platform/base/object/Object.h"

#include <cstdio>

namespace utility
{

CDumpContext::~CDumpContext() = default;

CDumpContext& CDumpContext::operator<<(const char16_t* text)
{
    OutputString(text ? CString(text) : CString(u"NULL"));
    return *this;
}

CDumpContext& CDumpContext::operator<<(const CString& text)
{
    OutputString(text);
    return *this;
}

CDumpContext& CDumpContext::operator<<(const char* text)
{
    OutputString(text ? CString(text) : CString(u"NULL"));
    return *this;
}

CDumpContext& CDumpContext::operator<<(int value)
{
    return *this << static_cast<std::int64_t>(value);
}

CDumpContext& CDumpContext::operator<<(unsigned value)
{
    return *this << static_cast<std::uint64_t>(value);
}

CDumpContext& CDumpContext::operator<<(std::int64_t value)
{
    CString text;
    text.Format(u"%I64d", value);
    OutputString(text);
    return *this;
}

CDumpContext& CDumpContext::operator<<(std::uint64_t value)
{
    CString text;
    text.Format(u"%I64u", value);
    OutputString(text);
    return *this;
}

CDumpContext& CDumpContext::operator<<(double value)
{
    CString text;
    text.Format(u"%g", value);
    OutputString(text);
    return *this;
}

CDumpContext& CDumpContext::operator<<(const void* pointer)
{
    CString text;
    text.Format(u"%p", pointer);
    OutputString(text);
    return *this;
}

CDumpContext& CDumpContext::operator<<(const CObject* object)
{
    if (object)
        object->Dump(*this);
    else
        OutputString(u"NULL");
    return *this;
}

CDumpContext& CDumpContext::operator<<(const CObject& object)
{
    object.Dump(*this);
    return *this;
}

void CDumpContext::OutputString(const CString& text)
{
    const std::string bytes = ToUtf8(text.View());
    std::fwrite(bytes.data(), 1, bytes.size(), stderr);
}

void CDumpContext::Flush()
{
    std::fflush(stderr);
}

} // namespace utility
