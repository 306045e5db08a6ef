#include "support/Sandbox.h"

#include <clocale>
#include <stdlib.h>
#include <time.h>

namespace utility
{

CSandbox::CSandbox()
{
    const std::filesystem::path& root = m_Folder.GetNativePath();
    m_Folder.MakeFolder(u"settings");
    m_Folder.MakeFolder(u"home");
    m_Folder.MakeFolder(u"run");
    setenv("UTILITY_SETTINGS_DIR", (root / "settings").c_str(), 1);
    setenv("HOME", (root / "home").c_str(), 1);
    std::filesystem::permissions(root / "run", std::filesystem::perms::owner_all);
    setenv("XDG_RUNTIME_DIR", (root / "run").c_str(), 1);
    for (const char* name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CONFIG_DIRS"})
        unsetenv(name);

    setenv("TZ", "UTC", 1);
    tzset();
    setenv("LC_ALL", "C.UTF-8", 1);
    setlocale(LC_ALL, "");
    setlocale(LC_NUMERIC, "C");
}

} // namespace utility
