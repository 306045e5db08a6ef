#include "text/names/NameRange.h"

#include "platform/base/Encoding.h"

#include "Require.h"

#include <cstdint>

using namespace utility;

namespace
{

bool Overlaps(const CString& left, const CString& right)
{
    return CNameRange::IsNameOverlap(left, right, u'[', u']', u'-', u',');
}

} // namespace

// A range contains the names it walks and shares them with itself; reading any text ends soon.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const CString text = FromUtf8({reinterpret_cast<const char*>(data), size});
    CNameRange range;
    range.SetString(text);
    POSITION position = nullptr;
    CString name = range.First(position);
    for (int count = 0; count < 100 && !name.IsEmpty(); ++count)
    {
        Require(range.Contains(name));
        name = range.Next(position);
    }
    Require(Overlaps(text, text) == (range.GetItemCount() > 0));
    const CString rest = text.Mid(text.GetLength() / 2);
    Require(Overlaps(text, rest) == Overlaps(rest, text));
    if (range.Count() < 1000)
    {
        CNameRange added(u'[', u']', u'-', u',', false, size % 2 == 0);
        added.Add(text);
        added.Delete(text.Left(text.GetLength() / 2));
        Require((added.GetItemCount() == 0) == (added.Count() == 0));
    }
    return 0;
}
