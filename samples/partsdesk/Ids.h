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
constexpr UINT IDC_PARTS = 11101;
constexpr UINT IDC_TABLES = 11102;
constexpr UINT IDC_FILTER = 11103;
constexpr UINT IDC_STATE = 11104;
constexpr UINT IDC_VALUES = 11105;
constexpr UINT IDC_BODY = 11106;
constexpr UINT IDC_COLUMNS = 11107;
constexpr UINT IDC_IDLE_TIME = 11108;
constexpr UINT IDC_PITCH = 11109;
constexpr UINT IDC_PITCH_READ = 11110;
constexpr UINT IDC_LOGGING = 11111;
constexpr UINT IDC_LOG_TEXT = 11112;
constexpr UINT IDC_VERSION = 11113;

// Controls of the gallery; the last four stand where windows of their own come
constexpr UINT IDC_TREE = 11301;
constexpr UINT IDC_COLOUR = 11302;
constexpr UINT IDC_COLOUR_NAME = 11303;
constexpr UINT IDC_PACKAGES = 11304;
constexpr UINT IDC_COUNT = 11305;
constexpr UINT IDC_COUNT_SPIN = 11306;
constexpr UINT IDC_HEARD = 11307;
constexpr UINT IDC_PAGES = 11308;
constexpr UINT IDC_PANES = 11309;
constexpr UINT IDC_TASKS = 11310;
constexpr UINT ID_GREET = 11311;
constexpr UINT ID_SPLASH = 11312;
constexpr UINT IDC_FIRST_BUTTON = 11320;
constexpr UINT IDC_LAST_BUTTON = 11325;

// Commands
constexpr UINT ID_SHOW_PART = 11201;
constexpr UINT ID_COPY_LINE = 11202;
constexpr UINT ID_GO_TO_FILTER = 11203;
constexpr UINT ID_CLEAR_FILTER = 11204;
constexpr UINT ID_READ_AGAIN = 11205;
constexpr UINT ID_SETTINGS = 11206;
constexpr UINT ID_LOG = 11207;
constexpr UINT ID_GALLERY = 11208;
constexpr UINT ID_ABOUT = 11209;
constexpr UINT ID_MENU = 11210;
constexpr UINT ID_COPY_PART = 11211;

} // namespace partsdesk
