#pragma once

#include "StockTable.h"

// What the library does with a stock table; each function runs one road once.

/// All rows into fields that the recordset declares, or that it finds out when it opens.
CTotal ReadDeclared(CStockTable& table);
CTotal ReadDiscovered(CStockTable& table);

/// The first rows as a grid shows them: a query of one's own, each cell a text.
CTotal ShowFirstScreen(CStockTable& table);

/// Adds rows by AddNew and Update in one transaction, which is rolled back.
CTotal AddRows(CStockTable& table, int count);

/// Bytes by which the process has grown once all rows are fetched into a set.
std::int64_t MeasureGrowth(CStockTable& table);

/// Seconds from Cancel, called by another thread, to the end of what it stops.
double MeasureCancelOfQuery(CStockTable& table);
double MeasureCancelOfFetch(CStockTable& table);

/// Rows of one fetched set picked at random, all fields of each; seconds a row.
double MeasureAnyRow(CStockTable& table);

/// Seconds of the longest step in which a grid's rows are fetched while the program is idle, ten
/// milliseconds being asked for.
double MeasureIdleStep(CStockTable& table);

/// Seconds that a grid, all of whose rows were fetched, takes to show those whose value lies within
/// a range, after it had shown those of another; and to order all rows by value.
double MeasureSecondFilter(CStockTable& table);
double MeasureSort(CStockTable& table);
