/// The archive formats told a second time, over plain bytes and with an own stack instead of recursion, so that the
/// outcome of a load can be foretold without the library.
#pragma once

#include <afx.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <vector>

namespace fuzz {

/// What loading a record from some bytes has to come to.
struct Expected
{
    int cause = CArchiveException::none; ///< of the archive exception
    size_t consumed = 0;                 ///< bytes read up to there
    int count = 0;                       ///< shapes in the outermost container
    bool hasNaN = false;                 ///< somewhere among the fields that comparisons look at
};

/// Reads fields off a block of bytes; the first one that is not all there sets the end.
class FieldReader
{
public:
    FieldReader(const uint8_t* data, size_t size) : m_data(data), m_size(size) {}

    template <class T>
    T Get()
    {
        T value = {};
        if (m_ended || m_size - m_position < sizeof value) {
            m_ended = true;
            return value;
        }
        std::memcpy(&value, m_data + m_position, sizeof value);
        m_position += sizeof value;
        return value;
    }
    void Skip(uint64_t count)
    {
        if (m_ended || m_size - m_position < count)
            m_ended = true;
        else
            m_position += size_t(count);
    }
    void Doubles(int count)
    {
        for (int i = 0; i < count; ++i)
            m_hasNaN |= std::isnan(Get<double>());
    }
    bool Ended() const { return m_ended; }
    bool HasNaN() const { return m_hasNaN; }
    size_t Position() const { return m_position; }

private:
    const uint8_t* m_data;
    size_t m_size;
    size_t m_position = 0;
    bool m_ended = false;
    bool m_hasNaN = false;
};

/// Length prefix and bytes of a string.
struct StringPrefix
{
    uint64_t length = 0; ///< in characters
    int charSize = 1;
};

inline StringPrefix ReadPrefix(FieldReader& in)
{
    StringPrefix prefix;
    for (;;) {
        const uint8_t length8 = in.Get<uint8_t>();
        prefix.length = length8;
        if (length8 != 0xFF)
            return prefix;
        const uint16_t length16 = in.Get<uint16_t>();
        prefix.length = length16;
        if (length16 == 0xFFFE && prefix.charSize == 1 && !in.Ended()) {
            prefix.charSize = 2;
            continue;
        }
        if (length16 != 0xFFFF)
            return prefix;
        prefix.length = in.Get<uint32_t>();
        if (prefix.length == 0xFFFFFFFF)
            prefix.length = in.Get<uint64_t>();
        return prefix;
    }
}

inline void ReadTwoPoints(FieldReader& in)
{
    if (in.Get<int32_t>() >= 1)
        in.Doubles(4);
}

/// The record of a shape that holds no others: 1 text, 2 line, 3 arc, 4 point.
inline void ReadSimpleShape(FieldReader& in, int type)
{
    if (in.Get<int32_t>() >= 1) {
        in.Doubles(2);
        ReadTwoPoints(in);
    }
    if (in.Get<int32_t>() < 1)
        return;
    if (type == 1) {
        const StringPrefix prefix = ReadPrefix(in);
        // Lengths that overflow when counted in bytes are beyond every input.
        in.Skip(prefix.length > (uint64_t(1) << 40) ? prefix.length : prefix.length * uint64_t(prefix.charSize));
        in.Doubles(2);
        in.Get<float>();
    } else if (type == 4) {
        in.Doubles(2);
    } else {
        in.Doubles(type == 2 ? 5 : 7);
        if (type == 3)
            in.Get<int32_t>();
    }
}

/// Walks container and polygon records.
class RecordModel
{
public:
    RecordModel(const uint8_t* data, size_t size) : m_in(data, size) {}

    Expected Read(bool polygon)
    {
        if (polygon)
            BeginPolygon();
        else
            m_open.push_back({Kind::Container, 0});
        while (!m_open.empty() && m_cause == CArchiveException::none)
            Step();
        return {m_cause, m_in.Position(), m_whole, m_in.HasNaN()};
    }

private:
    static constexpr int kMaxNesting = 128; // as the library's header states it

    enum class Kind
    {
        Container, ///< its version and count come next
        Elements   ///< inside of a container, `left` elements to come
    };
    struct Open
    {
        Kind kind;
        int32_t left;
    };

    void BeginPolygon()
    {
        if (m_depth >= kMaxNesting) { // there is no room for its containers, whether it has any or not
            m_cause = CArchiveException::badSchema;
            return;
        }
        const int32_t version = m_in.Get<int32_t>();
        CheckEnd();
        if (m_cause != CArchiveException::none || version < 1)
            return;
        m_open.push_back({Kind::Container, 0}); // the hole, read after the outline above it
        m_open.push_back({Kind::Container, 0});
    }
    void CheckEnd()
    {
        if (m_in.Ended())
            m_cause = CArchiveException::endOfFile;
    }
    void Step()
    {
        const Open top = m_open.back();
        if (top.kind == Kind::Container) {
            m_open.pop_back();
            BeginContainer();
            return;
        }
        if (m_depth == 1)
            m_whole = m_begun;
        if (top.left <= 0) {
            m_open.pop_back();
            --m_depth;
        } else {
            --m_open.back().left;
            ReadElement();
        }
    }
    void BeginContainer()
    {
        if (m_depth >= kMaxNesting) {
            m_cause = CArchiveException::badSchema;
            return;
        }
        const int32_t version = m_in.Get<int32_t>();
        CheckEnd();
        if (m_cause != CArchiveException::none || version < 1)
            return;
        const int32_t count = m_in.Get<int32_t>();
        CheckEnd();
        ++m_depth;
        m_open.push_back({Kind::Elements, count});
    }
    void ReadElement()
    {
        const int32_t type = m_in.Get<int32_t>();
        CheckEnd();
        if (m_cause != CArchiveException::none)
            return;
        m_begun += m_depth == 1;
        if (type == 6) {
            BeginPolygon();
        } else if (type >= 1 && type <= 4) {
            ReadSimpleShape(m_in, type);
            CheckEnd();
        } else {
            m_cause = CArchiveException::badSchema;
        }
    }
    FieldReader m_in;
    std::vector<Open> m_open;
    int m_depth = 0; ///< containers whose elements are being read
    int m_begun = 0; ///< elements of the outermost container
    int m_whole = 0; ///< those of them that were read to their end
    int m_cause = CArchiveException::none;
};

} // namespace fuzz
