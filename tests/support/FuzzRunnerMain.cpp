// Runs a fuzz target over seed files without libFuzzer, so that every build checks that the
// seeds pass. Arguments are files or folders; a folder gives every regular file in it.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace {

std::vector<std::filesystem::path> SeedFiles(int argc, char** argv) {
    std::vector<std::filesystem::path> files;
    for (int i = 1; i < argc; ++i) {
        const std::filesystem::path path(argv[i]);
        std::error_code error;
        if (std::filesystem::is_directory(path, error)) {
            for (const auto& entry : std::filesystem::directory_iterator(path, error)) {
                if (entry.is_regular_file(error)) {
                    files.push_back(entry.path());
                }
            }
        } else if (std::filesystem::is_regular_file(path, error)) {
            files.push_back(path);
        } else {
            std::fprintf(stderr, "fuzz runner: no such seed '%s'\n", argv[i]);
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

} // namespace

int main(int argc, char** argv) {
    const auto files = SeedFiles(argc, argv);
    if (files.empty()) {
        std::fprintf(stderr, "fuzz runner: no seed files given\n");
        return 1;
    }
    for (const auto& file : files) {
        std::ifstream in(file, std::ios::binary);
        const std::vector<char> bytes((std::istreambuf_iterator<char>(in)),
                                      std::istreambuf_iterator<char>());
        std::vector<uint8_t> data(bytes.begin(), bytes.end());
        LLVMFuzzerTestOneInput(data.data(), data.size());
    }
    std::printf("fuzz runner: %zu seed files passed\n", files.size());
    return 0;
}
