#pragma once

#include "platform/base/Export.h"
#include "platform/base/String.h"

#include <string_view>

namespace utility
{

// The longest texts of a path and its parts, in units.
constexpr int PATH_LIMIT = 259;
constexpr int DRIVE_LIMIT = 2;
constexpr int DIRECTORY_LIMIT = 255;
constexpr int FILE_NAME_LIMIT = 255;
constexpr int EXTENSION_LIMIT = 255;

/// The four parts of a path; put one behind the other they are the path again.
struct CPathParts
{
    CString m_Drive;     // with its colon
    CString m_Directory; // with its closing separator
    CString m_FileName;
    CString m_Extension; // with its dot
};

/// Cuts a path into its parts, as text alone: no disk is asked. Both separators count.
///
///     path                 drive  directory  name   extension
///     "C:\dir\name.ext"    "C:"   "\dir\"    name   .ext
///     "a/b.c/d"            ""     "a/b.c/"   d
///     ".config"            ""     ""                .config
///     "x.tar.gz"           ""     ""         x.tar  .gz
///     "\\srv\lib\"         ""     the whole
///
/// A part above its limit is cut to it, and `wasCut`, where given, tells so; otherwise it keeps its
/// preset.
UTILITY_CORE_API CPathParts _wsplitpath(std::u16string_view path, bool* wasCut = nullptr);

/// Joins the parts, each may be empty, and puts in what is missing between them.
///
///     drive   its first unit and a colon
///     directory   "\" behind it, unless it ends in a separator
///     extension   "." before it, unless it has one
///
/// A path above its limit is cut to it, and `wasCut`, where given, tells so.
UTILITY_CORE_API CString _wmakepath(const CPathParts& parts, bool* wasCut = nullptr);

} // namespace utility
