#pragma once

#include "platform/base/Export.h"

namespace utility
{

/// What exactly is wrong with an archive or entry that gave ZIP_CORRUPT.
enum class EZipFault
{
    None,
    // Of the archive
    NoEnd,            // no end record: no zip archive at all, or one that is cut off
    Split,            // in several files
    DirectoryOutside, // the directory does not lie in the file
    DirectoryCut,     // it ends within a record, or holds what is none
    CountWrong,       // fewer or more records than claimed
    LargeDamaged,     // a Zip64 record that is missing or too short
    EntryOutside,     // an entry does not lie before the directory
    Overlap,          // entries share bytes: nobody's archive but a bomb's
    // Of an entry
    NoLocalHeader,
    Method,     // compressed in a way that is not known here
    Encryption, // encrypted in a way that is not known here
    Data,       // the packed data are damaged
    DataCut,    // they end too early
    WrongCrc,
    WrongSize
};

/// Why the last call of the process that gave ZIP_CORRUPT did so.
UTILITY_CORE_API EZipFault GetZipFault();

/// The calls leave it here; always ZIP_CORRUPT.
unsigned FailOnZip(EZipFault fault);

} // namespace utility
