#include "files/zip/ZipCreate.h"

#include "files/zip/ZipHandle.h"
#include "files/zip/ZipWriter.h"

#include <memory>

namespace utility
{

namespace
{

template <typename TUse>
ZRESULT UseWriter(HZIP zip, TUse use)
{
    return SetLastZipResultZ(UseZip<CZipWriter>(zip, EZipKind::Made, use));
}

/// A handle for what `open` opens; null with the last result.
template <typename TOpen>
HZIP MakeWriter(const char16_t* password, TOpen open)
{
    try
    {
        auto writer = std::make_unique<CZipWriter>(password);
        if (SetLastZipResultZ(open(*writer)) != ZIP_SUCCESS)
            return nullptr;
        auto* const zip = new ZipRecord{EZipKind::Made, writer.get()};
        static_cast<void>(writer.release()); // the record's from here on
        return zip;
    }
    catch (const std::bad_alloc&)
    {
        SetLastZipResultZ(ZIP_NO_MEMORY);
        return nullptr;
    }
}

} // namespace

HZIP CreateZip(const char16_t* path, const char16_t* password)
{
    return MakeWriter(password, [path](CZipWriter& writer)
                      { return path && *path ? writer.OpenFile(path) : ZIP_ARGUMENTS; });
}

HZIP CreateZip(void* memory, unsigned length, const char16_t* password)
{
    return MakeWriter(password,
                      [=](CZipWriter& writer) { return writer.OpenMemory(memory, length); });
}

HZIP CreateZipHandle(HANDLE handle, const char16_t* password)
{
    return MakeWriter(password, [handle](CZipWriter& writer)
                      { return handle ? writer.OpenHandle(handle) : ZIP_ARGUMENTS; });
}

ZRESULT ZipAdd(HZIP zip, const char16_t* name, const char16_t* path)
{
    return UseWriter(zip, [=](CZipWriter& writer) { return writer.AddFile(name, path); });
}

ZRESULT ZipAdd(HZIP zip, const char16_t* name, const void* memory, unsigned length)
{
    return UseWriter(zip,
                     [=](CZipWriter& writer) { return writer.AddMemory(name, memory, length); });
}

ZRESULT ZipAddHandle(HZIP zip, const char16_t* name, HANDLE handle)
{
    return UseWriter(zip, [=](CZipWriter& writer)
                     { return writer.AddHandle(name, handle, std::nullopt); });
}

ZRESULT ZipAddHandle(HZIP zip, const char16_t* name, HANDLE handle, unsigned length)
{
    return UseWriter(zip,
                     [=](CZipWriter& writer) { return writer.AddHandle(name, handle, length); });
}

ZRESULT ZipAddFolder(HZIP zip, const char16_t* name)
{
    return UseWriter(zip, [=](CZipWriter& writer) { return writer.AddFolder(name, nullptr); });
}

ZRESULT ZipAddFolder(HZIP zip, const char16_t* name, const char16_t* path)
{
    return UseWriter(zip, [=](CZipWriter& writer) { return writer.AddFolder(name, path); });
}

ZRESULT SetZipProgress(HZIP zip, CZipProgress progress)
{
    return UseWriter(zip,
                     [&](CZipWriter& writer)
                     {
                         writer.SetProgress(std::move(progress));
                         return ZIP_SUCCESS;
                     });
}

ZRESULT ZipPromote(HZIP zip, const CString& name)
{
    return UseWriter(zip, [&](CZipWriter& writer) { return writer.Promote(name); });
}

ZRESULT ZipGetMemory(HZIP zip, void** memory, std::uint32_t* length)
{
    return UseWriter(zip, [=](CZipWriter& writer) { return writer.GetMemory(memory, length); });
}

ZRESULT CloseZipZ(HZIP zip)
{
    return UseWriter(zip,
                     [zip](CZipWriter& writer)
                     {
                         const ZRESULT code = writer.End();
                         delete &writer;
                         delete zip;
                         return code;
                     });
}

} // namespace utility
