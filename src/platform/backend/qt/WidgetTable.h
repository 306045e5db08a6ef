#pragma once

#include "platform/backend/qt/QtWindowPeer.h"

#include <memory>

namespace utility
{

/// Makes the peer of one window class, with a widget below `parent` (null for a top-level window).
using PeerMaker = std::unique_ptr<CQtWindowPeer> (*)(const CWindowRequest& request,
                                                     QWidget* parent);

/// The maker of a window class, by its case-blind name; a class that the table does not know is a
/// plain window that its owner paints.
PeerMaker FindPeerMaker(const CString& className);

/// Makes peers by that table.
class CQtWindowPeerFactory final : public IWindowPeerFactory
{
public:
    std::unique_ptr<IWindowPeer> Make(const CWindowRequest& request) override;
    HWND GetFocus() const override;
    HWND GetActive() const override;
    HWND GetCapture() const override;
};

} // namespace utility
