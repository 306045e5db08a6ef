#include "files/AutoFileListWatch.h"

#include "files/AutoFileList.h"
#include "text/ExpandVariables.h"

namespace utility
{

bool CAutoFileListWatch::Start(bool dropVanished, std::function<void()> changed)
{
    std::vector<CString> folders;
    POSITION position = nullptr;
    for (CString folder = m_List.FirstEnabledNonVaultDir(position); position;
         folder = m_List.NextEnabledNonVaultDir(position))
    {
        ExpandVariables(folder);
        folders.push_back(folder);
    }
    return m_Watch.Start(folders,
                         [&list = m_List, dropVanished, changed = std::move(changed)]
                         {
                             if (list.RefreshFiles(dropVanished))
                                 changed();
                         });
}

} // namespace utility
