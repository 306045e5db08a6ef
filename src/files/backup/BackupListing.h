#pragma once

namespace utility
{

class CBackupTemplate;
class CFilePath;
class CSortedList;

/// Adds the files of a folder whose names fit a template and whose extension is that of `place`, in
/// the list's order; the design itself is no copy of itself. Folders are not read for, links count
/// as what they lead to.
///
/// The highest number met; -1 if there is none, also if the folder cannot be read.
int ListBackupFiles(const CFilePath& place, const CBackupTemplate& pattern, const CFilePath& design,
                    CSortedList& files);

/// Adds every file of the folder with that extension which the list does not hold.
void ListAllFilesFromFolder(const CFilePath& place, CSortedList& files);

} // namespace utility
