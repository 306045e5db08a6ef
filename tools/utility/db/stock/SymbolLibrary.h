#pragma once

#include "platform/base/String.h"

#include <vector>

namespace utility
{

/// A schematic symbol with what a search asks for.
struct CSymbol
{
    CString m_Library; // the file's name without extension
    CString m_Name;
    CString m_Reference; // "U"
    CString m_Value;
    CString m_Footprint;
    CString m_Datasheet;
    CString m_Description;
    CString m_Keywords;
    CString m_Filters; // footprints that fit, with wildcards
    CString m_Extends; // the symbol that pins and units are taken from; empty for most
    int m_Pins = 0;    // different pin numbers over all units
    int m_Units = 0;
};

/// Reads the symbols of a library file (*.kicad_sym, UTF-8 in every locale), in the file's order.
///
/// The text is taken to be sound: see ScanFormFile. Unit bodies within a symbol are no symbols of
/// their own. False with the last error if the file cannot be read, holds no library, or a symbol
/// stands twice or extends one that is not there.
[[nodiscard]] bool ReadSymbolLibrary(const CString& path, std::vector<CSymbol>& symbols);

} // namespace utility
