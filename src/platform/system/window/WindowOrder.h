#pragma once

#include "platform/base/Export.h"
#include "platform/base/Rect.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

#include <string>
#include <string_view>

namespace utility
{

/// What one program may ask of another one's window.
enum class EWindowOrder
{
    Top,
    Maximise,
    Close,
    Move,
    Message, // a registered one
    Event    // of the program, not of a window
};

constexpr int ORDER_NAME_LIMIT = 255;     // units of a message's or an event's name
constexpr std::size_t ORDER_LIMIT = 1024; // bytes of an order

/// An order as it travels: one line of text, described in docs/formats/live-windows.md.
///
///     utility-order 1 top 3
///     utility-order 1 move 3 0 0 640 480
///     utility-order 1 message 3 1 -2 IPCOMMS_WMSG
///     utility-order 1 event 0 1 -2 Document.Saved
struct CWindowOrder
{
    EWindowOrder m_Kind = EWindowOrder::Top;
    DWORD m_Window = 0; // its number in the process that it goes to
    CRect m_Place = {}; // for Move
    WPARAM m_WParam = 0;
    LPARAM m_LParam = 0;
    CString m_Name = {}; // of a message or an event: numbers differ from process to process

    bool operator==(const CWindowOrder&) const = default;
};

/// Empty for a name that is none or too long to travel.
UTILITY_CORE_API std::string FormatWindowOrder(const CWindowOrder& order);

/// False, and `order` keeps its preset, for what is no order.
UTILITY_CORE_API bool ParseWindowOrder(std::string_view text, CWindowOrder& order);

} // namespace utility
