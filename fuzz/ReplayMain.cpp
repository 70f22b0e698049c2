#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size);
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);

/// Gives a fuzzer each file of a directory once; a finding ends it by a signal.
int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s DIRECTORY\n", argv[0]);
        return 2;
    }
    std::filesystem::path const directory = argv[1];
    LLVMFuzzerInitialize(&argc, &argv);
    std::vector<std::filesystem::path> seeds;
    for (auto const& entry : std::filesystem::directory_iterator(directory))
        seeds.push_back(entry.path());
    std::sort(seeds.begin(), seeds.end());
    for (auto const& seed : seeds) {
        std::fprintf(stderr, "%s\n", seed.c_str());
        std::ifstream file(seed, std::ios::binary);
        std::vector<char> const bytes{std::istreambuf_iterator<char>(file), {}};
        LLVMFuzzerTestOneInput(reinterpret_cast<std::uint8_t const*>(bytes.data()), bytes.size());
    }
    return seeds.empty() ? 1 : 0;
}
