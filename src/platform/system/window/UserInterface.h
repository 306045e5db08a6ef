#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"
#include "platform/base/Types.h"

#include <cstdint>
#include <functional>
#include <iosfwd>
#include <memory>

namespace utility
{

class CEdit;
class CWnd;

/// A message box to show: texts are plain, the type is a sum of `MB_...`.
struct CBoxRequest
{
    CWnd* m_Owner = nullptr; // may be null
    CString m_Text;
    CString m_Caption;
    UINT m_Type = 0;
    UINT m_HelpId = 0; // 0: no help button
};

/// Warnings to show together.
struct CWarningsRequest
{
    int m_Count = 0;
    CString m_Text; // each warning ends in a line feed
    UINT m_WarningId =
        0; // the only warning's id, so that it can be switched off; 0 if there are more
    bool m_ShowCancel = false;
    bool m_AsQuestion = false; // Yes and No instead of OK
    UINT m_HelpId = 0;
    void (*m_ReportFn)(void*) = nullptr; // replaces the dialog's own report
    void* m_ReportArg = nullptr;
    CWnd* m_Parent = nullptr;
};

/// Everything that the core asks of a person or of a screen.
///
/// Answers of boxes are `ID...` values. `ShowBox` may come from any thread and blocks until
/// answered; all else comes from the user-interface thread. Sizes are pixels at 96 dots per inch.
class UTILITY_CORE_API IUserInterface
{
public:
    virtual ~IUserInterface() = default;

    // Boxes
    virtual int ShowBox(const CBoxRequest& request) = 0;
    /// `IDOK` for OK and for Yes.
    virtual int ShowWarnings(const CWarningsRequest& request) = 0;
    /// Gives the edit the focus, selects its text and scrolls the caret into view.
    virtual void ReselectEdit(CEdit& edit) = 0;

    // Text on the screen
    virtual int GetTextWidth(const CString& text, const CWnd* control) = 0;
    virtual bool DoesTextFit(const CString& text, const CWnd& control) = 0;
    virtual int GetDotsPerInch() = 0;

    // Clipboard
    [[nodiscard]] virtual bool SetClipboardText(const CString& text) = 0;
    /// False, and `text` keeps its preset, if there is no text.
    [[nodiscard]] virtual bool GetClipboardText(CString& text) = 0;

    // Long work
    /// Calls nest; the cursor is busy until as many ends as begins.
    virtual void BeginWaitCursor() = 0;
    virtual void EndWaitCursor() = 0;
    /// Makes the cursor busy again after a box has changed it.
    virtual void RestoreWaitCursor() = 0;
    /// One bar at a time; a `total` of 0 means that the end is unknown.
    virtual void BeginProgress(const CString& title, std::int64_t total) = 0;
    virtual void StepProgress(std::int64_t done) = 0;
    virtual void EndProgress() = 0;
    virtual bool IsProgressCancelled() = 0;

    // Other programs; false with the reason in the last system code
    [[nodiscard]] virtual bool EditFile(const CString& path) = 0;
    [[nodiscard]] virtual bool OpenAddress(const CString& address) = 0;
    [[nodiscard]] virtual bool ShowHelpPage(const CString& address) = 0;

    // Windows
    virtual void MinimiseMainWindow() = 0;
    virtual void RestoreMainWindow() = 0;
    /// The owner of a box that names none: the active window, else the main window, else null.
    virtual CWnd* GetActiveWindow() = 0;
};

/// The interface in force: the one installed, else the standard one, which then changes nothing
/// where nobody can be asked. Any thread.
UTILITY_CORE_API IUserInterface& GetUserInterface();

/// Installs an interface, which the caller keeps alive, or with null the standard one again.
/// Returns what was installed before, null for none.
UTILITY_CORE_API IUserInterface* SetUserInterface(IUserInterface* userInterface);

/// Takes a line about each box that was answered without a user; null for nobody. Must accept calls
/// of any thread.
using BoxTraceFunc = void (*)(const CString& line);
UTILITY_CORE_API void SetBoxTrace(BoxTraceFunc trace);

/// How questions are answered where nobody can be asked.
enum class EBoxPolicy
{
    ChangeNothing, // Cancel, else No, else Abort, else OK
    SayYes         // Yes to Yes/No, otherwise as above
};

/// Asks nobody: boxes are traced and answered by policy, the clipboard is kept in the process.
UTILITY_CORE_API std::unique_ptr<IUserInterface> MakeHeadlessUserInterface(EBoxPolicy policy);

/// Asks in a terminal: boxes and a progress bar on `output`, answers from `input`, whose end
/// answers by policy. Long work counts as cancelled while `isCancelled` says so.
UTILITY_CORE_API std::unique_ptr<IUserInterface>
MakeTerminalUserInterface(std::istream& input, std::ostream& output, EBoxPolicy policy,
                          std::function<bool()> isCancelled = {});

/// What a program without windows has, by its standard streams:
///
///     error output   input      boxes
///     terminal       terminal   asked there
///     terminal       other      shown there, answered by policy
///     other          any        answered by policy, and traced
UTILITY_CORE_API std::unique_ptr<IUserInterface>
MakeStandardUserInterface(EBoxPolicy policy, std::function<bool()> isCancelled = {});

} // namespace utility
