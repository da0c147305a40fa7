#pragma once

#include <afx.h>

#include <cstring>
#include <vector>

/// Archives as plain bytes: what an object stores, and what becomes of an object that is fed with any bytes.
namespace archive_bytes {

using Bytes = std::vector<unsigned char>;

/// Builds expected bytes without the archive: little-endian, one field after the other.
struct Record
{
    Bytes bytes;

    Record& Raw(const void* data, size_t size)
    {
        const unsigned char* first = static_cast<const unsigned char*>(data);
        bytes.insert(bytes.end(), first, first + size);
        return *this;
    }
    Record& I(int value) { return Raw(&value, sizeof value); }
    Record& D(double value) { return Raw(&value, sizeof value); }
    Record& F(float value) { return Raw(&value, sizeof value); }
    Record& Text(const char* text) { return Raw(text, std::strlen(text)); }
    Record& Zeros(size_t count)
    {
        bytes.resize(bytes.size() + count);
        return *this;
    }
    /// The geometry header of a shape.
    Record& Header(double offsetX, double offsetY, double x1, double y1, double x2, double y2)
    {
        return I(1).D(offsetX).D(offsetY).I(1).D(x1).D(y1).D(x2).D(y2);
    }
};

template <typename T>
Bytes Stored(T& object)
{
    CMemFile file;
    CArchive archive(&file, CArchive::store);
    object.Serialize(archive);
    archive.Close();
    Bytes bytes(static_cast<size_t>(file.GetLength()));
    file.SeekToBegin();
    if (!bytes.empty())
        file.Read(bytes.data(), static_cast<UINT>(bytes.size()));
    return bytes;
}

struct Outcome
{
    int cause;       ///< of the archive exception; CArchiveException::none without one
    size_t consumed; ///< bytes that were read, without an exception
};

template <typename T>
Outcome Load(T& object, Bytes bytes)
{
    CMemFile file(bytes.data(), static_cast<UINT>(bytes.size()));
    CArchive archive(&file, CArchive::load);
    try {
        object.Serialize(archive);
    } catch (CArchiveException* e) {
        const int cause = e->m_cause;
        e->Delete();
        return {cause, 0};
    }
    archive.Close();
    return {CArchiveException::none, static_cast<size_t>(file.GetPosition())};
}

} // namespace archive_bytes
