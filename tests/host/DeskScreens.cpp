// Takes pictures of the sample desk's windows: DeskScreens DATABASE FOLDER light|dark.
// Each is taken as it opens, and wider and higher; dev/screenshots.sh calls it for each scaling and
// palette.

#include "frame/Application.h"
#include "frame/IdleHandler.h"
#include "platform/base/Encoding.h"
#include "platform/system/file/NativePath.h"
#include "platform/system/window/MessageBoxCodes.h"
#include "platform/system/window/MessageLoop.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/ui/Dialog.h"
#include "platform/ui/WindowSystem.h"

#include "AboutDialog.h"
#include "DeskSettings.h"
#include "GalleryDialog.h"
#include "LogDialog.h"
#include "PartDialog.h"
#include "PartsWindow.h"
#include "Resources.h"
#include "SettingsDialog.h"
#include "support/Sandbox.h"

#include <QApplication>
#include <QPalette>
#include <QPixmap>
#include <QTimer>
#include <QWidget>

#include <cstdlib>
#include <iostream>
#include <string>

using namespace utility;
using namespace partsdesk;

namespace
{

constexpr int TIME_TO_SETTLE = 800; // milliseconds: idle work has filled the lists by then

QPalette DarkPalette()
{
    QPalette palette(QColor(44, 46, 50)); // the shades of edges follow from it
    palette.setColor(QPalette::Base, QColor(30, 31, 34));
    palette.setColor(QPalette::AlternateBase, QColor(38, 40, 43));
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::BrightText})
        palette.setColor(role, QColor(224, 224, 224));
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(128, 128, 128));
    palette.setColor(QPalette::Highlight, QColor(46, 110, 168));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

void Save(const QWidget& window, const std::string& path)
{
    QWidget& shown = const_cast<QWidget&>(window);
    if (!shown.grab().save(QString::fromStdString(path)))
        std::exit(EXIT_FAILURE);
    std::cout << path << '\n';
}

/// The window that is in front of all others.
QWidget* FrontWindow()
{
    if (QWidget* const modal = QApplication::activeModalWidget())
        return modal;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* const window : windows)
    {
        if (window->isVisible())
            return window;
    }
    return nullptr;
}

/// Once the dialog is shown, takes both pictures and closes it.
void ShootLater(CDialog& dialog, const std::string& path)
{
    QTimer::singleShot(TIME_TO_SETTLE,
                       [&dialog, path]
                       {
                           QWidget* const window = FrontWindow();
                           if (!window)
                               std::exit(EXIT_FAILURE);
                           Save(*window, path + ".png");
                           window->resize(window->width() * 5 / 4, window->height() * 5 / 4);
                           QApplication::processEvents();
                           Save(*window, path + "-large.png");
                           dialog.SendMessage(WM_COMMAND, IDCANCEL);
                       });
}

void Shoot(CDialog& dialog, const std::string& path)
{
    ShootLater(dialog, path);
    dialog.DoModal();
}

void ShootAll(const CString& database, const std::string& folder)
{
    CPartsWindow parts(database);
    ShootLater(parts, folder + "/parts");
    if (!parts.Open())
        std::exit(EXIT_FAILURE);
    GetMessageLoop().Run();

    CPartsRows rows;
    double pitch = 0;
    if (!rows.Open(database) || !ReadPitch(CDeskSettings().m_Pitch, pitch))
        std::exit(EXIT_FAILURE);
    CPartDialog part(rows.GetPart(0), pitch, nullptr);
    Shoot(part, folder + "/part");
    CSettingsDialog settings(CDeskSettings(), nullptr);
    Shoot(settings, folder + "/settings");
    CLogDialog log(nullptr);
    Shoot(log, folder + "/log");
    CGalleryDialog gallery(nullptr);
    Shoot(gallery, folder + "/gallery");
    CAboutDialog about(nullptr);
    Shoot(about, folder + "/about");
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 4)
        return EXIT_FAILURE;
    const CSandbox sandbox; // settings and log of its own
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    CApplication::SetName(u"Parts Desk");
    CApplication::SetVersion(u"0.1");
    CApplication::SetCopyright(u"Made of the library alone.");
    const CString database = ClassicPath(argv[1]);
    const std::string folder = argv[2];
    const bool isDark = std::string(argv[3]) == "dark";

    CWindowSystem windows;
    CString reason;
    if (!windows.Start(argc, argv, reason))
    {
        std::cerr << ToUtf8(reason.View()) << '\n';
        return NO_DISPLAY_EXIT;
    }
    QApplication::setStyle("Fusion");
    if (isDark)
        QApplication::setPalette(DarkPalette());
    GetMessageLoop().SetIdleHandler([](LONG count) { return CIdleHandler::OnIdle(count) != 0; });
    AddResources();
    ShootAll(database, folder);
    return EXIT_SUCCESS;
}
