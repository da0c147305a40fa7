/// An output file that replaces an existing one only when it is complete.
#pragma once

#include <string>

namespace viewer {

/// Gives the name of a file beside the target to write to. Commit() puts it in the target's place; without it the
/// destructor deletes it, and what lay at the target stays as it was.
class PendingFile
{
public:
    /// Throws std::runtime_error where the target cannot be written: no such folder, a folder itself, a device, no
    /// permission.
    explicit PendingFile(const std::string& target);
    ~PendingFile();
    PendingFile(const PendingFile&) = delete;
    PendingFile& operator=(const PendingFile&) = delete;

    const std::string& Name() const { return temporary; }
    /// Throws std::runtime_error when the file was not written or cannot be moved.
    void Commit();

private:
    std::string target;
    std::string temporary;
};

} // namespace viewer
