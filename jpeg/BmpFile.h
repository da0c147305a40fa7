/// Reading bitmap files that may hold anything.
#pragma once

#include <cstdint>
#include <fstream>
#include <vector>

namespace jpeg {

/// Rows of an uncompressed bitmap file, read one at a time, so that the header's sizes never decide on an allocation
/// larger than one row of at most 65500 pixels.
class BmpFile
{
public:
    static constexpr int kMaxSide = 65500; ///< the largest side of a JPEG picture

    /// False when it is not a bitmap file of 1, 24 or 32 bits that holds all of its rows.
    bool Open(const char* path);
    int Width() const { return m_width; }
    int Height() const { return m_height; }
    /// Row `y` from the top as red, green and blue bytes; `rgb` has room for 3 * Width(). False when reading fails.
    bool ReadRow(int y, uint8_t* rgb);

private:
    /// False when not all bytes are there.
    bool ReadAt(uint64_t position, void* bytes, size_t count);
    bool ReadHeaders();
    bool ReadColorTable(uint32_t headerSize, uint32_t colors);
    bool HoldsAllRows();

    std::ifstream m_file; // its positions have 64 bits on every system
    int m_width = 0;
    int m_height = 0;
    int m_bits = 0;
    bool m_bottomUp = true;
    uint32_t m_offset = 0;      ///< of the first row in the file
    uint8_t m_table[2][3] = {}; ///< colours of 1 bit, red first
    std::vector<uint8_t> m_row; ///< one row as the file has it
};

} // namespace jpeg
