#pragma once

#include "platform/system/window/UserInterface.h"

namespace utility
{

struct CBoxButton;

/// Asks nobody: boxes are traced and answered by policy, the clipboard is kept in the process.
class CHeadlessUserInterface : public IUserInterface
{
public:
    explicit CHeadlessUserInterface(EBoxPolicy policy) : m_Policy(policy) {}

    int ShowBox(const CBoxRequest& request) override;
    int ShowWarnings(const CWarningsRequest& request) override;
    void ReselectEdit(CEdit&) override {}

    int GetTextWidth(const CString& text, const CWnd* control) override;
    bool DoesTextFit(const CString& text, const CWnd& control) override;
    int GetDotsPerInch() override;

    bool SetClipboardText(const CString& text) override;
    bool GetClipboardText(CString& text) override;

    void BeginWaitCursor() override {}
    void EndWaitCursor() override {}
    void RestoreWaitCursor() override {}
    void BeginProgress(const CString&, std::int64_t) override {}
    void StepProgress(std::int64_t) override {}
    void EndProgress() override {}
    bool IsProgressCancelled() override { return false; }

    bool EditFile(const CString& path) override;
    bool OpenAddress(const CString& address) override;
    bool ShowHelpPage(const CString& address) override;

    void MinimiseMainWindow() override {}
    void RestoreMainWindow() override {}
    CWnd* GetActiveWindow() override { return nullptr; }

protected:
    EBoxPolicy GetPolicy() const { return m_Policy; }
    static void TraceAnswer(const CBoxRequest& request, const CBoxButton& button);

private:
    EBoxPolicy m_Policy;
    bool m_HasClipboard = false;
    CString m_Clipboard;
};

} // namespace utility
