// Gives a fuzz target each file of the directories named, for builds without the fuzzer.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *theData, std::size_t theSize);

int main(int argc, char **argv)
{
    std::set<std::filesystem::path> files;
    for (int i = 1; i < argc; ++i)
        for (const auto &file : std::filesystem::directory_iterator(argv[i]))
            files.insert(file.path());
    for (const auto &path : files) {
        std::printf("%s\n", path.c_str());
        std::fflush(stdout);
        std::ifstream file(path, std::ios::binary);
        const std::string input(std::istreambuf_iterator<char>(file), {});
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(input.data()), input.size());
    }
    std::printf("%zu files\n", files.size());
    return files.empty() ? 1 : 0;
}
