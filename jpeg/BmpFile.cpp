/// Bitmap files, field by field: nothing of a header is used before it was checked.
#include "jpeg/BmpFile.h"

#include <cstdlib>

namespace jpeg {
namespace {

constexpr uint32_t kFileHeader = 14;
constexpr uint32_t kInfoHeader = 40;

uint32_t Word(const uint8_t* bytes)
{
    return uint32_t(bytes[0]) | uint32_t(bytes[1]) << 8;
}

uint32_t Dword(const uint8_t* bytes)
{
    return Word(bytes) | Word(bytes + 2) << 16;
}

} // namespace

bool BmpFile::Open(const char* path)
{
    if (path == nullptr) {
        return false;
    }
    m_file.open(path, std::ios::binary);
    return m_file && ReadHeaders() && HoldsAllRows();
}

bool BmpFile::ReadAt(uint64_t position, void* bytes, size_t count)
{
    m_file.seekg(std::streamoff(position));
    m_file.read(static_cast<char*>(bytes), std::streamsize(count));
    return bool(m_file);
}

bool BmpFile::ReadHeaders()
{
    uint8_t bytes[kFileHeader + kInfoHeader];
    if (!ReadAt(0, bytes, sizeof bytes) || bytes[0] != 'B' || bytes[1] != 'M') {
        return false;
    }
    const uint8_t* const info = bytes + kFileHeader;
    const uint32_t headerSize = Dword(info);
    const int32_t width = int32_t(Dword(info + 4)), height = int32_t(Dword(info + 8));
    const int64_t rows = std::abs(int64_t(height));
    m_bits = int(Word(info + 14));
    const bool known = m_bits == 1 || m_bits == 24 || m_bits == 32;
    if (headerSize < kInfoHeader || Word(info + 12) != 1 || !known || Dword(info + 16) != 0 || width <= 0 ||
        width > kMaxSide || rows == 0 || rows > kMaxSide)
    {
        return false;
    }
    m_width = width;
    m_height = int(rows);
    m_bottomUp = height > 0;
    m_offset = Dword(bytes + 10);
    // The rows must not lie over the headers; a 32-bit file may have a colour table that nobody reads.
    return m_offset >= uint64_t(kFileHeader) + headerSize &&
           (m_bits != 1 || ReadColorTable(headerSize, Dword(info + 32)));
}

bool BmpFile::ReadColorTable(uint32_t headerSize, uint32_t colors)
{
    const uint32_t entries = colors == 0 || colors > 2 ? 2 : colors;
    uint8_t bytes[8] = {};
    if (!ReadAt(uint64_t(kFileHeader) + headerSize, bytes, 4 * size_t(entries))) {
        return false;
    }
    for (int i = 0; i < 2; ++i) {
        for (int channel = 0; channel < 3; ++channel) {
            m_table[i][channel] = bytes[4 * i + 2 - channel]; // the table holds blue first
        }
    }
    return true;
}

bool BmpFile::HoldsAllRows()
{
    const size_t rowBytes = (size_t(m_width) * size_t(m_bits) + 31) / 32 * 4;
    m_file.seekg(0, std::ios::end);
    const std::streamoff size = m_file.tellg(); // -1 where there is no end, as in a pipe
    if (size < 0 || uint64_t(size) < m_offset + uint64_t(rowBytes) * uint64_t(m_height)) {
        return false;
    }
    m_row.resize(rowBytes);
    return true;
}

bool BmpFile::ReadRow(int y, uint8_t* rgb)
{
    const uint64_t row = uint64_t(m_bottomUp ? m_height - 1 - y : y);
    if (!ReadAt(m_offset + row * m_row.size(), m_row.data(), m_row.size())) {
        return false;
    }
    for (int x = 0; x < m_width; ++x, rgb += 3) {
        if (m_bits == 1) {
            const uint8_t* const color = m_table[m_row[size_t(x) >> 3] >> (7 - (x & 7)) & 1];
            rgb[0] = color[0], rgb[1] = color[1], rgb[2] = color[2];
        } else {
            const uint8_t* const pixel = m_row.data() + size_t(x) * size_t(m_bits / 8);
            rgb[0] = pixel[2], rgb[1] = pixel[1], rgb[2] = pixel[0];
        }
    }
    return true;
}

} // namespace jpeg
