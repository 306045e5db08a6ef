#pragma once

#include "platform/base/String.h"

#include <memory>

namespace utility
{

class CFile;

/// Who may read and write a copy.
enum class ECopyRights
{
    OfTarget,
    OfSource // where the disk keeps them; its owner may always write it
};

/// Copies a file's bytes to a new or emptied file and syncs it. The copy is held open, closed to
/// everybody else; null with the last error if something failed, and then there is no copy.
///
/// Refused with ERROR_SHARING_VIOLATION while somebody writes the file, or has the copy open.
std::unique_ptr<CFile> CopyContent(const CString& from, const CString& to, ECopyRights rights);

} // namespace utility
