#include "PendingFile.h"

#include <cerrno>
#include <cstdio>
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

    // Made only where there is none: two runs for one target do not meet in one temporary file.
    for (int i = 0;; ++i) {
        temporary = target + ".part" + std::to_string(i);
        if (std::FILE* const made = std::fopen(temporary.c_str(), "wbx")) {
            std::fclose(made);
            return;
        }
        if (errno != EEXIST)
            FailToWrite(path, "no file can be made in its folder");
    }
}

// By its plain name: making a path of it could fail for want of memory, in a destructor.
PendingFile::~PendingFile()
{
    std::remove(temporary.c_str());
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
    temporary.clear(); // the name is free for another run now, whose file is not ours to remove
}

} // namespace viewer
