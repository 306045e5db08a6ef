#include "settings/form/FormExportWriter.h"
#include "settings/form/FormItem.h"

#include "FuzzFile.h"
#include "Require.h"

#include <cstdint>
#include <vector>

using namespace utility;

namespace
{

constexpr UINT READ_AS_UTF8 = 0x4000000;

std::vector<CString> ReadTokens(const CString& path)
{
    std::vector<CString> tokens;
    CFormImportReader reader;
    reader.AddFlags(READ_AS_UTF8);
    Require(reader.Open(path));
    for (CString token; reader.ReadIgnoreForm(token);)
        tokens.push_back(token);
    return tokens;
}

// Forms and values as a host reads them, with marks, peeks and blocks in between.
std::vector<CString> ReadForms(const CString& path)
{
    std::vector<CString> values;
    CFormImportReader reader;
    reader.AddFlags(READ_AS_UTF8);
    Require(reader.Open(path));
    CFormItem root(&reader);
    bool marked = false;
    while (CFormItem* item = root.OpenNext())
    {
        if (!marked)
            item->MarkPosition();
        marked = true;
        for (CString value; item->Read(value);)
            values.push_back(value);
        item->Peek();
        unsigned char* data = nullptr;
        unsigned size = 0;
        if (item->IsNextAForm() && item->ReadBinary(data, size))
            Require(data == nullptr || size > 0);
        std::free(data);
        item->End();
    }
    if (marked)
        reader.ReturnToMark();
    CString rest;
    reader.ReadIgnoreForm(rest);
    return values;
}

bool SurvivesQuotes(const CString& value)
{
    bool plain = value != u"(" && value != u")" && value.FindOneOf(u"\r\n") < 0;
    for (const char16_t unit : value.View())
        plain = plain && unit != 0 && (unit < 0xD800 || unit > 0xDFFF);
    return plain;
}

// What is written in quotes reads back.
void CheckWriting(const std::vector<CString>& values)
{
    const CString path = MakeFuzzFile("form-written", {});
    CFormExportWriter writer;
    Require(writer.Open(path));
    for (const CString& value : values)
        if (SurvivesQuotes(value))
            writer.FormQuoted(u"v", value, true);
    writer.Close();
    CFormImportReader reader;
    Require(reader.Open(path));
    for (const CString& value : values)
    {
        if (!SurvivesQuotes(value))
            continue;
        CString read;
        Require(reader.FindForm(u"v", 1) && reader.Read(read) && read == value);
        reader.CloseForm();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const CString path = MakeFuzzFile("form", {reinterpret_cast<const char*>(data), size});
    const std::vector<CString> tokens = ReadTokens(path);
    Require(tokens.size() <= size);
    CheckWriting(ReadForms(path));
    RemoveFuzzFile("form");
    RemoveFuzzFile("form-written");
    return 0;
}
