#pragma once

#include "platform/base/String.h"

namespace partsdesk
{

/// What the user has chosen, kept in the settings store between runs.
struct CDeskSettings
{
    int m_Columns = 4;                     // shown of each part in the list
    int m_IdleMilliseconds = 10;           // a step of reading while nothing else is to do
    utility::CString m_Pitch = u"2.54 mm"; // of pins on a board, as typed
    utility::CString m_Database;           // read at last

    /// What is absent keeps its default, and what is out of range too.
    void Load();
    void Save() const;

    static constexpr int MOST_COLUMNS = 20;
    static constexpr int MOST_IDLE_MILLISECONDS = 200;
};

/// The length in millimetres; false, and `millimetres` is left alone, for what is no length or not
/// above 0. A number without a unit is in millimetres.
[[nodiscard]] bool ReadPitch(const utility::CString& text, double& millimetres);

/// How long a body with two rows of pins is, such as "7.62 mm (300 thou)"; empty for fewer than two
/// pins.
utility::CString BodyLength(int pins, double pitch);

} // namespace partsdesk
