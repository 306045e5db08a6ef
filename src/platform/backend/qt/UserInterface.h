#pragma once

#include "platform/system/window/UserInterface.h"

#include <QElapsedTimer>

#include <memory>

class QProgressDialog;

namespace utility
{

class CQtMessageLoop;

/// Asks on the screen.
class CQtUserInterface final : public IUserInterface
{
public:
    explicit CQtUserInterface(CQtMessageLoop& loop);
    ~CQtUserInterface() override;

    int ShowBox(const CBoxRequest& request) override;
    int ShowWarnings(const CWarningsRequest& request) override;
    void ReselectEdit(CEdit& edit) override;

    int GetTextWidth(const CString& text, const CWnd* control) override;
    bool DoesTextFit(const CString& text, const CWnd& control) override;
    int GetDotsPerInch() override;

    bool SetClipboardText(const CString& text) override;
    bool GetClipboardText(CString& text) override;

    void BeginWaitCursor() override;
    void EndWaitCursor() override;
    void RestoreWaitCursor() override;
    void BeginProgress(const CString& title, std::int64_t total) override;
    void StepProgress(std::int64_t done) override;
    void EndProgress() override;
    bool IsProgressCancelled() override;

    bool EditFile(const CString& path) override;
    bool OpenAddress(const CString& address) override;
    bool ShowHelpPage(const CString& address) override;

    void MinimiseMainWindow() override;
    void RestoreMainWindow() override;
    CWnd* GetActiveWindow() override;

private:
    CQtMessageLoop& m_Loop;
    int m_WaitDepth = 0;
    std::unique_ptr<QProgressDialog> m_Progress;
    std::int64_t m_ProgressTotal = 0;
    QElapsedTimer m_SinceProgress; // the last time that it was shown
};

} // namespace utility
