#include "platform/backend/qt/ComboBoxPeer.h"
#include "platform/ui/ControlStyles.h"
#include "platform/ui/controls/ComboBoxMessages.h"

#include <QLineEdit>

namespace utility
{

CComboBoxPeer::CKeepField::CKeepField(CComboBoxPeer& peer)
    : m_Box(peer.Box()),
      m_HadRow(m_Box.currentIndex() >= 0),
      m_Text(m_Box.currentText())
{
}

CComboBoxPeer::CKeepField::~CKeepField()
{
    // The widget takes the first row that comes.
    if (!m_HadRow && m_Box.currentIndex() >= 0)
        m_Box.setCurrentIndex(-1);
    if (m_Box.isEditable() && m_Box.currentText() != m_Text)
        m_Box.lineEdit()->setText(m_Text);
}

LRESULT CComboBoxPeer::OnAddString(WPARAM, LPARAM text)
{
    const CKeepField keep(*this);
    return m_Model.Add(reinterpret_cast<const char16_t*>(text), (GetStyle() & CBS_SORT) != 0);
}

LRESULT CComboBoxPeer::OnInsertString(WPARAM row, LPARAM text)
{
    const CKeepField keep(*this);
    return m_Model.AnswerInsert(row, text);
}

LRESULT CComboBoxPeer::OnDeleteString(WPARAM row, LPARAM)
{
    const auto number = static_cast<int>(row);
    if (!m_Model.Has(number) || m_Model.HasForeignRows())
        return CB_ERR;
    const CKeepField keep(*this);
    if (Box().currentIndex() == number)
        Box().setCurrentIndex(-1);
    m_Model.Delete(number);
    return m_Model.GetCount();
}

LRESULT CComboBoxPeer::OnResetContent(WPARAM, LPARAM)
{
    m_IsEdited = false;
    m_Model.Clear();
    Box().setCurrentIndex(-1);
    return 0;
}

LRESULT CComboBoxPeer::OnSetRows(WPARAM, LPARAM rows)
{
    const CKeepField keep(*this);
    m_Model.SetForeignRows(reinterpret_cast<const IComboRows*>(rows));
    Box().setCurrentIndex(-1);
    return 0;
}

} // namespace utility
