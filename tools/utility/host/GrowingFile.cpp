#include "utility/host/GrowingFile.h"

namespace utility
{

namespace
{

bool IsSameFile(const CFileStamp& left, const CFileStamp& right)
{
    return left.m_Disk == right.m_Disk && left.m_Number == right.m_Number;
}

} // namespace

bool CGrowingFile::ReadNew(std::string& bytes)
{
    const bool isFirst = !m_File.IsOpen();
    bool isAnew = !isFirst && ReadRest(bytes);
    if (IsOther() && OpenPresent())
    {
        isAnew = !isFirst;
        ReadRest(bytes);
    }
    return isAnew;
}

/// Whether the name leads to a file that is not the open one.
bool CGrowingFile::IsOther() const
{
    CFileStamp present;
    return GetFileStamp(m_Path, present) && !(m_File.IsOpen() && IsSameFile(present, m_Opened));
}

/// In place of the open file, whose number the system cannot give to another one before.
bool CGrowingFile::OpenPresent()
{
    CFileStamp before;
    CFileStamp behind;
    do
    {
        if (m_File.IsOpen())
            m_File.Close();
        if (!GetFileStamp(m_Path, before) ||
            !m_File.Open(m_Path, CFile::modeRead | CFile::shareDenyNone))
            return false;
    } while (!GetFileStamp(m_Path, behind) || !IsSameFile(before, behind));
    m_Opened = behind;
    return true;
}

/// The open file from where reading stands; true if it was cut, and so is read from its start.
bool CGrowingFile::ReadRest(std::string& bytes)
{
    const bool isCut = m_File.GetLength() < m_File.GetPosition();
    if (isCut)
        m_File.SeekToBegin();
    std::array<char, 64 * 1024> block;
    while (const UINT count = m_File.Read(block.data(), static_cast<UINT>(block.size())))
        bytes.append(block.data(), count);
    return isCut;
}

} // namespace utility
