#pragma once

namespace utility
{

/// A settings key of a test's own: while it lives, the application is "Test Makers" with a registry
/// name that no other test has.
class CSettingsSandbox
{
public:
    CSettingsSandbox();
    ~CSettingsSandbox();
    CSettingsSandbox(const CSettingsSandbox&) = delete;
    CSettingsSandbox& operator=(const CSettingsSandbox&) = delete;
};

} // namespace utility
