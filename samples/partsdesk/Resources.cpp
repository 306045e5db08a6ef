#include "Resources.h"

#include "platform/ui/ResourceTables.h"

#include "Ids.h"

using namespace utility;

namespace partsdesk
{

namespace
{

// The first control of a dialog that can be resized takes the growth; what stands to the right of
// it or below moves, but for a control with its left side. Numbers are those of Ids.h.
constexpr CDialogText DIALOGS = uR"dialogs(
dialog 11001 "Parts Desk" 380x230 resizable minimisable maximisable
    list     11101                        6,38    302x168   name "Parts" columns
    text            "&Table:"             6,8     28x8
    droplist 11102                        36,6    90x12
    text            "&Filter:"            134,8   26x8
    edit     11103                        162,6   146x12
    text     11104  ""                    6,24    302x10    shorten
    default  11201  "&Show"               316,6   58x14
    push     11210  "&Menu"               316,24  58x14
    push     2      "Close"               316,192 58x14
    text            "F1 about, F5 read again, Ctrl+F filter"  8,214 300x8
end

dialog 11002 "Part" 280x170 resizable
    list     11105                        6,6     200x130   name "Values of the part" columns
    text     11106  ""                    8,144   198x18
    default  2      "Close"               214,6   60x14
    push     11211  "&Copy"               214,24  60x14
end

dialog 11003 "Settings" 224x150
    frame           "Parts"               6,6     212x46
    text            "&Columns in the list:"    14,20  90x8
    edit     11107                        112,18  40x12     group
    text            "&Idle step, ms:"     14,36   90x8
    edit     11108                        112,34  40x12
    frame           "Boards"              6,58    212x42
    text            "&Pitch of pins:"     14,72   90x8
    edit     11109                        112,70  60x12     group
    text     11110  ""                    14,86   196x8
    check    11111  "Keep a &log (from the next start)"  6,108  212x10  group
    default  1      "OK"                  98,130  58x14     group
    push     2      "Cancel"              160,130 58x14
end

dialog 11004 "About Parts Desk" 200x84
    picture                               8,8     32x32     bitmap 11001
    text     11113  ""                    50,8    142x40
    default  2      "Close"               71,62   58x14
end

dialog 11005 "Log" 320x200 resizable
    edit     11112                        6,6     308x166   name "Lines of the log" multiline readonly vscroll
    push     11205  "&Read again"         8,178   58x14
    default  2      "Close"               70,178  58x14
end

dialog 11006 "Gallery of Controls" 392x240
    frame           "Buttons"             6,6     118x92
    check    11320  "A &check mark"       14,18   102x10    group
    check3   11321  "&Three states"       14,30   102x10
    radio    11322  "&One of these"       14,44   102x10    group
    radio    11323  "or t&his one"        14,56   102x10
    push     11324  "&Push"               14,74   48x14     group
    push     11325  "Off"                 66,74   48x14     disabled

    frame           "Fields"              6,102   118x92
    text            "&Package:"           14,116  40x8
    combo    11304                        56,114  60x12
    text            "&Number:"            14,134  40x8
    edit     11305                        56,132  46x12     digits
    spin     11306                        104,132 12x12
    text            "Co&lour:"            14,152  40x8
    window   11302  "ColourWell"          56,150  60x14     tabstop
    text     11303  ""                    14,172  102x8

    text            "T&ree:"              130,6   40x8
    tree     11301                        130,16  80x82     checks
    text     11308  ""                    130,104 80x90     hidden
    text     11309  ""                    216,6   80x188    hidden
    text     11310  ""                    302,6   84x188    hidden

    text     11307  ""                    6,204   290x8
    default  2      "Close"               328,220 58x14
end
)dialogs";

constexpr COLORREF BOARD = RGB(0, 104, 72);
constexpr COLORREF COPPER = RGB(216, 160, 64);
constexpr COLORREF BODY = RGB(48, 48, 56);
constexpr COLORREF PIN_ONE = RGB(232, 232, 232);

constexpr CPixelPicture PICTURES[] = {
    CPixelPicture(BITMAP_DESK, {{'g', BOARD}, {'c', COPPER}, {'b', BODY}, {'o', PIN_ONE}}, R"(
gggggggggggggggggggggggggggggggg
gggggggggggggggggggggggggggggggg
ggccggggggggggggggggggggggggccgg
ggccggggggggggggggggggggggggccgg
gggccggggggggggggggggggggggccggg
ggggcccccccccggggggcccccccccgggg
gggggggggggcccggggcccggggggggggg
ggggggggggggcccggcccgggggggggggg
ggggggggggggbbbbbbbbgggggggggggg
gggggggccccbbbbbbbbbbccccggggggg
ggggggcccccbbobbbbbbbcccccgggggg
ggggggcggggbbbbbbbbbbggggcgggggg
ggggggcggggbbbbbbbbbbggggcgggggg
ggggggcccccbbbbbbbbbbcccccgggggg
gggggggccccbbbbbbbbbbccccggggggg
gggggggggggbbbbbbbbbbggggggggggg
gggggggggggbbbbbbbbbbggggggggggg
gggggggccccbbbbbbbbbbccccggggggg
ggggggcccccbbbbbbbbbbcccccgggggg
ggggggcggggbbbbbbbbbbggggcgggggg
ggggggcggggbbbbbbbbbbggggcgggggg
ggggggcccccbbbbbbbbbbcccccgggggg
gggggggccccbbbbbbbbbbccccggggggg
ggggggggggggbbbbbbbbgggggggggggg
gggggggggggggcccccgggggggggggggg
ggggggggggggcccggccggggggggggggg
gggggcccccccccggggccccccccgggggg
ggggccgggggggggggggggggggccggggg
ggccggggggggggggggggggggggggccgg
ggccggggggggggggggggggggggggccgg
gggggggggggggggggggggggggggggggg
gggggggggggggggggggggggggggggggg
)"),
};

} // namespace

void AddResources()
{
    CResourceTables::AddDialogs(DIALOGS);
    CResourceTables::AddBitmaps(PICTURES);
}

} // namespace partsdesk
