#pragma once

#include "platform/base/String.h"
#include "platform/base/Types.h"

#include <QTreeWidget>

namespace utility
{

/// An item of a tree, with what the widget does not keep.
class CTreeItem final : public QTreeWidgetItem
{
public:
    HTREEITEM m_Handle = nullptr;
    CString m_Text;
    LPARAM m_Data = 0;
    int m_Image = -1; // -1: none
    int m_SelectedImage = -1;
    int m_Mark = 0; // the picture of the mark, from 1 up; 0: none
};

} // namespace utility
