#pragma once

#include "platform/base/String.h"
#include "platform/base/StringHash.h"

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace utility
{

/// What becomes an entry of a new archive.
struct CZipPart
{
    CString m_Name; // in the archive; a folder's ends in "/"
    CString m_Path;
    bool m_IsFolder = false;
    std::int64_t m_Size = 0;
};

/// Gathers the parts of an archive, each name once. What cannot be taken is told on the error
/// output.
///
/// Links that are named are followed; below a folder, those to files are. Links to folders are
/// passed over, so that nothing is taken twice or for ever.
class CZipGathering
{
public:
    /// The archive itself does not become a part.
    explicit CZipGathering(const CString& archive);

    /// A file, or a folder with all below it; false if it is not there, or if the user stops it.
    [[nodiscard]] bool Gather(const CString& path);

    const std::vector<CZipPart>& GetParts() const { return m_Parts; }
    std::uint64_t GetSize() const { return m_Size; }
    /// What was told of below the folders, but is no failure.
    int GetPassedOver() const { return m_PassedOver; }

private:
    bool GatherFolder(const CString& name, const CString& path);
    bool AddFolder(const CString& name, const CString& path);
    bool AddFile(const CString& name, const CString& path);
    bool Add(CZipPart part);
    void PassOver(const CString& path);

    std::string m_Archive; // on disk
    std::vector<CZipPart> m_Parts;
    std::vector<CZipPart> m_Waiting; // folders
    std::unordered_map<CString, std::size_t, CStringHash, CStringEqual> m_Names;
    std::uint64_t m_Size = 0;
    int m_PassedOver = 0;
};

} // namespace utility
