/// Feeds a fuzz target with the inputs of files and folders, without a fuzzer: what was found once is tried by every
/// test run.
#include "Fuzz.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

namespace {

int ReplayFile(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    const std::vector<char> bytes(std::istreambuf_iterator<char>(file), {});
    // Exactly as large as the input, so that a read past its end is seen.
    const std::vector<uint8_t> input(bytes.begin(), bytes.end());
    std::fprintf(stderr, "%s\n", path.c_str()); // the last line before a fault names its input
    LLVMFuzzerTestOneInput(input.data(), input.size());
    return 1;
}

} // namespace

/// Exit code 1 when there is nothing to try, which a wrong path would otherwise hide.
int main(int argc, char** argv)
{
    int inputs = 0;
    for (int i = 1; i < argc; ++i) {
        if (!std::filesystem::is_directory(argv[i])) {
            inputs += ReplayFile(argv[i]);
            continue;
        }
        for (const auto& entry : std::filesystem::recursive_directory_iterator(argv[i])) {
            if (entry.is_regular_file())
                inputs += ReplayFile(entry.path());
        }
    }
    std::printf("%d inputs\n", inputs);
    return inputs > 0 ? 0 : 1;
}
