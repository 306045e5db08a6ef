#include "platform/base/object/Object.h"

#include "platform/base/object/DumpContext.h"

namespace utility
{

constinit const CRuntimeClass CObject::classCObject{"CObject", nullptr, nullptr};

CObject::~CObject() = default;

const CRuntimeClass* CObject::GetRuntimeClass() const
{
    return RUNTIME_CLASS(CObject);
}

bool CObject::IsKindOf(const CRuntimeClass* base) const
{
    return GetRuntimeClass()->IsDerivedFrom(base);
}

bool CObject::IsSerializable() const
{
    return false;
}

void CObject::Serialize(CArchive&) {}

void CObject::AssertValid() const {}

void CObject::Dump(CDumpContext& context) const
{
    context << u"a " << GetRuntimeClass()->m_lpszClassName << u" at "
            << static_cast<const void*>(this) << u"\n";
}

} // namespace utility
