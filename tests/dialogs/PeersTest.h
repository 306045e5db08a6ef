#pragma once

#include "platform/system/window/WindowPeer.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace utility
{

/// What stands behind the windows of a test.
enum class EPeers
{
    PlainValues,
    Widgets
};

/// A test that needs no pixel, and so runs over plain values and over widgets.
class CPeersTest : public testing::TestWithParam<EPeers>
{
protected:
    CPeersTest()
    {
        if (GetParam() == EPeers::PlainValues)
            m_Widgets = SetWindowPeerFactory(m_PlainValues.get());
    }
    ~CPeersTest() override
    {
        if (GetParam() == EPeers::PlainValues)
            SetWindowPeerFactory(m_Widgets);
    }

private:
    std::unique_ptr<IWindowPeerFactory> m_PlainValues = MakeHeadlessWindowPeerFactory();
    IWindowPeerFactory* m_Widgets = nullptr;
};

inline auto AllPeers()
{
    return testing::Values(EPeers::PlainValues, EPeers::Widgets);
}

inline std::string NamePeers(const testing::TestParamInfo<EPeers>& info)
{
    return info.param == EPeers::PlainValues ? "PlainValues" : "Widgets";
}

} // namespace utility
