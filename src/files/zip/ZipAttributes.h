#pragma once

#include "platform/base/Types.h"

namespace utility
{

/// What made an entry, in the high byte of its version, and its attributes there, as bits of
/// `CFileStatus::m_attribute`.
///
///     host 0, 7, 11, 14   the DOS bits: read-only 1, hidden 2, system 4, folder 16, archive 32
///     others              the Unix mode in the high half: folder 16; without the owner's write
///                         bit 1
///
/// A name that ends in a separator is a folder whatever the attributes say.
DWORD ZipAttributesOf(unsigned host, DWORD external, bool isFolderName);

/// Whether it is a symbolic link where it was made; here it becomes a plain file.
bool IsZipLink(unsigned host, DWORD external);

/// What is written for a file or a folder.
DWORD ExternalZipAttributes(bool isFolder, bool isReadOnly);

} // namespace utility
