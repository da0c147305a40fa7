#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

/// A folder of its own for one test, gone with the object. Contents are texts of any bytes.
class TemporaryFolder
{
public:
    explicit TemporaryFolder(const std::string& parent = testing::TempDir())
        : m_path(parent + "kolm_" + std::to_string(std::random_device{}()))
    {
        std::filesystem::create_directories(m_path);
    }
    ~TemporaryFolder() { std::filesystem::remove_all(m_path); }
    TemporaryFolder(const TemporaryFolder&) = delete;

    std::string Path(const std::string& name = "") const { return (m_path / name).string(); }
    void Put(const std::string& name, const std::string& content) const
    {
        std::ofstream(m_path / name, std::ios::binary) << content;
    }
    std::string Get(const std::string& name) const
    {
        std::ifstream file(m_path / name, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }
    bool Has(const std::string& name) const { return std::filesystem::exists(m_path / name); }

private:
    const std::filesystem::path m_path;
};
