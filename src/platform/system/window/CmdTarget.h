#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"
#include "platform/base/object/Object.h"

#include <span>

namespace utility
{

class CCmdTarget;

/// One row of a message map: what it answers, and the member function that does.
struct CMessageRow
{
    UINT m_Message = 0; // of a window; WM_COMMAND and WM_NOTIFY for commands and notes
    UINT m_Code = 0;    // of a command or a note
    UINT m_FirstId = 0; // of a command or of the control that sends a note
    UINT m_LastId = 0;
    LRESULT (*m_Handler)(CCmdTarget& target, WPARAM wParam, LPARAM lParam) = nullptr;
};

/// The rows of a class, and those of its base.
struct CMessageMap
{
    const CMessageMap* m_Base = nullptr;
    std::span<const CMessageRow> m_Rows;
};

/// Answers commands and messages by a table of member functions.
///
/// A derived class shows its table by `GetMessageMap`; its rows come before those of the base:
///
///     const CMessageMap* CPartWnd::GetMessageMap() const
///     {
///         static constexpr CMessageRow ROWS[] = {
///             MessageRow<&CPartWnd::OnShowPart>(SHOW_PART_MESSAGE),
///             CommandRow<&CPartWnd::OnCopy>(IDC_COPY)};
///         static const CMessageMap MAP{CWnd::GetMessageMap(), ROWS};
///         return &MAP;
///     }
class UTILITY_CORE_API CCmdTarget : public CObject
{
    DECLARE_DYNAMIC(CCmdTarget)

    /// Runs the handler of a command; false if there is none. With `handler` it is only looked up
    /// and told there.
    virtual bool OnCmdMsg(UINT id, UINT code, void* extra, const CMessageRow** handler);

    virtual const CMessageMap* GetMessageMap() const;

protected:
    /// The first row that answers a message, or null. Ids count for commands and notes only.
    const CMessageRow* FindRow(UINT message, UINT code, UINT id) const;
};

/// The class that a member function belongs to.
template <typename>
struct TMemberOf;
template <typename TClass, typename TResult, typename... TArguments>
struct TMemberOf<TResult (TClass::*)(TArguments...)>
{
    using Class = TClass;
};

/// A row for a window message or a registered message; the handler is `LRESULT (WPARAM, LPARAM)`.
template <auto THandler>
constexpr CMessageRow MessageRow(UINT message)
{
    using Class = typename TMemberOf<decltype(THandler)>::Class;
    return {message, 0, 0, 0,
            [](CCmdTarget& target, WPARAM wParam, LPARAM lParam) -> LRESULT
            {
                return (static_cast<Class&>(target).*THandler)(wParam, lParam);
            }};
}

/// A row for a command; the handler is `void ()`.
template <auto THandler>
constexpr CMessageRow CommandRow(UINT id, UINT code = 0)
{
    using Class = typename TMemberOf<decltype(THandler)>::Class;
    constexpr UINT COMMAND_MESSAGE = 0x0111; // WM_COMMAND
    return {COMMAND_MESSAGE, code, id, id,
            [](CCmdTarget& target, WPARAM, LPARAM) -> LRESULT
            {
                (static_cast<Class&>(target).*THandler)();
                return 1;
            }};
}

} // namespace utility
