#include "files/MD5Checksum.h"
#include "files/XXTea.h"
#include "platform/base/Encoding.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <fstream>
#include <openssl/evp.h>
#include <string>
#include <unistd.h>
#include <vector>

using namespace utility;

// MD5 of bytes at hand, of a file, and of many short texts, beside OpenSSL's in one process; of the
// file also beside the system's own tool, whose start of 1 ms is in the figure.

namespace
{

constexpr std::size_t FILE_SIZE = 256U << 20;
constexpr std::size_t BUFFER_SIZE = 1U << 20;

std::vector<unsigned char> MakeBytes(std::size_t size)
{
    std::vector<unsigned char> bytes(size);
    for (std::size_t i = 0; i < size; ++i)
        bytes[i] = static_cast<unsigned char>(i * 7 + (i >> 8));
    return bytes;
}

/// A file in memory, made once and removed with the process.
class CDigestedFile
{
public:
    CDigestedFile() : m_Path("/dev/shm/digest-benchmark-" + std::to_string(getpid()))
    {
        const std::vector<unsigned char> bytes = MakeBytes(FILE_SIZE);
        std::ofstream(m_Path, std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()),
                   static_cast<std::streamsize>(FILE_SIZE));
    }
    ~CDigestedFile() { unlink(m_Path.c_str()); }

    const std::string& GetPath() const { return m_Path; }

private:
    std::string m_Path;
};

const std::string& FilePath()
{
    static const CDigestedFile file;
    return file.GetPath();
}

void DigestBytes(benchmark::State& state)
{
    std::vector<unsigned char> bytes = MakeBytes(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(
            CMD5Checksum::GetMD5(bytes.data(), static_cast<unsigned int>(bytes.size())));
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

void DigestBytesByPeer(benchmark::State& state)
{
    const std::vector<unsigned char> bytes = MakeBytes(static_cast<std::size_t>(state.range(0)));
    unsigned char digest[EVP_MAX_MD_SIZE];
    for (auto _ : state)
    {
        EVP_Digest(bytes.data(), bytes.size(), digest, nullptr, EVP_md5(), nullptr);
        benchmark::DoNotOptimize(digest);
    }
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

void DigestFile(benchmark::State& state)
{
    const CString path = FromUtf8(FilePath());
    for (auto _ : state)
        benchmark::DoNotOptimize(CMD5Checksum::GetMD5(path));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(FILE_SIZE));
}

void DigestFileByTool(benchmark::State& state)
{
    const std::string command = "md5sum " + FilePath() + " >/dev/null";
    for (auto _ : state)
    {
        if (std::system(command.c_str()) != 0)
            return state.SkipWithError("md5sum failed");
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(FILE_SIZE));
}

void EncipherBytes(benchmark::State& state)
{
    const std::string bytes(BUFFER_SIZE, 'x');
    const CXXTeaKey key = {1, 2, 3};
    for (auto _ : state)
        benchmark::DoNotOptimize(EncryptXXTea(bytes, key));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(BUFFER_SIZE));
}

BENCHMARK(DigestBytes)->Name("md5 1 MB/ours")->Arg(BUFFER_SIZE)->Unit(benchmark::kMicrosecond);
BENCHMARK(DigestBytesByPeer)
    ->Name("md5 1 MB/libcrypto")
    ->Arg(BUFFER_SIZE)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(DigestBytes)->Name("md5 32 bytes/ours")->Arg(32);
BENCHMARK(DigestBytesByPeer)->Name("md5 32 bytes/libcrypto")->Arg(32);
// The tool runs in a process of its own, so the clock counts, not this process's time.
BENCHMARK(DigestFile)->Name("md5 file/ours")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(DigestFileByTool)->Name("md5 file/md5sum")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(EncipherBytes)->Name("xxtea 1 MB/ours")->Unit(benchmark::kMicrosecond);

} // namespace
