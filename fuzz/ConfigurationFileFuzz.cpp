#include "frame/Application.h"
#include "platform/system/RegistryHive.h"
#include "settings/AppRegistry.h"
#include "settings/tree/PTNStrategyProfile.h"
#include "settings/tree/PersistentTreeNode.h"
#include "settings/tree/TreeChecksum.h"

#include "FuzzFile.h"
#include "Require.h"

#include <cstdint>
#include <filesystem>

using namespace utility;

namespace
{

constexpr char16_t PROGRAM[] = u"Tool";

/// A store of this process's own in memory.
class CFuzzStore
{
public:
    CFuzzStore() : m_Folder("/dev/shm/settings-fuzz-" + std::to_string(getpid()))
    {
        setenv("UTILITY_SETTINGS_DIR", m_Folder.c_str(), 1);
        ReopenRegistry();
        CApplication::SetRegistryName(PROGRAM);
        CApplication::SetProductName(u"Toolboxes");
    }
    ~CFuzzStore() { std::filesystem::remove_all(m_Folder); }
    CFuzzStore(const CFuzzStore&) = delete;
    CFuzzStore& operator=(const CFuzzStore&) = delete;

private:
    std::string m_Folder;
};

CRegistry ApplicationKey()
{
    return CRegistry(CAppRegistry().GetKey(), HKEY_CURRENT_USER);
}

void Empty()
{
    Require(!ApplicationKey().KeyExists() || ApplicationKey().DeleteKey());
}

/// The file's sum is declared to be the right one, so that what is in the file comes to be stored.
void TrustSum(std::string_view bytes)
{
    SECPTNStrategyProfile content{CString()};
    content.Parse(bytes);
    SMCPersistentTreeNode root;
    UINT sum = 0;
    Require(root.Create(PROGRAM, nullptr) == 0);
    if (root.Load(content) && root.GetUnsigned(u"cs", sum) == 0)
        ApplicationKey().SetValue(u"cfncsOver", DWORD{sum});
}

} // namespace

// What was loaded and can be saved comes back from that file under its own sum, and saves to the
// same bytes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const CFuzzStore store;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const CString file = MakeFuzzFile("configuration", bytes);
    const CString saved = MakeFuzzFile("configuration-saved", {});
    const CString again = MakeFuzzFile("configuration-again", {});

    Empty();
    TrustSum(bytes);
    const bool loaded = ApplicationKey().LoadFromFile(file, CString());
    ApplicationKey().DeleteValue(u"cfncsOver");
    if (loaded && ApplicationKey().SaveToFile(saved, CString(), nullptr))
    {
        Empty();
        Require(ApplicationKey().LoadFromFile(saved, CString()));
        Require(ApplicationKey().SaveToFile(again, CString(), nullptr));
        Require(ReadFuzzFile("configuration-saved") == ReadFuzzFile("configuration-again"));
    }
    for (const char* name : {"configuration", "configuration-saved", "configuration-again"})
        RemoveFuzzFile(name);
    return 0;
}
