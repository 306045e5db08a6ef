#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"
#include "platform/ui/DialogText.h"
#include "platform/ui/PixelPicture.h"

#include <span>
#include <string_view>

namespace utility
{

/// All dialog templates and pictures of the process: the hosts' tables, the newest first, then the
/// library's own pictures.
///
/// Hosts number from 11000; a number of the library in a host's table takes the place of the
/// library's. An id that no table holds leaves 1814 as the last system code. A table is told by the
/// text or span that it was added from. User-interface thread only.
class UTILITY_UI_API CResourceTables
{
public:
    CResourceTables() = delete;

    // The text of one dialog, for CDialogTemplate::Load; empty if there is none. Names are told
    // apart by their letters, not by case.
    static std::u16string_view FindDialog(UINT id);
    static std::u16string_view FindDialog(const char16_t* name);

    /// A text in a source, which the compiler has checked.
    static void AddDialogs(const CDialogText& text);
    /// A text from elsewhere, which is copied. False, with nothing added, if it has a fault, which
    /// DescribeFault words.
    [[nodiscard]] static bool AddDialogs(std::u16string_view text, CDialogTextFault& fault);
    /// Forgets the newest table of that text; nothing if there is none.
    static void RemoveDialogs(std::u16string_view text);

    /// Null if there is none.
    static const CPixelPicture* FindBitmap(UINT id);
    /// Any order; of an id that stands twice the first counts. The pictures are not copied.
    static void AddBitmaps(std::span<const CPixelPicture> pictures);
    /// Forgets the newest table of those pictures; nothing if there is none.
    static void RemoveBitmaps(std::span<const CPixelPicture> pictures);
};

} // namespace utility
