#pragma once

#include "platform/base/CaseFold.h"
#include "platform/ui/dialogtext/ControlLineReader.h"
#include "platform/ui/dialogtext/DialogLineReader.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace utility
{

/// Reads a text of dialog templates (docs/formats/dialog-template.md) line by line.
///
/// The one reader of the form: it runs when a text in a source is compiled (DialogText.h), and when
/// a host adds a text that it has from elsewhere. Linear, but for the sorts of ids.
class CDialogTextReader
{
public:
    constexpr explicit CDialogTextReader(std::u16string_view text) : m_Scanner(text) {}

    /// The next dialog's line; false at the end of the text, or at a fault.
    constexpr bool ReadDialog(CDialogLine& dialog)
    {
        if (GetFault())
            return false;
        if (!m_Scanner.NextLine())
            return RefuseSecond(m_Keys, EDialogTextNeed::OtherKey);
        dialog = {};
        dialog.m_Start = m_Scanner.GetPlace();
        if (!CDialogLineReader(m_Scanner).Read(dialog))
            return false;

        m_Keys.push_back({dialog.m_Id, dialog.m_Name, m_Scanner.At(dialog.m_KeyPlace)});
        m_Size = dialog.m_Place;
        m_Ids.clear();
        m_IsLabelBefore = false;
        return true;
    }

    /// The next control of that dialog; false behind the last, or at a fault.
    constexpr bool ReadControl(CControlLine& control)
    {
        if (GetFault())
            return false;
        std::u16string_view word;
        const bool isThere = m_Scanner.NextLine();
        const std::size_t start = m_Scanner.GetPlace();
        if (!isThere || !m_Scanner.TakeWord(word))
            return m_Scanner.Note(EDialogTextNeed::ControlOrEnd);
        if (word == u"end")
            return EndDialog();

        const auto kind = std::ranges::find(CONTROL_WORDS, word, &CControlWord::m_Word);
        if (kind == std::end(CONTROL_WORDS))
            return m_Scanner.NoteAt(start, EDialogTextNeed::ControlOrEnd);
        if (!CControlLineReader(m_Scanner).Read(*kind, start, m_IsLabelBefore, control))
            return false;
        if (!IsInsideDialog(control.m_Place))
            return m_Scanner.NoteAt(start, EDialogTextNeed::PlaceInsideDialog);

        m_IsLabelBefore = control.m_IsLabel;
        if (control.m_Id != 0)
            m_Ids.push_back({control.m_Id, {}, m_Scanner.At(control.m_IdPlace)});
        return true;
    }

    /// Behind what was read last.
    constexpr std::size_t GetPlace() const { return m_Scanner.GetPlace(); }
    constexpr const CDialogTextFault& GetFault() const { return m_Scanner.GetFault(); }

private:
    /// An id or a name, and where it stands.
    struct CKey
    {
        UINT m_Id = 0;
        std::u16string_view m_Name;
        CDialogTextFault m_Place;
    };

    /// Names are words, whose letters are plain; their case does not matter.
    static constexpr bool IsBefore(const CKey& left, const CKey& right)
    {
        if (left.m_Id != right.m_Id)
            return left.m_Id < right.m_Id;
        return std::ranges::lexicographical_compare(left.m_Name, right.m_Name, {}, ToLower,
                                                    ToLower);
    }

    /// Notes the later of the first two equal keys; always false.
    constexpr bool RefuseSecond(std::vector<CKey>& keys, EDialogTextNeed need)
    {
        const auto inOrder = [](const CKey& left, const CKey& right)
        {
            if (IsBefore(left, right) || IsBefore(right, left))
                return IsBefore(left, right);
            return left.m_Place.m_Offset < right.m_Place.m_Offset;
        };
        std::sort(keys.begin(), keys.end(), inOrder);
        const auto isSame = [](const CKey& left, const CKey& right)
        {
            return !IsBefore(left, right) && !IsBefore(right, left);
        };
        const auto first = std::adjacent_find(keys.begin(), keys.end(), isSame);
        return first != keys.end() && m_Scanner.Note(std::next(first)->m_Place, need);
    }

    constexpr bool IsInsideDialog(const CUnitPlace& place) const
    {
        return place.m_X + place.m_Width <= m_Size.m_Width &&
               place.m_Y + place.m_Height <= m_Size.m_Height;
    }

    /// Always false: no control follows.
    constexpr bool EndDialog()
    {
        m_Scanner.SkipBlanks();
        if (!m_Scanner.IsAtLineEnd())
            return m_Scanner.Note(EDialogTextNeed::LineEnd);
        return RefuseSecond(m_Ids, EDialogTextNeed::OtherId);
    }

    CDialogTextScanner m_Scanner;
    std::vector<CKey> m_Keys; // of the dialogs so far
    CUnitPlace m_Size;        // of the dialog that is being read
    std::vector<CKey> m_Ids;  // of its controls so far
    bool m_IsLabelBefore = false;
};

} // namespace utility
