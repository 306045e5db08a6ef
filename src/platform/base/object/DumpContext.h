#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"

namespace utility
{

class CObject;

/// Where objects describe themselves, for eyes only. Here it goes to the standard error stream.
///
/// A class that sends it elsewhere overrides `OutputString`.
class UTILITY_CORE_API CDumpContext
{
public:
    CDumpContext() = default;
    virtual ~CDumpContext();
    CDumpContext(const CDumpContext&) = delete;
    CDumpContext& operator=(const CDumpContext&) = delete;

    CDumpContext& operator<<(const char16_t* text);
    CDumpContext& operator<<(const CString& text);
    /// Bytes of the default page.
    CDumpContext& operator<<(const char* text);
    CDumpContext& operator<<(int value);
    CDumpContext& operator<<(unsigned value);
    CDumpContext& operator<<(std::int64_t value);
    CDumpContext& operator<<(std::uint64_t value);
    CDumpContext& operator<<(double value);
    CDumpContext& operator<<(const void* pointer);
    /// Lets the object describe itself; "NULL" for none.
    CDumpContext& operator<<(const CObject* object);
    CDumpContext& operator<<(const CObject& object);

    virtual void OutputString(const CString& text);
    virtual void Flush();
};

} // namespace utility
