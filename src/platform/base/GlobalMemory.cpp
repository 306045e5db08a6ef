#include "platform/base/GlobalMemory.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>

namespace utility
{

struct GlobalBlockRecord
{
    std::size_t m_Size;
    std::unique_ptr<std::byte[]> m_Bytes;
};

HGLOBAL GlobalAlloc(UINT flags, std::size_t size)
{
    std::unique_ptr<std::byte[]> bytes(new (std::nothrow) std::byte[size]);
    if (!bytes)
        return nullptr;

    if (flags & GMEM_ZEROINIT)
        std::memset(bytes.get(), 0, size);
    return new (std::nothrow) GlobalBlockRecord{size, std::move(bytes)};
}

HGLOBAL GlobalReAlloc(HGLOBAL block, std::size_t size, UINT flags)
{
    if (!block)
        return nullptr;

    HGLOBAL changed = GlobalAlloc(flags, size);
    if (!changed)
        return nullptr;

    std::memcpy(changed->m_Bytes.get(), block->m_Bytes.get(), std::min(size, block->m_Size));
    delete block;
    return changed;
}

void* GlobalLock(HGLOBAL block)
{
    return block ? block->m_Bytes.get() : nullptr;
}

BOOL GlobalUnlock(HGLOBAL block)
{
    return block ? TRUE : FALSE;
}

std::size_t GlobalSize(HGLOBAL block)
{
    return block ? block->m_Size : 0;
}

HGLOBAL GlobalFree(HGLOBAL block)
{
    delete block;
    return nullptr;
}

} // namespace utility
