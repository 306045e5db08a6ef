#include "platform/ui/DialogTemplateMaker.h"

#include "platform/ui/dialogtext/DialogTextReader.h"
#include "resources/StringTable.h"

namespace utility
{

namespace
{

CString Resolve(const CTemplateText& text)
{
    if (text.m_Id != 0)
        return CStringTable::Get(text.m_Id);

    CString resolved;
    bool isEscaped = false;
    for (const char16_t unit : text.m_Quoted)
    {
        if (unit == u'\\' && !isEscaped)
        {
            isEscaped = true;
            continue;
        }
        resolved += isEscaped && unit == u'n' ? u'\n' : unit;
        isEscaped = false;
    }
    return resolved;
}

/// A text as it is said: "&Name:" is Name, "A && B" is A & B.
CString SpokenText(const CString& text)
{
    CString spoken;
    for (int i = 0; i < text.GetLength(); ++i)
    {
        if (text[i] == u'&' && text[++i] == u'\0')
            break;
        spoken += text[i];
    }
    spoken.TrimRight(u" :");
    return spoken;
}

} // namespace

CDialogTemplate CDialogTemplateMaker::Make(std::u16string_view text)
{
    CDialogTemplate dialog;
    CDialogTextReader reader(text);
    CDialogLine dialogLine;
    if (!reader.ReadDialog(dialogLine))
        return dialog;
    TakeDialog(dialogLine, dialog);

    CString label;
    CControlLine line;
    while (reader.ReadControl(line))
    {
        CDialogTemplateItem item = MakeItem(line);
        if (item.m_AccessibleName.IsEmpty() && line.m_Bitmap == 0)
            item.m_AccessibleName = SpokenText(item.m_Text.IsEmpty() ? label : item.m_Text);
        label = line.m_IsLabel ? item.m_Text : CString();
        dialog.m_Items.push_back(std::move(item));
    }
    return dialog;
}

void CDialogTemplateMaker::TakeDialog(const CDialogLine& line, CDialogTemplate& dialog)
{
    dialog.m_Id = line.m_Id;
    dialog.m_Name = line.m_Name;
    dialog.m_Caption = Resolve(line.m_Caption);
    dialog.m_Style = line.m_Style;
    dialog.m_ExStyle = line.m_ExStyle;
    dialog.m_Position = {line.m_Place.m_X, line.m_Place.m_Y};
    dialog.m_Size = {line.m_Place.m_Width, line.m_Place.m_Height};
    dialog.SetFont(Resolve(line.m_FontFace), static_cast<WORD>(line.m_FontHeight));
}

CDialogTemplateItem CDialogTemplateMaker::MakeItem(const CControlLine& line)
{
    CDialogTemplateItem item;
    if (line.m_Id != 0)
        item.m_Id = line.m_Id;
    item.m_ClassName = line.m_ClassName;
    item.m_Text = Resolve(line.m_Text);
    item.m_AccessibleName = Resolve(line.m_AccessibleName);
    item.m_Place = {CPoint(line.m_Place.m_X, line.m_Place.m_Y),
                    CSize(line.m_Place.m_Width, line.m_Place.m_Height)};
    item.m_Style = line.m_Style;
    if (line.m_Bitmap != 0)
        item.m_Text.Format(u"#%d", line.m_Bitmap);
    return item;
}

} // namespace utility
