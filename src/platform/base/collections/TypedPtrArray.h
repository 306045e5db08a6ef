#pragma once

namespace utility
{

/// A pointer array `B` (`CPtrArray` or `CObArray`) seen as an array of the pointer type `T`.
template <typename B, typename T>
class CTypedPtrArray : public B
{
public:
    T GetAt(int index) const { return static_cast<T>(B::GetAt(index)); }
    T operator[](int index) const { return static_cast<T>(B::GetAt(index)); }
    void SetAt(int index, T element) { B::SetAt(index, element); }
    void SetAtGrow(int index, T element) { B::SetAtGrow(index, element); }
    int Add(T element) { return B::Add(element); }
    int Append(const CTypedPtrArray& source) { return B::Append(source); }
    void Copy(const CTypedPtrArray& source) { B::Copy(source); }
    void InsertAt(int index, T element, int count = 1) { B::InsertAt(index, element, count); }
    void InsertAt(int index, const CTypedPtrArray& source) { B::InsertAt(index, source); }
};

} // namespace utility
