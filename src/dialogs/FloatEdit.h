#pragma once

#include "dialogs/controls/EditCtrl.h"

#include <span>

namespace utility
{

/// A field for one number.
///
/// While the user has changed nothing `GetValue` gives the number exactly as it was set, whatever
/// of it the field shows.
class UTILITY_UI_API CFloatEdit : public CEditCtrl
{
    DECLARE_DYNAMIC(CFloatEdit)

public:
    /// False, and `value` keeps its preset, if the text does not begin with a number. What stands
    /// behind the number does not count: "12 mm" is 12.
    [[nodiscard]] bool GetValue(double& value) const;
    /// Shows the number with as many decimals as the precision says.
    void SetValue(double value);
    /// Shows the number of several objects: "<Different>" if they do not agree.
    void SetValues(std::span<const double> values);

    /// Decimals of what is set from now on; 3 at first.
    void SetPrecision(int precision) { m_Precision = precision; }
    /// Whether the field holds another number than was set; any text but "<Different>" where
    /// numbers differed.
    bool IsModified() const { return m_IsModified; }
    void SetModified(bool isModified) { m_IsModified = isModified; }

protected:
    bool OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;

private:
    void SetDifferentValues();
    void OnChange();

    double m_Value = 0;
    double m_ValueAsSet = 0;
    int m_Precision = 3;
    bool m_IsModified = false;
    bool m_HasDifferentValues = false;
};

} // namespace utility
