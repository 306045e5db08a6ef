#include "platform/backend/qt/DialogRole.h"
#include "platform/backend/qt/Guard.h"
#include "platform/backend/qt/InputPeek.h"
#include "platform/backend/qt/MessageLoop.h"
#include "platform/backend/qt/QtWindowPeer.h"
#include "platform/backend/qt/ScreenProbe.h"
#include "platform/backend/qt/UserInterface.h"
#include "platform/backend/qt/WidgetTable.h"
#include "platform/ui/BCGPVisualManager.h"
#include "platform/ui/WindowSystem.h"

#include <QInputEvent>

#include <clocale>

namespace utility
{

namespace
{

/// Sees all events of the application: input restarts idle work, and reaches no barred window.
class CInputGate final : public QObject
{
public:
    explicit CInputGate(CQtMessageLoop& loop) : m_Loop(loop) {}

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        switch (event->type())
        {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::ShortcutOverride:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::ContextMenu:
            m_Loop.RestartIdle();
            return KeepsAway(*watched);
        case QEvent::Close:
            m_Loop.RestartIdle();
            return event->spontaneous() && KeepsAway(*watched);
        case QEvent::Resize:
            m_Loop.RestartIdle();
            return false;
        case QEvent::ApplicationPaletteChange:
            if (watched == QCoreApplication::instance()) // windows are told, too
                CallGuarded([] { CBCGPVisualManager::GetInstance()->NotifyChange(); });
            return false;
        default:
            return false;
        }
    }

private:
    static bool KeepsAway(const QObject& watched)
    {
        const auto* widget = qobject_cast<const QWidget*>(&watched);
        return widget && IsBarred(*widget);
    }

    CQtMessageLoop& m_Loop;
};

} // namespace

/// In the order in which they begin; they end the other way round.
struct CWindowSystem::CBackend
{
    CBackend(int& argc, char** argv)
        : m_Application(argc, argv),
          m_Gate(m_Loop),
          m_Peek([this] { m_Loop.LookAtWindows(); }),
          m_User(m_Loop),
          m_PreviousLoop(SetMessageLoop(&m_Loop)),
          m_PreviousFactory(SetWindowPeerFactory(&m_Factory)),
          m_PreviousUser(SetUserInterface(&m_User))
    {
        QApplication::setQuitOnLastWindowClosed(false); // the host says when it ends
        std::setlocale(LC_NUMERIC, "C");                // which the application has changed
        m_Application.installEventFilter(&m_Gate);
        m_Application.installEventFilter(&m_Peek); // the first to see what comes
        m_Loop.SetInputPeek([this] { return m_Peek.IsInputWaiting(); });
        InstallDialogRole();
    }
    ~CBackend()
    {
        SetUserInterface(m_PreviousUser);
        SetWindowPeerFactory(m_PreviousFactory);
        SetMessageLoop(m_PreviousLoop);
        // Widgets whose windows have ended wait for their events to pass, and there are none left.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    CBackend(const CBackend&) = delete;
    CBackend& operator=(const CBackend&) = delete;

    QApplication m_Application;
    CQtMessageLoop m_Loop;
    CInputGate m_Gate;
    CInputPeek m_Peek;
    CQtUserInterface m_User;
    CQtWindowPeerFactory m_Factory;
    IMessageLoop* const m_PreviousLoop;
    IWindowPeerFactory* const m_PreviousFactory;
    IUserInterface* const m_PreviousUser;
};

CWindowSystem::CWindowSystem() = default;

CWindowSystem::~CWindowSystem() = default;

bool CWindowSystem::Start(int& argc, char** argv, CString& reason)
{
    if (!FindScreen(reason))
        return false;
    m_Backend = std::make_unique<CBackend>(argc, argv);
    return true;
}

std::unique_ptr<IMessageLoop> MakeWindowMessageLoop()
{
    return std::make_unique<CQtMessageLoop>();
}

} // namespace utility
