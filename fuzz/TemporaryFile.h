/// Files of a fuzz target's own.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <unistd.h>

namespace fuzz {

/// A name of this process alone in the folder for temporary files; what is there goes with the object.
class TemporaryFile
{
public:
    explicit TemporaryFile(const std::string& name)
        : m_path((std::filesystem::temp_directory_path() / ("kolm_fuzz_" + std::to_string(getpid()) + "_" + name))
                     .string())
    {}
    ~TemporaryFile()
    {
        std::error_code ignored;
        std::filesystem::remove(m_path, ignored);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::string& Path() const { return m_path; }
    void Put(const std::string& bytes) const
    {
        std::ofstream(m_path, std::ios::binary).write(bytes.data(), std::streamsize(bytes.size()));
    }
    std::string Get() const
    {
        std::ifstream file(m_path, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }
    bool HasNeighbour(const std::string& ending) const { return std::filesystem::exists(m_path + ending); }

private:
    std::string m_path;
};

} // namespace fuzz
