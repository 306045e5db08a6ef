#pragma once

#include "platform/base/Types.h"
#include "platform/ui/DialogText.h"

namespace utility
{

// The dialog that the tests of dialogs show: two fields, a button, two choices, OK and Cancel.

constexpr UINT DIALOG_ID = 11001;
constexpr int NAME_EDIT = 1001;
constexpr int COUNT_EDIT = 1002;
constexpr int FIND_BUTTON = 1003;
constexpr int FIRST_CHOICE = 1004;
constexpr int SECOND_CHOICE = 1005;

inline constexpr CDialogText DIALOGS = uR"(
dialog 11001 "Find a part" 220x100
    text           "&Name:"      7,9     40x8
    edit     1001                50,7    160x12
    edit     1002                50,27   160x12   name "Count"
    push     1003  "&Search"     7,45    50x14    group
    radio    1004  "&First"      7,60    50x10    group
    radio    1005  "S&econd"     60,60   50x10
    default  1     "OK"          110,80  50x14    group
    push     2     "Cancel"      163,80  50x14
end
)";

} // namespace utility
