#include "platform/backend/qt/UserInterface.h"

#include "platform/backend/qt/Boxes.h"
#include "platform/backend/qt/MessageLoop.h"
#include "platform/backend/qt/QtWindowPeer.h"
#include "platform/backend/qt/Values.h"
#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/system/file/NativePath.h"
#include "platform/system/window/WinApp.h"
#include "platform/system/window/WindowStyles.h"
#include "platform/system/window/Wnd.h"
#include "platform/ui/controls/Edit.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QFileInfo>
#include <QFontMetrics>
#include <QMimeData>
#include <QProgressDialog>
#include <QUrl>

namespace utility
{

namespace
{

constexpr int LAYOUT_DOTS_PER_INCH = 96; // the window system scales
constexpr int PROGRESS_STEPS = 1000;
constexpr int PROGRESS_INTERVAL = 50; // milliseconds between two looks of the bar

bool Open(const QUrl& url)
{
    if (QDesktopServices::openUrl(url))
        return true;
    SetLastError(ERROR_NOT_SUPPORTED);
    return false;
}

} // namespace

CQtUserInterface::CQtUserInterface(CQtMessageLoop& loop) : m_Loop(loop) {}

CQtUserInterface::~CQtUserInterface() = default;

// Boxes

int CQtUserInterface::ShowBox(const CBoxRequest& request)
{
    int answer = 0;
    m_Loop.Send([&] { answer = ShowBoxOnScreen(request); });
    return answer;
}

int CQtUserInterface::ShowWarnings(const CWarningsRequest& request)
{
    return ShowWarningsOnScreen(request);
}

void CQtUserInterface::ReselectEdit(CEdit& edit)
{
    edit.SetFocus();
    edit.SetSel(0, -1);
}

// Text on the screen

int CQtUserInterface::GetTextWidth(const CString& text, const CWnd* control)
{
    const QWidget* widget = control ? WidgetOf(*control) : nullptr;
    const QFontMetrics metrics(widget ? widget->font() : QApplication::font());
    return metrics.horizontalAdvance(ToQString(text));
}

bool CQtUserInterface::DoesTextFit(const CString& text, const CWnd& control)
{
    constexpr double COUNTED_PART = 0.9; // letters that are cut a little can still be read
    const auto width = static_cast<int>(COUNTED_PART * GetTextWidth(text, &control));
    return width <= control.GetClientRect().Width();
}

int CQtUserInterface::GetDotsPerInch()
{
    return LAYOUT_DOTS_PER_INCH;
}

// Clipboard

bool CQtUserInterface::SetClipboardText(const CString& text)
{
    QGuiApplication::clipboard()->setText(ToQString(text));
    return true;
}

bool CQtUserInterface::GetClipboardText(CString& text)
{
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    if (!data || !data->hasText())
        return false;
    text = ToCString(data->text());
    return true;
}

// Long work

void CQtUserInterface::BeginWaitCursor()
{
    if (++m_WaitDepth == 1)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

void CQtUserInterface::EndWaitCursor()
{
    if (--m_WaitDepth == 0)
        QGuiApplication::restoreOverrideCursor();
}

void CQtUserInterface::RestoreWaitCursor()
{
    if (m_WaitDepth > 0)
        QGuiApplication::changeOverrideCursor(Qt::WaitCursor);
}

void CQtUserInterface::BeginProgress(const CString& title, std::int64_t total)
{
    const CWnd* active = GetActiveWindow();
    m_ProgressTotal = total;
    m_Progress = std::make_unique<QProgressDialog>(active ? WidgetOf(*active) : nullptr);
    m_Progress->setWindowTitle(ToQString(AfxGetAppName()));
    m_Progress->setLabelText(ToQString(title));
    m_Progress->setRange(0, total > 0 ? PROGRESS_STEPS : 0);
    m_Progress->setAutoReset(false);
    m_Progress->setWindowModality(Qt::ApplicationModal);
    m_Progress->show();
    m_SinceProgress.invalidate();
    StepProgress(0);
}

void CQtUserInterface::StepProgress(std::int64_t done)
{
    if (!m_Progress ||
        (m_SinceProgress.isValid() && !m_SinceProgress.hasExpired(PROGRESS_INTERVAL)))
        return;
    m_SinceProgress.start();
    if (m_ProgressTotal > 0)
    {
        const double part = static_cast<double>(done) / static_cast<double>(m_ProgressTotal);
        m_Progress->setValue(static_cast<int>(std::clamp(part, 0.0, 1.0) * PROGRESS_STEPS));
    }
    m_Loop.HandleWindowEvents();
}

void CQtUserInterface::EndProgress()
{
    m_Progress.reset();
}

bool CQtUserInterface::IsProgressCancelled()
{
    return m_Progress && m_Progress->wasCanceled();
}

// Other programs

bool CQtUserInterface::EditFile(const CString& path)
{
    const QString native = ToQString(NativePath(path));
    if (!QFileInfo::exists(native))
    {
        SetLastError(ERROR_FILE_NOT_FOUND);
        return false;
    }
    return Open(QUrl::fromLocalFile(native));
}

bool CQtUserInterface::OpenAddress(const CString& address)
{
    return Open(QUrl(ToQString(address)));
}

bool CQtUserInterface::ShowHelpPage(const CString& address)
{
    return OpenAddress(address);
}

// Windows

void CQtUserInterface::MinimiseMainWindow()
{
    if (CWnd* window = AfxGetMainWnd())
        window->ShowWindow(SW_MINIMIZE);
}

void CQtUserInterface::RestoreMainWindow()
{
    if (CWnd* window = AfxGetMainWnd())
        window->ShowWindow(SW_RESTORE);
}

CWnd* CQtUserInterface::GetActiveWindow()
{
    CWnd* active = CWnd::GetActiveWindow();
    return active ? active : AfxGetMainWnd();
}

} // namespace utility
