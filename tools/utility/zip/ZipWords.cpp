#include "utility/zip/ZipWords.h"

#include "files/zip/ZipFault.h"
#include "files/zip/ZipResult.h"
#include "platform/base/LastError.h"
#include "platform/system/SystemMessage.h"

#include <algorithm>

namespace utility
{

namespace
{

struct CFaultWords
{
    EZipFault m_Fault;
    const char16_t* m_Words;
};

constexpr CFaultWords FAULTS[] = {
    {EZipFault::NoEnd, u"this is no zip archive, or its end is cut off"},
    {EZipFault::Split, u"the archive is split over several files, which cannot be read"},
    {EZipFault::DirectoryOutside, u"the directory does not lie where the end record says"},
    {EZipFault::DirectoryCut, u"the directory is damaged"},
    {EZipFault::CountWrong, u"the directory does not have as many entries as it claims"},
    {EZipFault::LargeDamaged, u"a Zip64 record is missing or damaged"},
    {EZipFault::EntryOutside, u"an entry lies outside the archive"},
    {EZipFault::Overlap, u"entries overlap, as in an archive made to fill disks"},
    {EZipFault::NoLocalHeader, u"its header is missing"},
    {EZipFault::Method, u"it is compressed in a way that cannot be read"},
    {EZipFault::Encryption, u"it is encrypted in a way that cannot be read"},
    {EZipFault::Data, u"its data are damaged"},
    {EZipFault::DataCut, u"its data end too early"},
    {EZipFault::WrongCrc, u"its data are damaged: the checksum differs"},
    {EZipFault::WrongSize, u"its size is not what the directory says"},
};

struct CMethodName
{
    int m_Method;
    const char16_t* m_Name;
};

// As the format's description numbers them
constexpr CMethodName METHODS[] = {
    {1, u"shrunk"},   {2, u"reduced"},    {3, u"reduced"},     {4, u"reduced"}, {5, u"reduced"},
    {6, u"imploded"}, {9, u"Deflate64"},  {10, u"PKWARE DCL"}, {12, u"bzip2"},  {14, u"LZMA"},
    {19, u"LZ77"},    {93, u"Zstandard"}, {94, u"MP3"},        {95, u"XZ"},     {96, u"JPEG"},
    {97, u"WavPack"}, {98, u"PPMd"},      {99, u"AES"},
};

CString CodeWords(ZRESULT code, unsigned (*format)(ZRESULT, char16_t*, unsigned))
{
    char16_t words[100];
    format(code, words, 100);
    return words;
}

/// The words of a code, with the system's where a file is to blame.
CString WithReason(const CString& words, ZRESULT code)
{
    const bool isOfSystem =
        code == ZIP_NO_FILE || code == ZIP_WRITE_FAILED || code == ZIP_READ_FAILED;
    const CString reason = isOfSystem ? GetSystemMessage(GetLastError()) : CString();
    return reason.IsEmpty() ? words : reason;
}

} // namespace

CString ZipReadWords(ZRESULT code)
{
    const auto* found = std::ranges::find(FAULTS, GetZipFault(), &CFaultWords::m_Fault);
    if (code == ZIP_CORRUPT && found != std::end(FAULTS))
        return found->m_Words;
    if (code == ZIP_PASSWORD)
        return u"the password is missing or wrong; see --password";
    return WithReason(CodeWords(code, FormatZipMessageU), code);
}

CString ZipEntryWords(ZRESULT code, const ZIPENTRYINFO& info)
{
    const EZipFault fault = code == ZIP_CORRUPT ? GetZipFault() : EZipFault::None;
    const bool isUnknown = fault == EZipFault::Method || fault == EZipFault::Encryption;
    return isUnknown ? ZipReadWords(code) + u": " + ZipMethodWords(info) : ZipReadWords(code);
}

CString ZipMadeWords(ZRESULT code)
{
    return WithReason(CodeWords(code, FormatZipMessageZ), code);
}

CString ZipMethodWords(const ZIPENTRYINFO& info)
{
    CString words = info.method == 0 ? u"stored" : info.method == 8 ? u"deflated" : u"";
    if (words.IsEmpty())
    {
        const auto* found = std::ranges::find(METHODS, int{info.method}, &CMethodName::m_Method);
        words.Format(u"method %d", int{info.method});
        if (found != std::end(METHODS))
            words += CString(u" (") + found->m_Name + u")";
    }
    if (info.encryption == EZipEncryption::Traditional)
        words += u", encrypted";
    if (info.encryption == EZipEncryption::Unknown)
        words += u", encrypted in a way of its own";
    return words;
}

} // namespace utility
