#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"
#include "platform/base/object/Object.h"

namespace utility
{

/// A block of bytes of any length; owns it.
///
/// `m_hData` is a block of the GlobalAlloc family, which may be larger than the `m_dwDataLength`
/// bytes in use, or null.
class UTILITY_CORE_API CLongBinary : public CObject
{
    DECLARE_DYNAMIC(CLongBinary)

public:
    CLongBinary() = default;
    ~CLongBinary() override;
    CLongBinary(const CLongBinary&) = delete;
    CLongBinary& operator=(const CLongBinary&) = delete;

    HGLOBAL m_hData = nullptr;
    DWORD m_dwDataLength = 0;
};

} // namespace utility
