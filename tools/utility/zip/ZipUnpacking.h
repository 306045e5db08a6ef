#pragma once

#include "platform/base/StringHash.h"

#include "utility/output/ByteProgress.h"

#include <unordered_set>
#include <vector>

namespace utility
{

class CCommandCall;
class CConfinedFile;
class CConfinedFolder;
class CZipArchive;

/// Unpacks one entry after the other below a folder, and counts. What fails or is kept is told on
/// the error output.
class CZipUnpacking
{
public:
    /// `total` bytes will come, for the progress bar.
    CZipUnpacking(const CZipArchive& archive, const CConfinedFolder& folder, bool overwrites,
                  std::uint64_t total);

    void Unpack(int index);
    /// Gives the folders their dates, once nothing comes into them any more.
    void End();

    /// Prints how it went; the command's result.
    int Tell(const CCommandCall& call) const;

private:
    void UnpackFolder(int index, const CString& name);
    void UnpackFile(int index, const CString& name);
    bool Write(int index, const CString& name, CConfinedFile& file);
    bool SetDates(int index, const CConfinedFile& file) const;
    void Fail(const CString& name, const CString& reason);
    void FailBySystem(const CString& name);
    void Keep(const CString& name, const CString& reason);
    CString GetSummary() const;

    const CZipArchive& m_Archive;
    const CConfinedFolder& m_Folder;
    bool m_Overwrites;
    CByteProgress m_Progress;
    std::unordered_set<CString, CNoCaseHash, CNoCaseEqual> m_Names; // of files
    std::vector<int> m_Folders;
    int m_Files = 0;
    int m_Kept = 0;
    int m_Failed = 0;
};

} // namespace utility
