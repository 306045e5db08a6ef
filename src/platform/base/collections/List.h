#pragma once

#include "platform/base/collections/BoundsCheck.h"
#include "platform/base/collections/Position.h"

#include <utility>

namespace utility
{

/// A doubly linked list whose elements are reached by position.
///
/// Positions and references stay good until their own element is removed. A null position where an
/// element is needed, or taking from an empty list, raises `CInvalidArgException`. A value: copies
/// are deep.
template <typename T, typename A = const T&>
class CList
{
public:
    /// The block size is taken and ignored.
    explicit CList(int /*blockSize*/ = 10) {}
    CList(const CList& other) { AddTail(other); }
    CList(CList&& other) noexcept { Swap(other); }
    ~CList() { RemoveAll(); }
    CList& operator=(CList other) noexcept
    {
        Swap(other);
        return *this;
    }

    int GetCount() const { return m_Count; }
    int GetSize() const { return m_Count; }
    bool IsEmpty() const { return m_Count == 0; }

    T& GetHead() { return Checked(m_Head)->m_Item; }
    const T& GetHead() const { return Checked(m_Head)->m_Item; }
    T& GetTail() { return Checked(m_Tail)->m_Item; }
    const T& GetTail() const { return Checked(m_Tail)->m_Item; }

    T RemoveHead() { return Take(m_Head); }
    T RemoveTail() { return Take(m_Tail); }
    POSITION AddHead(A element) { return Link(element, m_Head); }
    POSITION AddTail(A element) { return Link(element, nullptr); }
    /// The list's elements keep their order; `source` may be this list.
    void AddHead(const CList& source);
    void AddTail(const CList& source);
    void RemoveAll();

    // Walking: the position moves on before the call ends, and is null behind the last (first)
    // element
    POSITION GetHeadPosition() const { return ToPosition(m_Head); }
    POSITION GetTailPosition() const { return ToPosition(m_Tail); }
    T& GetNext(POSITION& position) { return Step(position, &CNode::m_Next)->m_Item; }
    const T& GetNext(POSITION& position) const { return Step(position, &CNode::m_Next)->m_Item; }
    T& GetPrev(POSITION& position) { return Step(position, &CNode::m_Prev)->m_Item; }
    const T& GetPrev(POSITION& position) const { return Step(position, &CNode::m_Prev)->m_Item; }

    T& GetAt(POSITION position) { return Node(position)->m_Item; }
    const T& GetAt(POSITION position) const { return Node(position)->m_Item; }
    void SetAt(POSITION position, A element) { Node(position)->m_Item = element; }
    void RemoveAt(POSITION position) { Unlink(Node(position)); }
    /// A null position inserts at the head (before) or the tail (after).
    POSITION InsertBefore(POSITION position, A element);
    POSITION InsertAfter(POSITION position, A element);

    /// The first equal element behind `after` (from the head if null); null if there is none.
    POSITION Find(A element, POSITION after = nullptr) const;
    /// Null if the index is out of bounds.
    POSITION FindIndex(int index) const;

private:
    struct CNode
    {
        T m_Item;
        CNode* m_Prev;
        CNode* m_Next;
    };

    static CNode* Checked(CNode* node)
    {
        CheckBounds(node != nullptr);
        return node;
    }
    static CNode* Node(POSITION position) { return Checked(reinterpret_cast<CNode*>(position)); }
    static POSITION ToPosition(CNode* node) { return reinterpret_cast<POSITION>(node); }
    static CNode* Step(POSITION& position, CNode* CNode::*direction)
    {
        CNode* node = Node(position);
        position = ToPosition(node->*direction);
        return node;
    }

    POSITION Link(A element, CNode* next);
    void Unlink(CNode* node);
    T Take(CNode* node);
    void Swap(CList& other) noexcept
    {
        std::swap(m_Head, other.m_Head);
        std::swap(m_Tail, other.m_Tail);
        std::swap(m_Count, other.m_Count);
    }

    CNode* m_Head = nullptr;
    CNode* m_Tail = nullptr;
    int m_Count = 0;
};

template <typename T, typename A>
POSITION CList<T, A>::Link(A element, CNode* next)
{
    CNode* prev = next ? next->m_Prev : m_Tail;
    CNode* node = new CNode{element, prev, next};
    (prev ? prev->m_Next : m_Head) = node;
    (next ? next->m_Prev : m_Tail) = node;
    ++m_Count;
    return ToPosition(node);
}

template <typename T, typename A>
void CList<T, A>::Unlink(CNode* node)
{
    (node->m_Prev ? node->m_Prev->m_Next : m_Head) = node->m_Next;
    (node->m_Next ? node->m_Next->m_Prev : m_Tail) = node->m_Prev;
    --m_Count;
    delete node;
}

template <typename T, typename A>
T CList<T, A>::Take(CNode* node)
{
    T item = std::move(Checked(node)->m_Item);
    Unlink(node);
    return item;
}

template <typename T, typename A>
void CList<T, A>::AddHead(const CList& source)
{
    CNode* const front = m_Head;
    CNode* node = source.m_Head;
    for (int count = source.m_Count; count > 0; --count, node = node->m_Next)
        Link(node->m_Item, front);
}

template <typename T, typename A>
void CList<T, A>::AddTail(const CList& source)
{
    CNode* node = source.m_Head;
    for (int count = source.m_Count; count > 0; --count, node = node->m_Next)
        Link(node->m_Item, nullptr);
}

template <typename T, typename A>
void CList<T, A>::RemoveAll()
{
    while (m_Head)
        Unlink(m_Head);
}

template <typename T, typename A>
POSITION CList<T, A>::InsertBefore(POSITION position, A element)
{
    return position ? Link(element, Node(position)) : AddHead(element);
}

template <typename T, typename A>
POSITION CList<T, A>::InsertAfter(POSITION position, A element)
{
    return position ? Link(element, Node(position)->m_Next) : AddTail(element);
}

template <typename T, typename A>
POSITION CList<T, A>::Find(A element, POSITION after) const
{
    CNode* node = after ? Node(after)->m_Next : m_Head;
    while (node && !(node->m_Item == element))
        node = node->m_Next;
    return ToPosition(node);
}

template <typename T, typename A>
POSITION CList<T, A>::FindIndex(int index) const
{
    if (index < 0 || index >= m_Count)
        return nullptr;

    CNode* node = m_Head;
    while (index-- > 0)
        node = node->m_Next;
    return ToPosition(node);
}

} // namespace utility
