#include "DeskSettings.h"

#include "settings/AppRegistry.h"
#include "text/numbers/LengthUnit.h"

using namespace utility;

namespace partsdesk
{

namespace
{

constexpr char16_t SETTINGS_KEY[] = u"Desk";
constexpr char16_t COLUMNS[] = u"Columns";
constexpr char16_t IDLE_MILLISECONDS[] = u"IdleMilliseconds";
constexpr char16_t PITCH[] = u"Pitch";
constexpr char16_t DATABASE[] = u"Database";

void LoadNumber(CAppRegistry& registry, const char16_t* name, int most, int& number)
{
    int stored = number;
    registry.GetValue(name, stored);
    if (stored >= 1 && stored <= most)
        number = stored;
}

CLengthUnit UnitOf(EBaseLengthUnit unit)
{
    return CLengthUnit(unit, 1.0, false, false);
}

} // namespace

void CDeskSettings::Load()
{
    CAppRegistry registry(SETTINGS_KEY);
    LoadNumber(registry, COLUMNS, MOST_COLUMNS, m_Columns);
    LoadNumber(registry, IDLE_MILLISECONDS, MOST_IDLE_MILLISECONDS, m_IdleMilliseconds);
    CString pitch;
    double millimetres = 0;
    if (registry.GetValue(PITCH, pitch) && ReadPitch(pitch, millimetres))
        m_Pitch = pitch;
    registry.GetValue(DATABASE, m_Database);
}

void CDeskSettings::Save() const
{
    CAppRegistry registry(SETTINGS_KEY);
    registry.SetValue(COLUMNS, m_Columns);
    registry.SetValue(IDLE_MILLISECONDS, m_IdleMilliseconds);
    registry.SetValue(PITCH, m_Pitch);
    registry.SetValue(DATABASE, m_Database);
}

bool ReadPitch(const CString& text, double& millimetres)
{
    const CLengthUnit unit = UnitOf(EBaseLengthUnit::Millimetre);
    CString rest(text);
    double read = 0;
    if (!CLengthUnit::ReadLengthValue(unit, unit, rest, read) || read <= 0)
        return false;
    millimetres = read;
    return true;
}

CString BodyLength(int pins, double pitch)
{
    if (pins < 2)
        return CString();
    const CLengthUnit metric = UnitOf(EBaseLengthUnit::Millimetre);
    const double length = pins / 2 * pitch;
    CString inThou;
    UnitOf(EBaseLengthUnit::Thou).Convert(length, metric, inThou);
    return metric.Convert(length) + u" mm (" + inThou + u" thou)";
}

} // namespace partsdesk
