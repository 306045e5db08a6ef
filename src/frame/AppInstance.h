#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

namespace utility
{

/// Which of several cooperating instances this program is, and the settings that they share.
///
/// The settings stand in the application's key `MultipleInstances` and are read once, at the first
/// use. There are two sets of values: those in force, and the deferred ones, which hold what the
/// user chose for the next start; `SetUseDeferredValues` picks the set that getters and setters
/// mean. Setters write to the store at once. The own number and the application's name belong to
/// the process: names, keys and searches are always those in force. Main thread; names and searches
/// any thread, once the main thread has used them and while it changes nothing.
class UTILITY_CORE_API CAppInstance
{
public:
    // This instance; 0 for a program that is none
    static int GetInstance();
    /// Other programs of the user are told, too.
    static void SetInstance(int instance);
    static bool ThisInstance(int instance);

    // Names, as the titles of main windows bear them
    //
    //     instances off, or instance 0    Board
    //     the board editor's number       Board:PCB
    //     any other                       Board:SCM
    static CString GetName();
    static CString GetName(int instance);
    static CString GetOtherName();

    /// Where this instance keeps what belongs to `key`: instances 2 and above have keys of their
    /// own. With `mustExist`, for reading, the plain key where there is no own one.
    static CString GetKey(const CString& key, bool mustExist);

    // Settings
    static bool GetEnabled();
    /// Notes that instances have been enabled, too.
    static void SetEnabled(bool enabled);
    static bool BeenEnabled();
    static bool GetExitAll();
    static void SetExitAll(bool exitAll);
    static bool GetOpenAllOnStartup();
    static void SetOpenAllOnStartup(bool openAll);

    // The numbers of the instances that open boards, schematics and other designs
    static int GetWinOther();
    static void SetWinOther(int instance);
    static int GetWinPcb();
    static void SetWinPcb(int instance);
    static int GetWinScm();
    static void SetWinScm(int instance);
    /// The schematic editor's number in the board editor, else the board editor's.
    static int GetOtherWin();
    static bool OtherDocsInOtherInstance();

    /// Not stored.
    static bool IsMultiScreen();
    static void SetMultiScreen(bool multiScreen);

    // Changes that wait for a restart
    static bool IsDeferred();
    static void SetDeferred();
    static void SetUseDeferredValues(bool use);

    // Other instances, found by the names in the first 127 units of their windows' titles. The own
    // window counts, and with instances off any window of the application does.
    static bool FindInstance(int instance);
    /// Null if there is none.
    static HWND FindOtherWindow();
    /// Starts the program again with "-L" and the number. False with 2, 3, 5 or 193 in the last
    /// system code.
    static bool Launch(int instance);

private:
    static CAppInstance& Live();     // in force
    static CAppInstance& Deferred(); // for the next start
    static CAppInstance& InUse();
    static void InitSettings();
    void Initialise();

    CString m_Name;
    bool m_BeenEnabled = false;
    bool m_Enabled = false;
    bool m_ExitAll = true;
    bool m_Initialised = false;
    bool m_MultiScreen = false;
    bool m_OpenAllOnStartup = true;
    int m_Instance = 0;
    bool m_UseDeferred = false;
    int m_WinOther = 1;
    int m_WinPcb = 2;
    int m_WinScm = 1;
};

} // namespace utility
