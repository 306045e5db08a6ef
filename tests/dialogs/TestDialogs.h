#pragma once

#include "platform/ui/ResourceTables.h"

namespace utility
{

/// Templates of these tests, known to the tables while it lives.
class CTestDialogs
{
public:
    CTestDialogs() { CResourceTables::AddDialogs(TEXT); }
    ~CTestDialogs() { CResourceTables::RemoveDialogs(TEXT.View()); }
    CTestDialogs(const CTestDialogs&) = delete;
    CTestDialogs& operator=(const CTestDialogs&) = delete;

    static constexpr UINT PARTS_DIALOG = 20001; // a list, what stands around it, two buttons
    static constexpr UINT SPLIT_DIALOG = 20002; // two lists, one above the other
    static constexpr UINT HUGE_DIALOG = 20003;  // larger than any screen

    static constexpr UINT FIRST_LIST = 101;
    static constexpr UINT SECOND_LIST = 102;
    static constexpr UINT NAME_EDIT = 103;
    static constexpr UINT ALL_CHECK = 104;

private:
    static constexpr CDialogText TEXT = uR"(
dialog 20001 "Parts" 200x150 resizable maximisable
  list    101             7,30    120x90    name "Parts"
  text          "&Name:"  9,9     30x10
  edit    103             45,7    148x14
  check   104   "&All"    140,30  50x12
  default 1     "OK"      83,130  50x14
  push    2     "Cancel"  140,130 50x14
end

dialog 20002 "Nets" 200x150 resizable maximisable
  list    101             7,7     180x60    name "Nets"
  list    102             8,70    180x50    name "Pins"
  default 1     "OK"      138,130 50x14
end

dialog 20003 "Map" 4000x3000 resizable
  list    101             7,7     3900x2900 name "Places"
  default 1     "OK"      9,2950  50x14
end
)";
};

} // namespace utility
