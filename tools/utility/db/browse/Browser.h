#pragma once

#include "utility/db/browse/BrowseRows.h"
#include "utility/db/browse/BrowseView.h"
#include "utility/db/browse/ScreenPicture.h"

#include <optional>

namespace utility
{

/// A pager over a table's rows, without the terminal: keys go in, pictures of the screen come out.
///
/// The keys are told by the help that "?" shows. Whatever takes time is done by Work, step by step,
/// so that keys are heard meanwhile; only to sort and to find a filter's first row takes one step.
class CBrowser
{
public:
    CBrowser(CBrowseRows& rows, const CString& title);

    void Resize(int lines, int width);
    void HandleKey(const CScreenKey& key);
    bool IsDone() const { return m_IsDone; }

    /// What a user would type for "/" and "s"; false with the reason in the message.
    bool Filter(const CString& words);
    bool Sort(const CString& words);
    const CString& GetMessage() const { return m_Message; }

    /// Goes on with what is wanted for about so long; false once nothing is left to do.
    bool Work(DWORD milliseconds);
    /// Whether the screen lacks rows that may still come.
    bool IsWaiting() const;

    CScreenPicture Compose();

private:
    enum class EMode
    {
        Rows,
        Row,    // the current one whole
        Filter, // the words are being typed
        Find,
        Sort,
        Help
    };

    struct COrder
    {
        std::size_t m_Column = 0;
        bool m_IsAscending = true;
    };

    // Keys, in Browser.cpp
    void HandleRowKey(const CScreenKey& key);
    void HandleCharacter(char32_t character);
    void HandlePromptKey(const CScreenKey& key);
    void Ask(EMode mode);
    void TakeWords();
    void MoveBy(int rows);

    // Filter, order, search and the steps of their work, in BrowserWork.cpp
    bool Find(const CString& words);
    void StartFind(int step);
    void FindOn();
    void RestartRows();
    void FinishRows();

    // The screen, in BrowserScreen.cpp
    CString ComposeStatus() const;
    CString ComposePosition() const;
    CString ComposeEmpty() const;
    std::vector<CScreenLine> ComposeRow() const;
    std::vector<CScreenLine> ComposeHelp() const;
    std::vector<CScreenLine> ComposePage(const CString& heading,
                                         const std::vector<CString>& lines) const;

    CBrowseRows& m_Rows;
    CBrowseView m_View;
    CString m_Title;
    int m_Lines = 0;
    int m_Width = 0;
    EMode m_Mode = EMode::Rows;
    CString m_Words;   // being typed
    CString m_Message; // until the next key
    bool m_IsDone = false;

    std::optional<CBrowseCondition> m_Filter;
    std::optional<COrder> m_Order;
    std::optional<CBrowseCondition> m_Sought;

    // What Work has still to do
    bool m_IsFilterDue = false;
    bool m_IsSortDue = false;
    bool m_IsEndDue = false; // to the last row
    int m_FindStep = 0;      // 1 or -1 while a row is sought
    int m_FindRow = 0;       // the next one to try
};

} // namespace utility
