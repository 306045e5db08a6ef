#pragma once

#include "platform/backend/posix/file/Descriptor.h"
#include "platform/base/Types.h"

#include <string>

namespace utility
{

constexpr UINT FILE_ACCESS_MASK = 0x3; // of CFile's modes

/// Opens what stands on disk under a name as CFile's modes say, share bits included; 0 or the code
/// why not.
DWORD OpenDescriptor(const std::string& name, UINT flags, CDescriptor& result);

} // namespace utility
