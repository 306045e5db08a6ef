#pragma once

#include "platform/base/Types.h"
#include "platform/system/window/LiveFolder.h"

#include <memory>
#include <mutex>

namespace utility
{

/// The top-level windows of the calling process, as other processes are told of them.
///
/// The main thread changes, any thread may look. Where no runtime folder can be had, the list is
/// kept all the same, and other programs do not see it. A forked process begins with an empty one.
class COwnWindows
{
public:
    static COwnWindows& Get();

    void Add(HWND window, const CString& className, const CString& title);
    void Remove(HWND window);
    void SetTitle(HWND window, const CString& title);
    void BringToTop(HWND window);
    /// The number that others know this program by.
    void SetInstance(int instance);

    CLiveEntry GetEntry() const;

private:
    explicit COwnWindows(const CProcessStamp& process);
    std::size_t Find(HWND window) const;
    void Publish();

    mutable std::mutex m_Lock;
    CLiveEntry m_Entry;
    std::unique_ptr<CLiveReceiver> m_Receiver; // from the first window to the last
};

} // namespace utility
