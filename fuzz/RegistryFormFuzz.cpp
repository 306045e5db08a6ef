#include "platform/base/object/Exception.h"
#include "platform/base/object/InvalidArgException.h"
#include "settings/RegistryForms.h"

#include "FuzzFile.h"
#include "Require.h"

#include <cstdint>

using namespace utility;

namespace
{

bool HasEmptyText(const CRegistryFormStruct& form)
{
    CString key;
    CString value;
    for (int index = 0; form.GetKeyAndValue(index, &key, &value); ++index)
    {
        if (key.IsEmpty() || value.IsEmpty())
            return true;
    }
    return false;
}

bool SamePairs(const CRegistryFormStruct& left, const CRegistryFormStruct& right)
{
    return left.GetCount() == right.GetCount() && left.GetFormString() == right.GetFormString();
}

/// What is read can be written and read again.
void CheckForm(CRegistryFormStruct form)
{
    Require(!HasEmptyText(form));
    form.MakeFormString();
    CRegistryFormStruct back;
    back.SetFormString(form.GetFormString());
    Require(SamePairs(form, back));
}

} // namespace

// The text is one form, and a file of forms.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    try
    {
        CRegistryFormStruct form;
        form.SetFullString(FromUtf8(bytes));
        CheckForm(form);
    }
    catch (CInvalidArgException* exception)
    {
        const CExceptionGuard guard(exception); // a pair of one text
    }
    CRegistryForms forms;
    try
    {
        CString path = MakeFuzzFile("registry-form", bytes);
        forms.Import(path);
    }
    catch (CInvalidArgException* exception)
    {
        const CExceptionGuard guard(exception);
    }
    Require(static_cast<std::size_t>(forms.GetCount()) <= size);
    RemoveFuzzFile("registry-form");
    return 0;
}
