#include "platform/backend/qt/ListModel.h"

#include "platform/backend/qt/Values.h"
#include "platform/ui/controls/Button.h"
#include "platform/ui/controls/ComboRows.h"

#include <algorithm>

namespace utility
{

namespace
{

Qt::CheckState ToCheckState(int check)
{
    if (check == BST_INDETERMINATE)
        return Qt::PartiallyChecked;
    return check == BST_CHECKED ? Qt::Checked : Qt::Unchecked;
}

// LB_ERR of lists and CB_ERR of combos.
constexpr LRESULT ROW_ERROR = -1;

CString ToText(LPARAM text)
{
    return reinterpret_cast<const char16_t*>(text);
}

} // namespace

int CListModel::GetCount() const
{
    return m_ForeignRows ? m_ForeignRows->GetCount() : m_Rows.GetCount();
}

CString CListModel::GetText(int row) const
{
    return m_ForeignRows ? m_ForeignRows->GetText(row) : m_Rows.Get(row).m_Text;
}

LPARAM CListModel::GetData(int row) const
{
    return m_ForeignRows ? row : m_Rows.Get(row).m_Data;
}

int CListModel::Find(int after, const CString& text, bool isWhole) const
{
    return FindRowAround(GetCount(), after,
                         [&](int row)
                         {
                             const CString found = GetText(row);
                             return isWhole ? found.CompareNoCase(text) == 0
                                            : StartsWithNoCase(found, text);
                         });
}

LRESULT CListModel::AnswerText(WPARAM row, LPARAM buffer) const
{
    if (!Has(static_cast<int>(row)))
        return ROW_ERROR;
    const CString text = GetText(static_cast<int>(row));
    std::copy_n(text.GetString(), text.GetLength() + 1, reinterpret_cast<char16_t*>(buffer));
    return text.GetLength();
}

LRESULT CListModel::AnswerTextLength(WPARAM row) const
{
    const auto number = static_cast<int>(row);
    return Has(number) ? GetText(number).GetLength() : ROW_ERROR;
}

LRESULT CListModel::AnswerData(WPARAM row) const
{
    const auto number = static_cast<int>(row);
    return Has(number) ? GetData(number) : ROW_ERROR;
}

LRESULT CListModel::AnswerSetData(WPARAM row, LPARAM data)
{
    const auto number = static_cast<int>(row);
    if (m_ForeignRows || !Has(number))
        return ROW_ERROR;
    m_Rows.Get(number).m_Data = data;
    return 0;
}

LRESULT CListModel::AnswerInsert(WPARAM row, LPARAM text)
{
    const auto number = static_cast<int>(row);
    if (!Insert(number, ToText(text)))
        return ROW_ERROR;
    return number == -1 ? GetCount() - 1 : number;
}

LRESULT CListModel::AnswerFind(WPARAM after, LPARAM text, bool isWhole) const
{
    return Find(static_cast<int>(after), ToText(text), isWhole);
}

int CListModel::Add(const CString& text, bool isSorted)
{
    const int row = isSorted ? m_Rows.FindPlace(text) : m_Rows.GetCount();
    return Insert(row, text) ? row : -1;
}

bool CListModel::Insert(int row, const CString& text)
{
    const int count = m_Rows.GetCount();
    const int place = row == -1 ? count : row;
    if (m_ForeignRows || place < 0 || place > count)
        return false;
    beginInsertRows({}, place, place);
    m_Rows.Insert(place, text);
    endInsertRows();
    return true;
}

void CListModel::Delete(int row)
{
    beginRemoveRows({}, row, row);
    m_Rows.Delete(row);
    endRemoveRows();
}

void CListModel::Clear()
{
    beginResetModel();
    m_Rows.Clear();
    endResetModel();
}

void CListModel::SetCheck(int row, int check)
{
    m_Rows.Get(row).m_Check = check;
    TellChanged(row);
}

void CListModel::SetEnabled(int row, bool enabled)
{
    m_Rows.Get(row).m_IsEnabled = enabled;
    TellChanged(row);
}

void CListModel::SetHeight(int row, int height)
{
    m_Rows.Get(row).m_Height = height;
    TellChanged(row);
}

void CListModel::SetForeignRows(const IComboRows* rows)
{
    beginResetModel();
    m_Rows.Clear();
    m_ForeignRows = rows;
    endResetModel();
}

void CListModel::ShowChecks(bool shown)
{
    if (m_HasChecks == shown)
        return;
    m_HasChecks = shown;
    if (GetCount() > 0)
        Q_EMIT dataChanged(index(0), index(GetCount() - 1));
}

int CListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : GetCount();
}

QVariant CListModel::data(const QModelIndex& index, int role) const
{
    if (!Has(index.row()))
        return {};
    switch (role)
    {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return ToQString(GetText(index.row()));
    case Qt::CheckStateRole:
        return m_HasChecks ? QVariant(ToCheckState(GetRow(index.row()).m_Check)) : QVariant();
    default:
        return {};
    }
}

Qt::ItemFlags CListModel::flags(const QModelIndex& index) const
{
    if (!Has(index.row()))
        return Qt::NoItemFlags;
    Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
    if (m_HasChecks)
        flags |= Qt::ItemIsUserCheckable;
    return flags;
}

void CListModel::TellChanged(int row)
{
    Q_EMIT dataChanged(index(row), index(row));
}

} // namespace utility
