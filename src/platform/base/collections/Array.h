#pragma once

#include "platform/base/collections/BoundsCheck.h"

#include <vector>

namespace utility
{

/// A growable array by index.
///
/// An index or count out of bounds raises `CInvalidArgException`. New elements that no call gave a
/// value are zero or default-made. References and `GetData` are good until the size changes. A
/// value: copies are deep.
template <typename T, typename A = const T&>
class CArray
{
public:
    int GetSize() const { return static_cast<int>(m_Items.size()); }
    int GetCount() const { return GetSize(); }
    /// -1 when empty.
    int GetUpperBound() const { return GetSize() - 1; }
    bool IsEmpty() const { return m_Items.empty(); }

    /// `growBy` is taken and ignored.
    void SetSize(int size, int growBy = -1);
    void RemoveAll() { m_Items.clear(); }

    const T& GetAt(int index) const { return m_Items[Checked(index)]; }
    T& GetAt(int index) { return m_Items[Checked(index)]; }
    void SetAt(int index, A element) { m_Items[Checked(index)] = element; }
    T& ElementAt(int index) { return m_Items[Checked(index)]; }
    const T& ElementAt(int index) const { return m_Items[Checked(index)]; }
    T& operator[](int index) { return m_Items[Checked(index)]; }
    const T& operator[](int index) const { return m_Items[Checked(index)]; }

    /// Null when empty.
    T* GetData() { return m_Items.empty() ? nullptr : m_Items.data(); }
    const T* GetData() const { return m_Items.empty() ? nullptr : m_Items.data(); }

    /// Grows as far as needed.
    void SetAtGrow(int index, A element);
    /// The index of the new element.
    int Add(A element);
    /// The index of the first new element; appending an array to itself doubles it.
    int Append(const CArray& source);
    void Copy(const CArray& source) { m_Items = source.m_Items; }

    /// Elements from `index` on move up; an index behind the end grows the array first.
    void InsertAt(int index, A element, int count = 1);
    void InsertAt(int index, const CArray& source);
    void RemoveAt(int index, int count = 1);

    // For range-based loops
    auto begin() { return m_Items.begin(); }
    auto end() { return m_Items.end(); }
    auto begin() const { return m_Items.begin(); }
    auto end() const { return m_Items.end(); }

private:
    std::size_t Checked(int index) const
    {
        CheckBounds(index >= 0 && index < GetSize());
        return static_cast<std::size_t>(index);
    }

    std::vector<T> m_Items;
};

template <typename T, typename A>
void CArray<T, A>::SetSize(int size, int)
{
    CheckBounds(size >= 0);
    m_Items.resize(static_cast<std::size_t>(size));
}

template <typename T, typename A>
void CArray<T, A>::SetAtGrow(int index, A element)
{
    CheckBounds(index >= 0);
    T value(element); // the element may stand in this array
    if (index >= GetSize())
        SetSize(index + 1);
    m_Items[static_cast<std::size_t>(index)] = std::move(value);
}

template <typename T, typename A>
int CArray<T, A>::Add(A element)
{
    m_Items.push_back(element);
    return GetUpperBound();
}

template <typename T, typename A>
int CArray<T, A>::Append(const CArray& source)
{
    const int first = GetSize();
    InsertAt(first, source);
    return first;
}

template <typename T, typename A>
void CArray<T, A>::InsertAt(int index, A element, int count)
{
    CheckBounds(index >= 0 && count > 0);
    const T value(element);
    if (index > GetSize())
        SetSize(index);
    m_Items.insert(m_Items.begin() + index, static_cast<std::size_t>(count), value);
}

template <typename T, typename A>
void CArray<T, A>::InsertAt(int index, const CArray& source)
{
    CheckBounds(index >= 0);
    const std::vector<T> items = source.m_Items;
    if (index > GetSize())
        SetSize(index);
    m_Items.insert(m_Items.begin() + index, items.begin(), items.end());
}

template <typename T, typename A>
void CArray<T, A>::RemoveAt(int index, int count)
{
    CheckBounds(index >= 0 && count >= 0 && index <= GetSize() - count);
    m_Items.erase(m_Items.begin() + index, m_Items.begin() + index + count);
}

} // namespace utility
