#pragma once

#include "platform/base/Types.h"

/// Numbers of the desk's dialogs, controls and commands.
namespace partsdesk
{

using utility::UINT;

constexpr UINT DIALOG_PARTS = 11001;
constexpr UINT DIALOG_PART = 11002;
constexpr UINT DIALOG_SETTINGS = 11003;
constexpr UINT DIALOG_ABOUT = 11004;
constexpr UINT DIALOG_LOG = 11005;
constexpr UINT DIALOG_GALLERY = 11006;

constexpr UINT BITMAP_DESK = 11001;

// Controls
constexpr int IDC_PARTS = 11101;
constexpr int IDC_TABLES = 11102;
constexpr int IDC_FILTER = 11103;
constexpr int IDC_STATE = 11104;
constexpr int IDC_VALUES = 11105;
constexpr int IDC_BODY = 11106;
constexpr int IDC_COLUMNS = 11107;
constexpr int IDC_IDLE_TIME = 11108;
constexpr int IDC_PITCH = 11109;
constexpr int IDC_PITCH_READ = 11110;
constexpr int IDC_LOGGING = 11111;
constexpr int IDC_LOG_TEXT = 11112;
constexpr int IDC_VERSION = 11113;

// Controls of the gallery; three stand where windows of their own come
constexpr int IDC_TREE = 11301;
constexpr int IDC_COLOUR = 11302;
constexpr int IDC_COLOUR_NAME = 11303;
constexpr int IDC_PACKAGES = 11304;
constexpr int IDC_COUNT = 11305;
constexpr int IDC_COUNT_SPIN = 11306;
constexpr int IDC_HEARD = 11307;
constexpr int IDC_PAGES = 11308;
constexpr int IDC_PANES = 11309;
constexpr int IDC_TASKS = 11310;
constexpr int ID_GREET = 11311;
constexpr int ID_SPLASH = 11312;
constexpr int IDC_FIRST_BUTTON = 11320;
constexpr int IDC_LAST_BUTTON = 11325;

// Commands
constexpr int ID_SHOW_PART = 11201;
constexpr int ID_COPY_LINE = 11202;
constexpr int ID_GO_TO_FILTER = 11203;
constexpr int ID_CLEAR_FILTER = 11204;
constexpr int ID_READ_AGAIN = 11205;
constexpr int ID_SETTINGS = 11206;
constexpr int ID_LOG = 11207;
constexpr int ID_GALLERY = 11208;
constexpr int ID_ABOUT = 11209;
constexpr int ID_MENU = 11210;
constexpr int ID_COPY_PART = 11211;

} // namespace partsdesk
