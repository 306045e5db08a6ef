#pragma once

#include <memory>

class QWidget;

namespace utility
{

class CQtWindowPeer;
struct CWindowRequest;

/// Makers of the controls, as the table of window classes takes them.
std::unique_ptr<CQtWindowPeer> MakeEditPeer(const CWindowRequest& request, QWidget* parent);
std::unique_ptr<CQtWindowPeer> MakeButtonPeer(const CWindowRequest& request, QWidget* parent);
std::unique_ptr<CQtWindowPeer> MakeStaticPeer(const CWindowRequest& request, QWidget* parent);
std::unique_ptr<CQtWindowPeer> MakeListBoxPeer(const CWindowRequest& request, QWidget* parent);
std::unique_ptr<CQtWindowPeer> MakeComboBoxPeer(const CWindowRequest& request, QWidget* parent);
std::unique_ptr<CQtWindowPeer> MakeTreePeer(const CWindowRequest& request, QWidget* parent);
std::unique_ptr<CQtWindowPeer> MakeTabPeer(const CWindowRequest& request, QWidget* parent);
std::unique_ptr<CQtWindowPeer> MakeToolTipPeer(const CWindowRequest& request, QWidget* parent);
std::unique_ptr<CQtWindowPeer> MakeSpinPeer(const CWindowRequest& request, QWidget* parent);

} // namespace utility
