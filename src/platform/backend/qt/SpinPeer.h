#pragma once

#include "platform/backend/qt/QtWindowPeer.h"

namespace utility
{

/// A pair of arrows that steps a number.
class CSpinPeer final : public CQtWindowPeer
{
public:
    CSpinPeer(const CWindowRequest& request, QWidget* parent);

    bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

    /// A click on an arrow: 1 is up, -1 down.
    void Step(int steps);

private:
    LRESULT OnCreate(WPARAM, LPARAM);
    LRESULT OnSetBuddy(WPARAM buddy, LPARAM);
    LRESULT OnGetBuddy(WPARAM, LPARAM);
    LRESULT OnSetRange(WPARAM low, LPARAM high);
    LRESULT OnGetRange(WPARAM low, LPARAM high);
    LRESULT OnSetPos(WPARAM, LPARAM position);
    LRESULT OnGetPos(WPARAM, LPARAM);

    int Fit(std::int64_t position) const;
    void GoTo(int position);

    HWND m_Buddy = nullptr;
    int m_Low = 0;
    int m_High = 100;
    int m_Position = 0;
};

} // namespace utility
