#include "files/XXTea.h"

#include "Require.h"

#include <algorithm>
#include <cstdint>

using namespace utility;

// The first 16 bytes are the key. What is enciphered comes back, and of any other bytes no more
// comes than they are.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    CXXTeaKey key = {};
    const std::size_t taken = std::min(size, key.size());
    std::copy_n(data, taken, key.begin());
    const std::string_view bytes(reinterpret_cast<const char*>(data) + taken, size - taken);

    Require(DecryptXXTea(bytes, key).size() <= bytes.size());
    Require(DecryptXXTea(EncryptXXTea(bytes, key), key) == bytes);
    return 0;
}
