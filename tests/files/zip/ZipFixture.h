#pragma once

#include "files/zip/ZipCreate.h"
#include "files/zip/ZipHandle.h"
#include "files/zip/ZipOpen.h"
#include "files/zip/ZipResult.h"
#include "platform/system/Random.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace utility
{

/// An entry of an archive for a test; a name that ends in "/" is a folder.
struct CZipContent
{
    CString m_Name;
    std::string m_Bytes;

    bool operator==(const CZipContent&) const = default;
};

/// Closes an archive that is read at the end of its scope.
class CZipClosing
{
public:
    explicit CZipClosing(HZIP zip) : m_Zip(zip) {}
    ~CZipClosing() { CloseZipU(m_Zip); }
    CZipClosing(const CZipClosing&) = delete;
    CZipClosing& operator=(const CZipClosing&) = delete;

    operator HZIP() const { return m_Zip; }

private:
    HZIP m_Zip;
};

/// Random bytes that count up from 0 until the end of its scope. One at a time.
class CCountedRandom
{
public:
    CCountedRandom() { SetRandomSource(&SOURCE); }
    ~CCountedRandom() { SetRandomSource(nullptr); }
    CCountedRandom(const CCountedRandom&) = delete;
    CCountedRandom& operator=(const CCountedRandom&) = delete;

private:
    static constexpr CRandomSource SOURCE{[](void* bytes, std::size_t count)
                                          {
                                              for (std::size_t i = 0; i < count; ++i)
                                                  static_cast<char*>(bytes)[i] =
                                                      static_cast<char>(i);
                                          }};
};

/// An archive of these entries, made in memory.
std::string MakeZip(const std::vector<CZipContent>& contents, const char16_t* password = nullptr);

/// All entries of an archive; folders have no bytes. What cannot be read is a failure of the test.
std::vector<CZipContent> ReadZip(HZIP zip);
std::vector<CZipContent> ReadZip(const std::string& bytes, const char* password = nullptr);

HZIP OpenBytes(const std::string& bytes, const char* password = nullptr);

/// One entry by the memory form, in pieces of that size; the code of the last call.
ZRESULT UnzipBytes(HZIP zip, int index, std::string& bytes, unsigned piece = 4096);

/// The words of the last result of a side.
CString LastZipTextU();
CString LastZipTextZ();

} // namespace utility
