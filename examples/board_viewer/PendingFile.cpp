#include "PendingFile.h"

#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace fs = std::filesystem;

namespace viewer {

namespace {

/// Names the target as the user wrote it.
[[noreturn]] void FailToWrite(const std::string& target, const std::string& why)
{
    throw std::runtime_error(target + ": cannot be written: " + why);
}

} // namespace

PendingFile::PendingFile(const std::string& path) : target(path)
{
    std::error_code error;
    // A link keeps pointing to the file it names: that one is replaced.
    const fs::path real = fs::weakly_canonical(fs::path(path), error);
    if (!error)
        target = real.string();

    const fs::file_status status = fs::status(target, error);
    if (fs::exists(status)) {
        if (!fs::is_regular_file(status))
            FailToWrite(path, "it is not a regular file");
        // Opened to append, which changes nothing. A rename alone would replace a file that is protected against
        // writing.
        if (!std::ofstream(target, std::ios::binary | std::ios::app))
            FailToWrite(path, "no permission");
    }

    // Two runs for one target do not meet in one temporary file.
    for (int i = 0; temporary.empty() || fs::exists(fs::symlink_status(temporary, error)); ++i)
        temporary = target + ".part" + std::to_string(i);
    if (!std::ofstream(temporary, std::ios::binary))
        FailToWrite(path, "no file can be made in its folder");
}

PendingFile::~PendingFile()
{
    std::error_code ignored;
    fs::remove(temporary, ignored);
}

void PendingFile::Commit()
{
    std::error_code error;
    // Writers that report no errors leave an empty file when the disk is full.
    if (fs::file_size(temporary, error) == 0 || error)
        FailToWrite(target, "nothing was written");
    fs::rename(temporary, target, error);
    if (error)
        FailToWrite(target, error.message());
}

} // namespace viewer
