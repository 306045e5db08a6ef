#pragma once

#include "settings/form/FormImportReader.h"

namespace utility
{

/// A cursor on one open form: hands out its values and child forms, and on closing skips whatever
/// was not read.
///
/// Children are made by their parent and end by `End`, which closes and deletes; they close in
/// nesting order, and the reader outlives them all. The item made from a reader itself stands for
/// the whole file.
///
///     CFormImportReader reader;
///     CFormItem root(&reader);
///     while (CFormItem* item = root.OpenNext()) { ...; item->End(); }
///
/// All of a form's values are read before its children. Children that may be missing, or stand in
/// any order, are read with `OpenNext`. Items compare by name, in any case.
class UTILITY_CORE_API CFormItem
{
public:
    CFormItem() = default;
    explicit CFormItem(CFormImportReader* reader);
    virtual ~CFormItem();
    CFormItem(const CFormItem&) = delete;
    CFormItem& operator=(const CFormItem&) = delete;

    const CString& Name() const { return m_Name; }

    /// The child of that name, or null; see `CFormImportReader::FindForm`.
    [[nodiscard]] CFormItem* Open(const CString& name, int limit = -1);
    /// The next child, or null.
    [[nodiscard]] CFormItem* OpenNext();
    void Close();
    void End();

    // As the reader's
    bool IsNextAForm() { return m_Reader && m_Reader->IsNextAForm(); }
    bool AnyMoreOnLine() const { return m_Reader && m_Reader->AnyMoreOnLine(); }
    void MarkPosition();
    void ReturnToMark();
    CString Peek() { return m_Reader ? m_Reader->Peek() : CString(); }
    bool Peek(CString& text) { return m_Reader && m_Reader->Peek(text); }
    /// Drops one token.
    bool Read();
    bool Read(CString& text) { return m_Reader && m_Reader->Read(text); }
    bool Read(int& value) { return m_Reader && m_Reader->Read(value); }
    bool Read(float& value) { return m_Reader && m_Reader->Read(value); }
    bool Read(double& value) { return m_Reader && m_Reader->Read(value); }
    bool Read(std::int64_t& value) { return m_Reader && m_Reader->Read(value); }
    bool Read(unsigned int& value) { return m_Reader && m_Reader->Read(value); }
    bool Read(unsigned char& value) { return m_Reader && m_Reader->Read(value); }
    bool Read(unsigned char*& data, unsigned int& size);
    bool ReadIgnoreForm(CString& text) { return m_Reader && m_Reader->ReadIgnoreForm(text); }
    bool ReadRawString(CString& text) { return m_Reader && m_Reader->ReadRawString(text); }
    bool ReadStringList(CStringList& list) { return m_Reader && m_Reader->ReadStringList(list); }
    void RestOfLine(CString& text) const;
    void StartChecksum();
    void StopChecksum();
    std::int32_t GetChecksum() const { return m_Reader ? m_Reader->GetChecksum() : 0; }
    std::uint64_t GetFileLength() const { return m_Reader ? m_Reader->GetLength() : 0; }
    std::uint64_t GetFilePosition() const { return m_Reader ? m_Reader->GetPosition() : 0; }

    /// False unless a number other than 0 follows; the result is whether there was a number at all.
    bool ReadBool(bool& value);
    /// The first child "binary", others being skipped; null and 0 if there is none. The caller
    /// frees with `free`.
    bool ReadBinary(unsigned char*& data, unsigned int& size);
    /// One value with its line ends and lone brackets as they were before writing.
    bool ReadMultiLine(CString& text);

    friend bool operator==(const CFormItem& left, const CFormItem& right)
    {
        return left == right.m_Name;
    }
    UTILITY_CORE_API friend bool operator==(const CFormItem& left, const CString& name);

private:
    CFormItem(CFormImportReader* reader, CString name);

    CString m_Name;
    int m_Level = 0;
    bool m_Closed = false;
    CFormImportReader* m_Reader = nullptr; // not owned
};

} // namespace utility
