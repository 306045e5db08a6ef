#pragma once

#include <cstddef>
#include <memory>
#include <vector>

namespace utility
{

/// A growing array whose elements never move: a million rows grow without copying or spare room.
template <typename TElement>
class CPagedArray
{
public:
    std::size_t GetSize() const { return m_Size; }
    TElement& operator[](std::size_t index)
    {
        return m_Pages[index / PAGE_SIZE][index % PAGE_SIZE];
    }
    const TElement& operator[](std::size_t index) const
    {
        return m_Pages[index / PAGE_SIZE][index % PAGE_SIZE];
    }

    void Add(const TElement& element)
    {
        if (m_Size == m_Pages.size() * PAGE_SIZE)
            m_Pages.push_back(std::make_unique_for_overwrite<TElement[]>(PAGE_SIZE));
        (*this)[m_Size++] = element;
    }

private:
    static constexpr std::size_t PAGE_SIZE = 4096;

    std::vector<std::unique_ptr<TElement[]>> m_Pages;
    std::size_t m_Size = 0;
};

} // namespace utility
