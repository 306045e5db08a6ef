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
        if (m_Size % PAGE_SIZE == 0)
            AddPage();
        m_LastPage[m_Size++ % PAGE_SIZE] = element;
    }

private:
    static constexpr std::size_t PAGE_SIZE = 4096;

    [[gnu::noinline]] void AddPage() // rare, so that Add stays short where it is called
    {
        m_Pages.push_back(std::make_unique_for_overwrite<TElement[]>(PAGE_SIZE));
        m_LastPage = m_Pages.back().get();
    }

    std::vector<std::unique_ptr<TElement[]>> m_Pages;
    TElement* m_LastPage = nullptr;
    std::size_t m_Size = 0;
};

} // namespace utility
