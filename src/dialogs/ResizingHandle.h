#pragma once

#include "platform/base/Export.h"
#include "platform/base/Types.h"

namespace utility
{

class CPictureControl;
class CWnd;

/// Ids of the handle, and of its picture, in a plain and in a styled dialog.
constexpr UINT UNSTYLED_HANDLE_ID = 10686;
constexpr UINT STYLED_HANDLE_ID = 10765;

/// Makes the picture anew that shows where a window can be pulled larger: in the bottom right
/// corner of its client area.
UTILITY_UI_API void InsertResizingHandle(CWnd& window, CPictureControl& picture, bool isStyled);

/// Puts the handle back into the corner after a change of size; nothing without a handle.
UTILITY_UI_API void PlaceResizingHandle(const CWnd& window, CPictureControl& picture);

} // namespace utility
