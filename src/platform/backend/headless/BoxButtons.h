#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"
#include "platform/system/window/UserInterface.h"

#include <span>
#include <string_view>

namespace utility
{

/// A button of a box: its answer and its word.
struct CBoxButton
{
    int m_Answer;
    std::u16string_view m_Word;
};

/// The buttons that a box of this style offers, in their order; an unknown style offers OK. Boxes
/// on a screen ask, too.
UTILITY_CORE_API std::span<const CBoxButton> GetBoxButtons(UINT type);

/// The answer where nobody can be asked: what changes least.
const CBoxButton& AnswerByPolicy(UINT type, EBoxPolicy policy);

} // namespace utility
