#pragma once

#include "platform/base/Rect.h"
#include "platform/base/String.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/system/window/WindowRecords.h"
#include "platform/system/window/Wnd.h"

#include "support/PrintText.h"
#include "support/ui/Widgets.h"

#include <QAccessible>
#include <QApplication>
#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>

#include <vector>

namespace utility
{

/// A window that keeps the codes of all notes that its controls send.
class CNotedParent final : public CWnd
{
public:
    /// The codes since the last call.
    std::vector<int> TakeCodes() { return std::exchange(m_Codes, {}); }

    std::vector<int> m_Codes;
    LRESULT m_Answer = 0;      // to notes
    std::vector<int> m_Silent; // codes that are not kept

protected:
    bool OnCommand(WPARAM wParam, LPARAM) override
    {
        Keep(HIWORD(wParam));
        return true;
    }
    bool OnNotify(WPARAM, LPARAM lParam, LRESULT* result) override
    {
        Keep(reinterpret_cast<const NMHDR*>(lParam)->code);
        *result = m_Answer;
        return true;
    }

private:
    void Keep(int code)
    {
        if (std::find(m_Silent.begin(), m_Silent.end(), code) == m_Silent.end())
            m_Codes.push_back(code);
    }
};

/// A shown window for controls, driven by keys and clicks.
class ControlTest : public testing::Test
{
protected:
    static constexpr DWORD SEEN = WS_CHILD | WS_VISIBLE | WS_TABSTOP;
    static constexpr CRect PLACE{10, 10, 210, 110};

    ControlTest()
    {
        m_Parent.CreateEx(0, u"Host", u"Controls", WS_POPUP | WS_VISIBLE, {0, 0, 400, 300},
                          nullptr);
    }

    /// What gets the pointer: the inner part of a scrolled control, else the control itself.
    static QWidget& Surface(const CWnd& window)
    {
        QWidget& widget = FindWidget(window);
        QWidget* inner = widget.findChild<QWidget*>(QStringLiteral("qt_scrollarea_viewport"));
        return inner ? *inner : widget;
    }
    static void Type(const CWnd& window, const char* text)
    {
        QTest::keyClicks(&FindWidget(window), QString::fromLatin1(text));
    }
    static void Press(const CWnd& window, Qt::Key key, Qt::KeyboardModifiers keys = {})
    {
        QTest::keyClick(&FindWidget(window), key, keys);
    }
    static void Click(const CWnd& window, CPoint place, Qt::KeyboardModifiers keys = {})
    {
        QTest::mouseClick(&Surface(window), Qt::LeftButton, keys, QPoint(place.x, place.y));
    }

    // The whole program may run from right to left, where lines begin at the right.
    static LONG FromStart(const CRect& line, int step)
    {
        return QApplication::isRightToLeft() ? line.right - 1 - step : line.left + step;
    }
    static CPoint FromStart(const CWnd& window, CPoint place)
    {
        return {FromStart(window.GetClientRect(), place.x), place.y};
    }
    /// The key that leads where this one does from left to right.
    static Qt::Key Turned(Qt::Key key)
    {
        if (!QApplication::isRightToLeft())
            return key;
        return key == Qt::Key_Left ? Qt::Key_Right : key == Qt::Key_Right ? Qt::Key_Left : key;
    }

    /// What assistive tools are told of a control.
    static QAccessible::Role RoleOf(const CWnd& window)
    {
        return QAccessible::queryAccessibleInterface(&FindWidget(window))->role();
    }
    static CString NameOf(const CWnd& window)
    {
        const QString name =
            QAccessible::queryAccessibleInterface(&FindWidget(window))->text(QAccessible::Name);
        return CString(reinterpret_cast<const char16_t*>(name.utf16()),
                       static_cast<int>(name.size()));
    }

    CNotedParent m_Parent;
};

} // namespace utility
