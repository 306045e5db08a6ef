#include "files/zip/ZipFault.h"

#include "files/zip/ZipResult.h"

#include <atomic>

namespace utility
{

namespace
{

constinit std::atomic<EZipFault> g_Fault{EZipFault::None};

} // namespace

EZipFault GetZipFault()
{
    return g_Fault;
}

unsigned FailOnZip(EZipFault fault)
{
    g_Fault = fault;
    return ZIP_CORRUPT;
}

} // namespace utility
