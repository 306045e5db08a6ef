#include "platform/base/Encoding.h"
#include "platform/system/window/UserInterface.h"
#include "platform/ui/WindowSystem.h"

#include "support/Sandbox.h"
#include "support/ui/Platform.h"
#include "support/ui/RealUser.h"
#include "support/ui/WindowCensus.h"

#include <QString>
#include <gtest/gtest.h>

#include <iostream>

namespace
{

/// What the platform without a screen says of each window is no news.
void SayWarning(QtMsgType, const QMessageLogContext&, const QString& text)
{
    if (!text.startsWith(QStringLiteral("This plugin does not support")))
        std::cerr << text.toStdString() << '\n';
}

} // namespace

int main(int argc, char** argv)
{
    // Static, so that a child of a test that leaves by exit() takes its folder away too.
    static const utility::CSandbox sandbox;
    testing::InitGoogleTest(&argc, argv);
    utility::PreparePlatform();

    qInstallMessageHandler(SayWarning);
    utility::CWindowSystem windows;
    utility::CString reason;
    if (!windows.Start(argc, argv, reason))
    {
        std::cerr << utility::ToUtf8(reason.View()) << '\n';
        return utility::NO_DISPLAY_EXIT;
    }
    // Nobody is asked, unless a test puts a user there.
    static const auto nobody =
        utility::MakeHeadlessUserInterface(utility::EBoxPolicy::ChangeNothing);
    utility::CRealUser::SetReal(utility::SetUserInterface(nobody.get()));
    testing::UnitTest::GetInstance()->listeners().Append(new utility::CWindowCensus);
    return RUN_ALL_TESTS();
}
