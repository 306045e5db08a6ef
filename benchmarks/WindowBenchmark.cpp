#include "dialogs/ResizeDialog.h"
#include "platform/base/Encoding.h"
#include "platform/system/window/WindowMessages.h"
#include "platform/ui/ResourceTables.h"
#include "platform/ui/WindowSystem.h"

#include <QApplication>
#include <QDialog>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <iostream>
#include <string>

using namespace utility;

// Windows of the library beside the same ones made of plain widgets: a dialog of 50 controls until
// it is painted, its controls following its size, and messages posted to a window.

namespace
{

constexpr UINT DIALOG_ID = 11001;
constexpr int ROWS = 25; // of a label and a field: 50 controls
constexpr int POSTS = 1000;
constexpr UINT POSTED_MESSAGE = WM_USER + 1;

/// The template as a host would have it; the first field stretches.
std::u16string DialogText()
{
    std::u16string text = u"dialog 11001 \"Fifty controls\" 200x360 resizable\n";
    for (int row = 0; row < ROWS; ++row)
    {
        CString lines;
        lines.Format(u"text \"Label %d:\" 6,%d 60x8\nedit %d 70,%d 120x12\n", row, row * 14 + 6,
                     row + 100, row * 14 + 4);
        text += lines.View();
    }
    return text + u"end\n";
}

class COurDialog : public CResizeDialog
{
public:
    COurDialog() : CResizeDialog(DIALOG_ID, nullptr) { Create(DIALOG_ID); }
    int m_Heard = 0;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == POSTED_MESSAGE)
            m_Heard++;
        return CResizeDialog::WindowProc(message, wParam, lParam);
    }
};

class CPeerDialog : public QDialog
{
public:
    CPeerDialog()
    {
        auto* const grid = new QGridLayout(this);
        for (int row = 0; row < ROWS; ++row)
        {
            grid->addWidget(new QLabel(QString(QStringLiteral("Label %1:")).arg(row)), row, 0);
            grid->addWidget(new QLineEdit, row, 1);
        }
    }
    int m_Heard = 0;

protected:
    void customEvent(QEvent*) override { m_Heard++; }
};

void DialogShownOurs(benchmark::State& state)
{
    for ([[maybe_unused]] auto _ : state)
    {
        COurDialog dialog;
        dialog.ShowWindow(SW_SHOW);
        QCoreApplication::processEvents();
        dialog.DestroyWindow();
    }
}
BENCHMARK(DialogShownOurs)->Name("DialogShown/ours")->Unit(benchmark::kMillisecond);

void DialogShownPeer(benchmark::State& state)
{
    for ([[maybe_unused]] auto _ : state)
    {
        CPeerDialog dialog;
        dialog.show();
        QCoreApplication::processEvents();
    }
}
BENCHMARK(DialogShownPeer)->Name("DialogShown/peer")->Unit(benchmark::kMillisecond);

void ResizeStepOurs(benchmark::State& state)
{
    COurDialog dialog;
    dialog.ShowWindow(SW_SHOW);
    QCoreApplication::processEvents();
    const CRect place = dialog.GetWindowRect();
    int step = 0;
    for ([[maybe_unused]] auto _ : state)
    {
        CRect next = place;
        next.right += ++step % 100;
        next.bottom += step % 100;
        dialog.MoveWindow(next);
        QCoreApplication::processEvents();
    }
    dialog.DestroyWindow();
}
BENCHMARK(ResizeStepOurs)->Name("ResizeStep/ours")->Unit(benchmark::kMicrosecond);

void ResizeStepPeer(benchmark::State& state)
{
    CPeerDialog dialog;
    dialog.show();
    QCoreApplication::processEvents();
    const QSize size = dialog.size();
    int step = 0;
    for ([[maybe_unused]] auto _ : state)
    {
        ++step;
        dialog.resize(size + QSize(step % 100, step % 100));
        QCoreApplication::processEvents();
    }
}
BENCHMARK(ResizeStepPeer)->Name("ResizeStep/peer")->Unit(benchmark::kMicrosecond);

void PostsOurs(benchmark::State& state)
{
    COurDialog dialog;
    for ([[maybe_unused]] auto _ : state)
    {
        dialog.m_Heard = 0;
        for (int i = 0; i < POSTS; ++i)
            dialog.PostMessage(POSTED_MESSAGE);
        while (dialog.m_Heard < POSTS)
            QCoreApplication::processEvents();
    }
    dialog.DestroyWindow();
}
BENCHMARK(PostsOurs)->Name("ThousandPosts/ours")->Unit(benchmark::kMicrosecond);

void PostsPeer(benchmark::State& state)
{
    CPeerDialog dialog;
    for ([[maybe_unused]] auto _ : state)
    {
        dialog.m_Heard = 0;
        for (int i = 0; i < POSTS; ++i)
            QCoreApplication::postEvent(&dialog, new QEvent(QEvent::User));
        while (dialog.m_Heard < POSTS)
            QCoreApplication::processEvents();
    }
}
BENCHMARK(PostsPeer)->Name("ThousandPosts/peer")->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    benchmark::Initialize(&argc, argv);
    CWindowSystem windows;
    CString reason;
    CDialogTextFault fault;
    if (!windows.Start(argc, argv, reason) || !CResourceTables::AddDialogs(DialogText(), fault))
    {
        std::cerr << ToUtf8(reason.View()) << '\n';
        return NO_DISPLAY_EXIT;
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
