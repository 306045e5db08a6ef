#pragma once

#include "platform/system/window/UserInterface.h"

#include <deque>
#include <mutex>
#include <vector>

namespace utility
{

/// A user who answers as told and remembers each box; the user interface of the process while it
/// lives.
///
/// Without an answer in store a box is answered OK. Boxes may come from any thread.
class CScriptedUser : public IUserInterface
{
public:
    CScriptedUser();
    ~CScriptedUser() override;

    /// The answer to the next box that has none yet.
    void WillAnswer(int answer);

    std::vector<CBoxRequest> GetBoxes() const;
    /// The text of the only box; fails the test if there was not exactly one.
    CString GetOnlyText() const;
    const std::vector<CWarningsRequest>& GetWarnings() const { return m_Warnings; }
    int CountReselected() const { return m_Reselected; }
    void SetActiveWindow(CWnd* window) { m_ActiveWindow = window; }

    int ShowBox(const CBoxRequest& request) override;
    int ShowWarnings(const CWarningsRequest& request) override;
    void ReselectEdit(CEdit&) override { ++m_Reselected; }

    int GetTextWidth(const CString& text, const CWnd*) override { return text.GetLength(); }
    bool DoesTextFit(const CString&, const CWnd&) override { return true; }
    int GetDotsPerInch() override { return 96; }

    bool SetClipboardText(const CString& text) override;
    bool GetClipboardText(CString& text) override;

    void BeginWaitCursor() override { ++m_WaitDepth; }
    void EndWaitCursor() override { --m_WaitDepth; }
    void RestoreWaitCursor() override {}
    int GetWaitDepth() const { return m_WaitDepth; }
    void BeginProgress(const CString&, std::int64_t) override {}
    void StepProgress(std::int64_t) override {}
    void EndProgress() override {}
    bool IsProgressCancelled() override { return false; }

    bool EditFile(const CString&) override { return false; }
    bool OpenAddress(const CString&) override { return false; }
    bool ShowHelpPage(const CString&) override { return false; }

    void MinimiseMainWindow() override {}
    void RestoreMainWindow() override {}
    CWnd* GetActiveWindow() override { return m_ActiveWindow; }

private:
    int NextAnswer();

    IUserInterface* m_Previous;
    mutable std::mutex m_Lock;
    std::deque<int> m_Answers;
    std::vector<CBoxRequest> m_Boxes;
    std::vector<CWarningsRequest> m_Warnings;
    int m_Reselected = 0;
    int m_WaitDepth = 0;
    CWnd* m_ActiveWindow = nullptr;
    std::vector<CString> m_Clipboard; // the text, if there is one
};

} // namespace utility
