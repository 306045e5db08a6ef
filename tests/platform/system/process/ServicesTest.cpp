#include "platform/system/process/Services.h"

#include "platform/base/ErrorCodes.h"
#include "platform/base/LastError.h"
#include "platform/system/process/Handle.h"

#include "support/ServiceManagerStandIn.h"

#include <gtest/gtest.h>

namespace utility
{

namespace
{

class ServicesTest : public testing::Test
{
protected:
    ServicesTest()
    {
        CStandInUnit unit;
        unit.m_ActiveState = "active";
        m_Manager.SetUnit("board.service", unit);
        m_Open = OpenSCManagerW(nullptr, SC_MANAGER_CONNECT);
        m_Service = OpenServiceW(m_Open, u"board", SERVICE_STOP);
    }
    ~ServicesTest() override
    {
        CloseServiceHandle(m_Service);
        CloseServiceHandle(m_Open);
    }

    CServiceManagerStandIn m_Manager;
    SC_HANDLE m_Open = nullptr;
    SC_HANDLE m_Service = nullptr;
};

} // namespace

TEST_F(ServicesTest, OrderedStopIsPendingThoughTheManagerHasNotBegun)
{
    SERVICE_STATUS status;
    ASSERT_TRUE(
        ControlService(m_Service, SERVICE_CONTROL_STOP, status)); // "active", with the order
    EXPECT_EQ(status.dwCurrentState, SERVICE_STOP_PENDING);
    EXPECT_EQ(WaitForSingleObject(m_Service, INFINITE), WAIT_OBJECT_0);
    ASSERT_TRUE(QueryServiceStatus(m_Service, status)); // "deactivating"
    EXPECT_EQ(status.dwCurrentState, SERVICE_STOP_PENDING);
    ASSERT_TRUE(QueryServiceStatus(m_Service, status));
    EXPECT_EQ(status.dwCurrentState, SERVICE_STOPPED);

    EXPECT_FALSE(ControlService(m_Service, SERVICE_CONTROL_STOP, status));
    EXPECT_EQ(GetLastError(), ERROR_SERVICE_NOT_ACTIVE);
    EXPECT_FALSE(ControlService(m_Service, 2, status));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
}

TEST_F(ServicesTest, ServiceOutlivesItsManagersHandle)
{
    EXPECT_TRUE(CloseServiceHandle(m_Open));
    EXPECT_TRUE(StartServiceW(m_Service));
    EXPECT_EQ(WaitForSingleObject(m_Service, 0), WAIT_TIMEOUT); // nothing was asked to be told
    EXPECT_EQ(OpenServiceW(m_Open, u"board", SERVICE_STOP), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
}

TEST_F(ServicesTest, HandlesOfTheOtherKindAreRefused)
{
    SERVICE_STATUS status;
    EXPECT_FALSE(QueryServiceStatus(m_Open, status));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    EXPECT_EQ(OpenServiceW(m_Service, u"board", SERVICE_STOP), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
}

TEST_F(ServicesTest, BusThatVanishesIsTold)
{
    m_Manager.EndBus();
    SERVICE_STATUS status;
    EXPECT_FALSE(QueryServiceStatus(m_Service, status));
    EXPECT_EQ(GetLastError(), ERROR_BROKEN_PIPE);
    EXPECT_FALSE(StartServiceW(m_Service));
    EXPECT_EQ(GetLastError(), ERROR_BROKEN_PIPE);
    EXPECT_EQ(WaitForSingleObject(m_Service, INFINITE), WAIT_FAILED);
    EXPECT_EQ(OpenSCManagerW(nullptr, SC_MANAGER_CONNECT), nullptr);
    EXPECT_EQ(GetLastError(), RPC_S_SERVER_UNAVAILABLE);
}

} // namespace utility
