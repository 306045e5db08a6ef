#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

namespace utility
{

class CWnd;
struct OSVERSIONINFOW;

/// The identity of the running host program: filled by the host at start-up, only read afterwards.
///
/// Every text is empty and every flag false until set. User-interface thread, but `GetMainWnd` and
/// the readers may be called by workers once the host has filled it.
class UTILITY_CORE_API CApplication
{
public:
    // Who made it
    static void SetCompanyName(const CString& name);
    /// The full name, or the short one: the full name cut before its first blank.
    static CString GetCompanyName(bool shortName);
    static void SetCopyright(const CString& copyright);
    static CString GetCopyright();

    // What it is
    static void SetName(const CString& name);
    static CString GetName();
    /// Also names the folder of the log.
    static void SetProductName(const CString& name);
    static CString GetProductName();
    /// These two take the id of a text and keep the text.
    static void SetProductFamily(UINT id);
    static CString GetProductFamily();
    static void SetVariant(UINT id);
    static CString GetVariant();
    static void SetProductCode(int code);
    static int GetProductCode();
    /// Names the settings key below the company's; the product name while empty.
    static void SetRegistryName(const CString& name);
    static CString GetRegistryName();

    // Which one it is
    static void SetBuild(const CString& build);
    static CString GetBuild();
    static void SetVersion(const CString& version);
    static CString GetVersion();
    /// The version before its second point.
    ///
    ///     "7.1.0.332"   "7.1"
    ///     "7.1", "7"    the whole text
    static CString GetProductVersion();

    // How it runs
    /// Not owned. Message boxes have it as owner, workers' boxes go through it; null when the
    /// window ends.
    static void SetMainWnd(CWnd* window);
    static CWnd* GetMainWnd();
    /// A script drives the program.
    static void IsRunningScript(bool running);
    static bool IsRunningScript();
    /// Turns every warning off.
    static void IsTesting(bool testing);
    static bool IsTesting();

    // Where it runs
    /// Filled at the first call; never null, lives as long as the process.
    static const OSVERSIONINFOW* GetOSVersion();
    static bool IsTrue32BitOS();
    static bool IsUnicode() { return true; }
    /// The user's login, up to 99 units; empty if the system cannot tell.
    static CString GetUserNameW();
};

} // namespace utility
