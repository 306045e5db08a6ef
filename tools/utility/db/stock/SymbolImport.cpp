#include "utility/db/stock/SymbolImport.h"

#include "files/FilePath.h"
#include "frame/AppError.h"
#include "frame/AppLog.h"
#include "platform/system/file/File.h"
#include "platform/system/file/FileFind.h"
#include "platform/system/file/FileStatus.h"
#include "platform/system/file/NativePath.h"
#include "resources/StringIds.h"

#include "utility/db/DbTrace.h"
#include "utility/form/FormScanner.h"
#include "utility/host/Interrupt.h"
#include "utility/output/RowProgress.h"
#include "utility/output/ToolOutput.h"

namespace utility
{

namespace
{

constexpr char16_t PATTERN[] = u"*.kicad_sym";

bool TellFailure(const CString& path)
{
    PrintError(NativePath(path) + u": " + CAppError::GetLastErrorString());
    return false;
}

bool TellFault(const CString& path, const CFormScanner& scanner)
{
    if (!scanner.GetFault())
        return TellFailure(path);
    PrintError(DescribeFault(path, *scanner.GetFault()));
    return false;
}

} // namespace

bool CSymbolImport::Check(const CString& folder)
{
    if (!FindFiles(folder))
        return false;
    CRowProgress progress(u"Checking", m_Bytes);
    std::int64_t done = 0;
    for (const CSource& file : m_Files)
    {
        CFormScanner scanner;
        if (IsInterrupted() || !ScanFormFile(file.m_Path, scanner))
        {
            progress.End();
            return IsInterrupted() ? TellInterrupt() : TellFault(file.m_Path, scanner);
        }
        progress.Step(done += file.m_Length, 0);
    }
    return true;
}

bool CSymbolImport::FindFiles(const CString& folder)
{
    CFileStatus status;
    if (!CFile::GetStatus(folder, status))
        return TellFailure(folder);
    CFileFind find;
    bool more = find.FindFile(folder + u"/" + PATTERN);
    while (more)
    {
        more = find.FindNextFile();
        if (find.IsDirectory())
            continue;
        m_Files.push_back({find.GetFilePath(), find.GetLength()});
        m_Bytes += find.GetLength();
    }
    if (!m_Files.empty())
        return true;
    PrintError(NativePath(folder) + u": there are no symbol libraries (" + PATTERN + u")");
    return false;
}

bool CSymbolImport::Store(CDBADatabase& database)
{
    CSymbolTable table(database);
    table.Create();
    CRowProgress progress(u"Importing", m_Bytes);
    std::int64_t done = 0;
    for (const CSource& file : m_Files)
    {
        if (IsInterrupted() || !StoreFile(file, table))
        {
            progress.End();
            return IsInterrupted() ? TellInterrupt() : TellFailure(file.m_Path);
        }
        progress.Step(done += file.m_Length, m_Symbols);
    }
    return true;
}

bool CSymbolImport::StoreFile(const CSource& file, CSymbolTable& table)
{
    std::vector<CSymbol> symbols;
    if (!ReadSymbolLibrary(file.m_Path, symbols) ||
        !table.Store(CFilePath(file.m_Path).GetFileName(), symbols, m_Changes))
        return false;
    CAppLog::Log(DbContext(), u"%1: %2!d! symbols\n", NativePath(file.m_Path),
                 static_cast<int>(symbols.size()));
    m_Libraries++;
    m_Symbols += static_cast<std::int64_t>(symbols.size());
    return true;
}

bool CSymbolImport::TellInterrupt() const
{
    CString text;
    text.Format(u"interrupted: %d of %d libraries are stored", static_cast<int>(m_Libraries),
                static_cast<int>(m_Files.size()));
    PrintError(text);
    return false;
}

} // namespace utility
