// Runs a fuzz target over the files of the folders that it is given, and over the empty input: what was found once
// stays mended, under every compiler.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "fuzz/fuzzing.h"

namespace {
std::vector<std::filesystem::path> files_in(const char* folder)
{
    std::vector<std::filesystem::path> files;
    if (!std::filesystem::exists(folder)) return files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) files.push_back(entry.path());
    std::ranges::sort(files);
    return files;
}

// In memory of exactly its size, so that a read behind it is seen.
void replay(const std::string& content)
{
    const std::vector<std::uint8_t> bytes(content.begin(), content.end());
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
}
}  // namespace

int main(int count, char** folders)
{
    std::size_t inputs = 0;
    replay("");
    for (int i = 1; i < count; i++) {
        for (const std::filesystem::path& path : files_in(folders[i])) {
            std::fprintf(stderr, "%s\n", path.c_str());  // the last line names the input that ends the program
            std::ifstream file(path, std::ios::binary);
            replay({std::istreambuf_iterator<char>(file), {}});
            inputs++;
        }
    }
    std::fprintf(stderr, "%zu inputs\n", inputs);
    return inputs > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
