#pragma once

namespace utility
{

class CDBFieldMap;
class CDBTableMap;

/// Prints one table's field map: its columns, then what is said of the table itself.
void PrintFieldMap(const CDBFieldMap& map, bool json);

/// Prints the field maps of many tables, one a line.
void PrintTableMap(const CDBTableMap& maps, bool json);

} // namespace utility
