#pragma once

#include "platform/base/Export.h"

#include <span>

namespace utility
{

class CObject;

/// The record of a class: its name, its base and how to make one.
///
/// Records are constant data, there before any code of the program runs, and are compared by
/// address. Finding one by name needs a table that was added first; adding and finding may happen
/// on any thread.
struct UTILITY_CORE_API CRuntimeClass
{
    const char* m_lpszClassName;
    const CRuntimeClass* m_pBaseClass; // null for the root
    CObject* (*m_pfnCreateObject)();   // null if objects cannot be made from the record

    /// A new object owned by the caller; null if the class is not creatable.
    [[nodiscard]] CObject* CreateObject() const;

    /// True for the class itself, too.
    bool IsDerivedFrom(const CRuntimeClass* base) const;

    /// Makes the classes of a table known by name; the table must live as long as the program.
    static void AddTable(std::span<const CRuntimeClass* const> classes);

    /// The class of that name in the tables added so far, the first table first; null if there is
    /// none.
    static const CRuntimeClass* FromName(const char* name);
};

} // namespace utility

/// The record of a class that was declared with one of the macros below.
#define RUNTIME_CLASS(className) (&className::class##className)

/// In the class body: the class has a record, and `GetRuntimeClass` answers it. What follows is
/// public.
#define DECLARE_DYNAMIC(className)                                                                 \
public:                                                                                            \
    static const ::utility::CRuntimeClass class##className;                                        \
    const ::utility::CRuntimeClass* GetRuntimeClass() const override;

/// As above, for a class whose objects can be made from the record by the default constructor.
#define DECLARE_DYNCREATE(className)                                                               \
    DECLARE_DYNAMIC(className)                                                                     \
    static ::utility::CObject* CreateObject();

/// In the source: the record itself.
#define IMPLEMENT_DYNAMIC(className, baseClassName)                                                \
    constinit const ::utility::CRuntimeClass className::class##className                           \
    {                                                                                              \
#className, RUNTIME_CLASS(baseClassName), nullptr                                          \
    };                                                                                             \
    const ::utility::CRuntimeClass* className::GetRuntimeClass() const                             \
    {                                                                                              \
        return RUNTIME_CLASS(className);                                                           \
    }

#define IMPLEMENT_DYNCREATE(className, baseClassName)                                              \
    constinit const ::utility::CRuntimeClass className::class##className                           \
    {                                                                                              \
#className, RUNTIME_CLASS(baseClassName), &className::CreateObject                         \
    };                                                                                             \
    const ::utility::CRuntimeClass* className::GetRuntimeClass() const                             \
    {                                                                                              \
        return RUNTIME_CLASS(className);                                                           \
    }                                                                                              \
    ::utility::CObject* className::CreateObject()                                                  \
    {                                                                                              \
        return new className;                                                                      \
    }
