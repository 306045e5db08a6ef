#pragma once

#include "platform/base/Export.h"
#include "platform/base/object/RuntimeClass.h"

namespace utility
{

class CArchive;
class CDumpContext;

/// Root of the framework's classes: knows its class at run time, may be archived, describes itself.
///
/// Not copied; a derived class that wants copies writes its own.
class UTILITY_CORE_API CObject
{
public:
    static const CRuntimeClass classCObject;

    virtual ~CObject();
    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;

    virtual const CRuntimeClass* GetRuntimeClass() const;
    bool IsKindOf(const CRuntimeClass* base) const;

    virtual bool IsSerializable() const;
    /// Writes or reads the object, by the archive's direction; here nothing.
    virtual void Serialize(CArchive& archive);

    /// Asserts in debug builds that the object is sound; here nothing.
    virtual void AssertValid() const;
    /// Writes the class name and the address; derived classes add their members.
    virtual void Dump(CDumpContext& context) const;

protected:
    CObject() = default;
};

} // namespace utility
