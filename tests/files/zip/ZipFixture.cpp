#include "files/zip/ZipFixture.h"

namespace utility
{

namespace
{

constexpr unsigned MEMORY_SIZE = 64U << 20U; // taken from the system as it is written

} // namespace

std::string MakeZip(const std::vector<CZipContent>& contents, const char16_t* password)
{
    const HZIP zip = CreateZip(nullptr, MEMORY_SIZE, password);
    for (const CZipContent& each : contents)
    {
        const ZRESULT code = each.m_Name.View().ends_with(u'/')
                                 ? ZipAddFolder(zip, each.m_Name)
                                 : ZipAdd(zip, each.m_Name, each.m_Bytes.data(),
                                          static_cast<unsigned>(each.m_Bytes.size()));
        EXPECT_EQ(code, ZIP_SUCCESS);
    }
    void* memory = nullptr;
    std::uint32_t length = 0;
    EXPECT_EQ(ZipGetMemory(zip, &memory, &length), ZIP_SUCCESS);
    std::string bytes(static_cast<const char*>(memory), length);
    EXPECT_EQ(CloseZipZ(zip), ZIP_SUCCESS);
    return bytes;
}

std::vector<CZipContent> ReadZip(HZIP zip)
{
    std::vector<CZipContent> contents;
    ZIPENTRY total{};
    EXPECT_EQ(GetZipItem(zip, -1, &total), ZIP_SUCCESS);
    for (int index = 0; index < total.index; ++index)
    {
        ZIPENTRY entry{};
        EXPECT_EQ(GetZipItem(zip, index, &entry), ZIP_SUCCESS);
        CZipContent content{entry.name, {}};
        const bool isFolder = (entry.attr & 16) != 0;
        EXPECT_EQ(isFolder ? ZIP_SUCCESS : UnzipBytes(zip, index, content.m_Bytes), ZIP_SUCCESS)
            << index;
        contents.push_back(content);
    }
    return contents;
}

std::vector<CZipContent> ReadZip(const std::string& bytes, const char* password)
{
    const CZipClosing zip(OpenBytes(bytes, password));
    return ReadZip(zip);
}

HZIP OpenBytes(const std::string& bytes, const char* password)
{
    return OpenZip(bytes.data(), static_cast<unsigned>(bytes.size()), password);
}

ZRESULT UnzipBytes(HZIP zip, int index, std::string& bytes, unsigned piece)
{
    ZIPENTRYINFO info;
    if (const ZRESULT code = GetZipItemInfo(zip, index, &info); code != ZIP_SUCCESS)
        return code;
    std::vector<char> buffer(piece);
    for (;;)
    {
        const ZRESULT code = UnzipItem(zip, index, buffer.data(), piece);
        if (code != ZIP_SUCCESS && code != ZIP_MORE)
            return code;
        const std::uint64_t left = info.unc_size - bytes.size();
        bytes.append(buffer.data(), static_cast<std::size_t>(std::min<std::uint64_t>(piece, left)));
        if (code == ZIP_SUCCESS)
            return code;
    }
}

CString LastZipTextU()
{
    char16_t text[100];
    FormatZipMessageU(ZIP_RECENT, text, 100);
    return text;
}

CString LastZipTextZ()
{
    char16_t text[100];
    FormatZipMessageZ(ZIP_RECENT, text, 100);
    return text;
}

} // namespace utility
