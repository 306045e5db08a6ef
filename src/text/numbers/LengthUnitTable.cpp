#include "text/numbers/LengthUnitTable.h"

#include "resources/StringIds.h"

namespace utility
{

namespace
{

constexpr CLengthUnitRow ROWS[] = {
    {EBaseLengthUnit::Inch, IDS_INCH, u"inch", IDS_INCH_SHORT, u"\"", false, 254000},
    {EBaseLengthUnit::Thou, IDS_THOU, u"thou", IDS_THOU_SHORT, u"thou", false, 254},
    {EBaseLengthUnit::Metre, IDS_METRE, u"metre", IDS_METRE_SHORT, u"m", true, 10000000},
    {EBaseLengthUnit::Millimetre, IDS_MILLIMETRE, u"mm", IDS_MILLIMETRE_SHORT, u"mm", true, 10000},
    {EBaseLengthUnit::Micron, IDS_MICRON, u"micron", IDS_MICRON_SHORT, u"um", true, 10},
    {EBaseLengthUnit::Centimetre, IDS_CENTIMETRE, u"cm", IDS_CENTIMETRE_SHORT, u"cm", true, 100000},
    {EBaseLengthUnit::Mils, IDS_MILS, u"mils", IDS_MILS_SHORT, u"mil", false, 254},
};

} // namespace

std::span<const CLengthUnitRow> GetLengthUnitRows()
{
    return ROWS;
}

} // namespace utility
