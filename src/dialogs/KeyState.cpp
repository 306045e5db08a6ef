#include "dialogs/KeyState.h"

#include "platform/ui/InputState.h"

#include <algorithm>

namespace utility
{

bool IsKeyDownExclusively(UINT key, std::initializer_list<UINT> others)
{
    // A caller may hand the same set of keys for each of them.
    const auto isOtherDown = [key](UINT other)
    {
        return other != key && IsKeyDown(other);
    };
    return IsKeyDown(key) && std::ranges::none_of(others, isOtherDown);
}

} // namespace utility
