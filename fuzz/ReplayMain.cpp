// Runs a fuzz target over the files it begins with, without a fuzzer: ReplayMain CORPUS

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv)
{
    int count = 0;
    if (argc == 2 && std::filesystem::is_directory(argv[1]))
    {
        for (const auto& entry : std::filesystem::directory_iterator(argv[1]))
        {
            std::printf("%s\n", entry.path().filename().c_str());
            std::fflush(stdout); // the last line names the input that broke it
            std::ifstream file(entry.path(), std::ios::binary);
            const std::string bytes((std::istreambuf_iterator<char>(file)), {});
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()),
                                   bytes.size());
            ++count;
        }
    }
    std::printf("%d inputs\n", count);
    return count > 0 ? 0 : 1;
}
