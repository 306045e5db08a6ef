#include "files/zip/ZipOpen.h"

#include "files/zip/ZipHandle.h"
#include "files/zip/ZipReader.h"

#include <memory>

namespace utility
{

namespace
{

template <typename TUse>
ZRESULT UseReader(HZIP zip, TUse use)
{
    return SetLastZipResultU(UseZip<CZipReader>(zip, EZipKind::Read, use));
}

/// A handle for what `open` opens; null with the last result.
template <typename TOpen>
HZIP MakeReader(const char* password, TOpen open)
{
    try
    {
        auto reader = std::make_unique<CZipReader>(password);
        if (SetLastZipResultU(open(*reader)) != ZIP_SUCCESS)
            return nullptr;
        auto* const zip = new ZipRecord{EZipKind::Read, reader.get()};
        static_cast<void>(reader.release()); // the record's from here on
        return zip;
    }
    catch (const std::bad_alloc&)
    {
        SetLastZipResultU(ZIP_NO_MEMORY);
        return nullptr;
    }
}

} // namespace

HZIP OpenZip(const char16_t* path, const char* password)
{
    return MakeReader(password, [path](CZipReader& reader)
                      { return path && *path ? reader.OpenFile(path) : ZIP_ARGUMENTS; });
}

HZIP OpenZip(const void* memory, unsigned length, const char* password)
{
    return MakeReader(password, [=](CZipReader& reader)
                      { return memory ? reader.OpenMemory(memory, length) : ZIP_ARGUMENTS; });
}

HZIP OpenZipHandle(HANDLE handle, const char* password)
{
    return MakeReader(password, [handle](CZipReader& reader)
                      { return handle ? reader.OpenHandle(handle) : ZIP_ARGUMENTS; });
}

ZRESULT GetZipItem(HZIP zip, int index, ZIPENTRY* entry)
{
    return UseReader(zip, [=](CZipReader& reader) { return reader.GetItem(index, entry); });
}

ZRESULT GetZipItemInfo(HZIP zip, int index, ZIPENTRYINFO* info)
{
    return UseReader(zip, [=](CZipReader& reader) { return reader.GetInfo(index, info); });
}

ZRESULT FindZipItem(HZIP zip, const char16_t* name, bool ignoreCase, int* index, ZIPENTRY* entry)
{
    return UseReader(zip, [=](CZipReader& reader)
                     { return reader.Find(name, ignoreCase, index, entry); });
}

ZRESULT SetUnzipBaseDir(HZIP zip, const char16_t* dir)
{
    return UseReader(zip, [=](CZipReader& reader) { return reader.SetBase(dir); });
}

ZRESULT UnzipItem(HZIP zip, int index, const char16_t* path)
{
    return UseReader(zip, [=](CZipReader& reader) { return reader.UnzipToPath(index, path); });
}

ZRESULT UnzipItem(HZIP zip, int index, void* memory, unsigned length)
{
    return UseReader(zip, [=](CZipReader& reader)
                     { return reader.UnzipToMemory(index, memory, length); });
}

ZRESULT UnzipItemHandle(HZIP zip, int index, HANDLE handle)
{
    return UseReader(zip, [=](CZipReader& reader) { return reader.UnzipToHandle(index, handle); });
}

ZRESULT CloseZipU(HZIP zip)
{
    return UseReader(zip,
                     [zip](CZipReader& reader)
                     {
                         delete &reader;
                         delete zip;
                         return ZIP_SUCCESS;
                     });
}

} // namespace utility
