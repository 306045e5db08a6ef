#include "platform/base/StringBuffer.h"

#include <new>

namespace utility
{

constinit CStringBuffer::CEmptyBlock CStringBuffer::m_Empty{CStringBuffer(-1, 0), {0}};

char16_t* CStringBuffer::Allocate(int capacity)
{
    if (capacity < 0)
        throw std::bad_alloc();
    const std::size_t units = static_cast<std::size_t>(capacity) + 1;
    void* memory = ::operator new(sizeof(CStringBuffer) + units * sizeof(char16_t));
    auto* head = new (memory) CStringBuffer(1, capacity);
    head->SetLength(0);
    return reinterpret_cast<char16_t*>(head + 1);
}

void CStringBuffer::Free() noexcept
{
    ::operator delete(this);
}

} // namespace utility
