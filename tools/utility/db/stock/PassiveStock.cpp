#include "utility/db/stock/PassiveStock.h"

#include <cmath>
#include <cstdint>
#include <span>

namespace utility
{

namespace
{

// IEC 60063; E96 follows its formula, E24 does not.
constexpr int E24[] = {100, 110, 120, 130, 150, 160, 180, 200, 220, 240, 270, 300,
                       330, 360, 390, 430, 470, 510, 560, 620, 680, 750, 820, 910};

std::vector<int> MakeE96()
{
    std::vector<int> digits;
    for (int step = 0; step < 96; step++)
        digits.push_back(static_cast<int>(std::lround(100 * std::pow(10.0, step / 96.0))));
    return digits;
}

struct CPackage
{
    const char16_t* m_Name;
    const char16_t* m_Rating;
};

constexpr CPackage RESISTOR_PACKAGES[] = {
    {u"0201", u"0.05W"}, {u"0402", u"0.063W"}, {u"0603", u"0.1W"},  {u"0805", u"0.125W"},
    {u"1206", u"0.25W"}, {u"1210", u"0.5W"},   {u"2010", u"0.75W"}, {u"2512", u"1W"}};
constexpr CPackage CAPACITOR_PACKAGES[] = {
    {u"0402", u"16V"},  {u"0402", u"50V"},  {u"0603", u"16V"},  {u"0603", u"50V"},
    {u"0603", u"100V"}, {u"0805", u"25V"},  {u"0805", u"50V"},  {u"0805", u"100V"},
    {u"1206", u"50V"},  {u"1206", u"100V"}, {u"1206", u"250V"}, {u"1210", u"25V"},
    {u"1210", u"50V"},  {u"1210", u"100V"}, {u"1812", u"50V"},  {u"1812", u"250V"},
    {u"2220", u"50V"},  {u"2220", u"500V"}};
constexpr CPackage INDUCTOR_PACKAGES[] = {{u"0402", u"0.3A"}, {u"0603", u"0.5A"},
                                          {u"0805", u"0.8A"}, {u"1008", u"1A"},
                                          {u"1210", u"1.5A"}, {u"1812", u"2A"}};

constexpr const char16_t* FINE[] = {u"0.1%", u"0.5%", u"1%"};
constexpr const char16_t* COARSE[] = {u"2%", u"5%", u"10%"};
constexpr const char16_t* WIDE[] = {u"5%", u"10%", u"20%"};

/// A kind of parts in one series.
struct CRange
{
    const char16_t* m_Kind;
    char16_t m_Letter; // of the names
    CValueLetters m_Letters;
    int m_UnitPower; // the smallest unit as a power of ten
    int m_Decades;
    std::span<const int> m_Series;
    std::span<const CPackage> m_Packages;
    std::span<const char16_t* const> m_Tolerances;
};

/// Scatters a part's number, so that writers and stock look accidental and are the same at each
/// call.
std::uint32_t Scatter(std::size_t number)
{
    auto mixed = static_cast<std::uint32_t>(number) * 2654435761u; // golden ratio, after Knuth
    mixed ^= mixed >> 15;
    return mixed * 2246822519u >> 8;
}

double Nominal(const CNominalValue& value, int unitPower)
{
    return value.m_Digits * std::pow(10.0, value.m_Decade + unitPower - 2);
}

CPassive MakePassive(const CRange& range, const CNominalValue& value, const CPackage& package,
                     const char16_t* tolerance, std::size_t number)
{
    const std::uint32_t chance = Scatter(number);
    const std::vector<CString> ways = FormatValueWays(value, range.m_Letters);
    CPassive part;
    part.m_Kind = range.m_Kind;
    part.m_Value = ways[chance % ways.size()];
    part.m_Package = package.m_Name;
    part.m_Tolerance = tolerance;
    part.m_Rating = package.m_Rating;
    part.m_Name = CString(range.m_Letter) + part.m_Package + u"-" +
                  FormatValueCode(value, range.m_Letters) + u"-" + part.m_Rating + u"-" + tolerance;
    part.m_Stock = chance % 7 == 0 ? 0 : static_cast<int>(chance / 7 % 20000);
    part.m_Nominal = Nominal(value, range.m_UnitPower);
    return part;
}

void AddRange(const CRange& range, std::vector<CPassive>& stock)
{
    for (const CPackage& package : range.m_Packages)
        for (const char16_t* const tolerance : range.m_Tolerances)
            for (int decade = 0; decade < range.m_Decades; decade++)
                for (const int digits : range.m_Series)
                    stock.push_back(
                        MakePassive(range, {digits, decade}, package, tolerance, stock.size()));
}

} // namespace

// The two series of resistors share no tolerance, for they share values.
std::vector<CPassive> MakePassiveStock()
{
    constexpr CValueLetters OHMS{u"RkM", u""};
    constexpr CValueLetters FARADS{u"pnu", u"F"};
    constexpr CValueLetters HENRIES{u"num", u"H"};
    const std::vector<int> e96 = MakeE96();
    std::vector<CPassive> stock;
    AddRange({u"Resistor", u'R', OHMS, 0, 7, e96, RESISTOR_PACKAGES, FINE}, stock);
    AddRange({u"Resistor", u'R', OHMS, 0, 7, E24, RESISTOR_PACKAGES, COARSE}, stock);
    AddRange({u"Capacitor", u'C', FARADS, -12, 8, E24, CAPACITOR_PACKAGES, WIDE}, stock);
    AddRange({u"Inductor", u'L', HENRIES, -9, 7, E24, INDUCTOR_PACKAGES, COARSE}, stock);
    return stock;
}

} // namespace utility
