#pragma once

#include "utility/db/stock/PassiveValue.h"

namespace utility
{

/// A resistor, capacitor or inductor of a stock that looks real.
struct CPassive
{
    CString m_Name; // its key: "R0603-4k7-1%"
    CString m_Kind;
    CString m_Value; // as one of many people wrote it: 4k7, 4.7K, 4700
    CString m_Package;
    CString m_Tolerance;
    CString m_Rating;
    int m_Stock = 0;
    double m_Nominal = 0; // what the value stands for, in ohms, farads or henries
};

/// More than 33,000 parts: the values of E24 and E96 in each package and tolerance. The same at
/// each call.
std::vector<CPassive> MakePassiveStock();

} // namespace utility
