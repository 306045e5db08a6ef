#pragma once

#include "platform/ui/controls/ListRows.h"

#include <QAbstractListModel>

namespace utility
{

class IComboRows;

/// The rows of a list or combo for the widget library: own rows, or those of their owner.
class CListModel final : public QAbstractListModel
{
public:
    using QAbstractListModel::QAbstractListModel;

    // Reading; a row that is not there is not to be asked for
    int GetCount() const;
    bool Has(int row) const { return row >= 0 && row < GetCount(); }
    CString GetText(int row) const;
    LPARAM GetData(int row) const;
    /// The next row behind `after`, once around, that begins with a text or is it; -1 if none.
    int Find(int after, const CString& text, bool isWhole) const;
    const CListRow& GetRow(int row) const { return m_Rows.Get(row); }
    bool HasForeignRows() const { return m_ForeignRows != nullptr; }

    // What both kinds of controls answer; -1 for a row that is not there or cannot be changed
    LRESULT AnswerText(WPARAM row, LPARAM buffer) const;
    LRESULT AnswerTextLength(WPARAM row) const;
    LRESULT AnswerData(WPARAM row) const;
    LRESULT AnswerSetData(WPARAM row, LPARAM data);
    LRESULT AnswerInsert(WPARAM row, LPARAM text);
    LRESULT AnswerFind(WPARAM after, LPARAM text, bool isWhole) const;

    // Changing; -1 stands for the end of the rows
    int Add(const CString& text, bool isSorted);
    bool Insert(int row, const CString& text);
    void Delete(int row);
    void Clear();
    void SetCheck(int row, int check);
    void SetEnabled(int row, bool enabled);
    void SetHeight(int row, int height);
    /// Null: own rows again, of which there are none.
    void SetForeignRows(const IComboRows* rows);
    /// Whether rows have a mark in front.
    void ShowChecks(bool shown);

    int rowCount(const QModelIndex& parent) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    void TellChanged(int row);

    CListRows m_Rows;
    const IComboRows* m_ForeignRows = nullptr;
    bool m_HasChecks = false;
};

} // namespace utility
