/// What the fuzz targets share: reading values out of the bytes that the fuzzer makes up, and checks that end the
/// process, which is how a fuzzer learns of a fault.
#pragma once

#include <afxwin.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

/// The font configuration keeps some bytes where the leak checker cannot see that they are still in use. Once in a
/// process; the fonts themselves stay under its eyes.
extern "C" const char* __lsan_default_suppressions();
extern "C" __attribute__((used)) inline const char* __lsan_default_suppressions()
{
    return "leak:libfontconfig.so";
}

namespace fuzz {

/// Ends the process with the message unless the condition holds.
inline void Require(bool holds, const char* message)
{
    if (!holds) {
        std::fprintf(stderr, "violated: %s\n", message);
        std::abort();
    }
}

/// Hands out the bytes of an input as values, little-endian; zeros once they are used up.
class Input
{
public:
    Input(const uint8_t* data, size_t size) : m_next(data), m_end(data + size) {}

    bool IsEmpty() const { return m_next == m_end; }

    template <class T>
    T Take()
    {
        T value = {};
        const size_t count = std::min(sizeof value, size_t(m_end - m_next));
        if (count > 0)
            std::memcpy(&value, m_next, count);
        m_next += count;
        return value;
    }
    uint8_t Byte() { return Take<uint8_t>(); }
    /// 0 to below - 1, from one byte.
    int Below(int below) { return Byte() % below; }

    /// Mostly coordinates about a small picture, sometimes any of 32 bits: uniform ones would hardly ever meet it.
    int Coordinate()
    {
        const uint8_t kind = Byte();
        if (kind < 0xC0)
            return int(kind) - 64;
        if (kind < 0xF0)
            return Take<int16_t>();
        return Take<int32_t>();
    }
    /// The same for lengths in millimetres; the rarer ones are any bit pattern, infinities and NaNs included.
    double Real()
    {
        const uint8_t kind = Byte();
        if (kind < 0xC0)
            return (int(kind) - 64) / 4.0;
        if (kind < 0xE0)
            return Take<float>();
        return Take<double>();
    }
    std::string Text(size_t length)
    {
        const size_t count = std::min(length, size_t(m_end - m_next));
        std::string text(reinterpret_cast<const char*>(m_next), count);
        m_next += count;
        return text;
    }
    std::string Rest() { return Text(size_t(m_end - m_next)); }

private:
    const uint8_t* m_next;
    const uint8_t* m_end;
};

inline DWORD GdiObjects()
{
    return GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
}

/// As many drawing objects have to be alive at its end as at its start.
class SameGdiObjects
{
public:
    SameGdiObjects() : m_before(GdiObjects()) {}
    ~SameGdiObjects() { Require(GdiObjects() == m_before, "drawing objects are left over"); }
    SameGdiObjects(const SameGdiObjects&) = delete;
    SameGdiObjects& operator=(const SameGdiObjects&) = delete;

private:
    DWORD m_before;
};

} // namespace fuzz
