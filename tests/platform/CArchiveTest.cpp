#include <afx.h>

#include "Raises.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

namespace {

using Bytes = std::vector<BYTE>;

Bytes ContentsOf(CMemFile& file)
{
    Bytes bytes(size_t(file.GetLength()));
    file.SeekToBegin();
    file.Read(bytes.data(), UINT(bytes.size()));
    return bytes;
}

template <class Fill>
Bytes Stored(const Fill& fill, int bufferSize = 65536)
{
    CMemFile file;
    CArchive ar(&file, CArchive::store, bufferSize);
    fill(ar);
    ar.Close();
    return ContentsOf(file);
}

template <class Use>
int CauseWhileLoading(const Bytes& bytes, const Use& use)
{
    CMemFile file(const_cast<BYTE*>(bytes.data()), UINT(bytes.size()));
    CArchive ar(&file, CArchive::load);
    return ArchiveCause([&] { use(ar); });
}

Bytes operator+(Bytes a, const Bytes& b)
{
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

TEST(CArchive, NumbersLieLittleEndianWithoutPadding)
{
    const Bytes bytes = Stored([](CArchive& ar) {
        ar << BYTE(0x12) << WORD(0x3456) << DWORD(0x789ABCDE) << -2 << short(-3) << 'k' << true << 1.5f << -2.0
           << LONGLONG(0x0102030405060708);
    });
    const Bytes expected = {0x12,                                           // BYTE
                            0x56, 0x34,                                     // WORD
                            0xDE, 0xBC, 0x9A, 0x78,                         // DWORD
                            0xFE, 0xFF, 0xFF, 0xFF,                         // int -2
                            0xFD, 0xFF,                                     // short -3
                            'k',  0x01,                                     // char, bool
                            0x00, 0x00, 0xC0, 0x3F,                         // 1.5f: exponent 127, mantissa 1.1
                            0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xC0, // -2.0: sign, exponent 1024
                            0x08, 0x07, 0x06, 0x05, 0x04, 0x03, 0x02, 0x01};
    EXPECT_EQ(bytes, expected);
}

/// Calls `load` with an archive that reads the bytes from where they lie, then with one that copies them to its
/// buffer. Both read ahead 128 bytes at a time, the fewest.
template <class Load>
void LoadBothWays(const Bytes& bytes, const Load& load)
{
    BYTE room[128];
    for (BYTE* buffer : {static_cast<BYTE*>(nullptr), room}) {
        SCOPED_TRACE(buffer ? "through a buffer" : "in place");
        CMemFile file(const_cast<BYTE*>(bytes.data()), UINT(bytes.size()));
        CArchive ar(&file, CArchive::load, sizeof room, buffer);
        load(ar);
    }
}

template <class T>
void RoundTripAcrossBoundaries(T value)
{
    // The smallest buffer has 128 bytes: with each lead the number meets its end at another place.
    for (int lead = 120; lead <= 136; ++lead) {
        const auto fill = [&](CArchive& ar) {
            for (int i = 0; i < lead; ++i)
                ar << BYTE(i);
            ar << value << BYTE(0xA5);
        };
        const Bytes bytes = Stored(fill, 128);
        ASSERT_EQ(bytes.size(), size_t(lead) + sizeof value + 1);
        LoadBothWays(bytes, [&](CArchive& ar) {
            BYTE byte = 0;
            for (int i = 0; i < lead; ++i) {
                ar >> byte;
                ASSERT_EQ(byte, BYTE(i));
            }
            T back{};
            ar >> back >> byte;
            EXPECT_EQ(std::memcmp(&back, &value, sizeof value), 0) << "behind " << lead << " bytes";
            EXPECT_EQ(byte, 0xA5);
        });
    }
}

template <class... T>
void RoundTripsAcrossBoundaries(T... values)
{
    (RoundTripAcrossBoundaries(values), ...);
}

TEST(CArchive, EveryNumberTypeCrossesBufferBoundaries)
{
    RoundTripsAcrossBoundaries(true, char(-7), (signed char)(-8), (unsigned char)(200), short(SHRT_MIN),
                               (unsigned short)(0xFFFE), INT_MIN, UINT_MAX - 1, LONG_MIN, ULONG_MAX - 1, LLONG_MIN,
                               ULLONG_MAX - 1, std::numeric_limits<float>::denorm_min(),
                               std::numeric_limits<double>::quiet_NaN());
}

TEST(CArchive, BlocksOfEverySizeKeepTheirOrder)
{
    // Blocks around the buffer's size go through it, past it, or both; numbers between them must not overtake.
    const int sizes[] = {0, 1, 127, 128, 129, 255, 256, 257, 1000};
    Bytes expected;
    const auto fill = [&](CArchive& ar) {
        for (int size : sizes) {
            const Bytes block(size_t(size), BYTE(size * 7));
            ar.Write(block.data(), UINT(size));
            ar << size;
            expected = expected + block + Bytes{BYTE(size), BYTE(size >> 8), 0, 0};
        }
    };
    const Bytes bytes = Stored(fill, 128);
    EXPECT_EQ(bytes, expected);

    LoadBothWays(bytes, [&](CArchive& ar) {
        for (int size : sizes) {
            Bytes block(size_t(size), 0);
            ar.EnsureRead(block.data(), UINT(size));
            EXPECT_EQ(block, Bytes(size_t(size), BYTE(size * 7)));
            int mark = 0;
            ar >> mark;
            EXPECT_EQ(mark, size);
        }
        BYTE rest;
        EXPECT_EQ(ar.Read(&rest, 1), 0u);
    });
}

TEST(CArchive, LengthPrefixes)
{
    const struct
    {
        UINT_PTR length;
        Bytes prefix;
    } cases[] = {
        {0, {0x00}},
        {254, {0xFE}},
        {255, {0xFF, 0xFF, 0x00}},
        {0xFFFD, {0xFF, 0xFD, 0xFF}},
        {0xFFFE, {0xFF, 0xFF, 0xFF, 0xFE, 0xFF, 0x00, 0x00}},
        {0xFFFF, {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x00, 0x00}},
        {0xFFFFFFFE, {0xFF, 0xFF, 0xFF, 0xFE, 0xFF, 0xFF, 0xFF}},
        {0xFFFFFFFF, {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 0, 0}},
        {0x123456789A, {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x9A, 0x78, 0x56, 0x34, 0x12, 0, 0, 0}},
    };
    const Bytes wideMark = {0xFF, 0xFE, 0xFF};
    for (const auto& c : cases) {
        for (int wide = 0; wide <= 1; ++wide) {
            const Bytes expected = wide ? wideMark + c.prefix : c.prefix;
            EXPECT_EQ(Stored([&](CArchive& ar) { AfxWriteStringLength(ar, c.length, wide); }), expected) << c.length;
            const int cause = CauseWhileLoading(expected, [&](CArchive& ar) {
                int charSize = 0;
                EXPECT_EQ(AfxReadStringLength(ar, charSize), c.length);
                EXPECT_EQ(charSize, wide + 1) << c.length;
            });
            EXPECT_EQ(cause, CArchiveException::none) << c.length;
        }
    }
}

TEST(CArchive, TextsOfLengthsAroundThePrefixes)
{
    for (int length : {0, 1, 254, 255, 256, 0xFFFD, 0xFFFE, 0xFFFF, 70000}) {
        CString text;
        for (int i = 0; i < length; ++i)
            text.AppendChar(char(i)); // all bytes, zero too
        const Bytes bytes = Stored([&](CArchive& ar) { ar << text << 5; });
        CauseWhileLoading(bytes, [&](CArchive& ar) {
            CString back("old");
            int mark = 0;
            ar >> back >> mark;
            EXPECT_EQ(back, text) << length;
            EXPECT_EQ(mark, 5) << length;
        });
    }
}

TEST(CArchive, WideTextsBecomeUtf8)
{
    const struct
    {
        const char* why;
        Bytes bytes; // behind the mark of wide texts
        const char* expected;
    } cases[] = {
        {"plain letters", {2, 'N', 0, '1', 0}, "N1"},
        {"two and three bytes: micro, ohm", {2, 0xB5, 0x00, 0x26, 0x21}, "\xC2\xB5\xE2\x84\xA6"},
        {"a pair of surrogates: U+1F50C", {2, 0x3D, 0xD8, 0x0C, 0xDD}, "\xF0\x9F\x94\x8C"},
        {"a high surrogate at the end", {2, 'a', 0, 0x3D, 0xD8}, "a\xEF\xBF\xBD"},
        {"a low surrogate first", {2, 0x0C, 0xDD, 'z', 0}, "\xEF\xBF\xBDz"},
        {"empty", {0}, ""},
    };
    for (const auto& c : cases) {
        const int cause = CauseWhileLoading(Bytes{0xFF, 0xFE, 0xFF} + c.bytes, [&](CArchive& ar) {
            CString text("old");
            ar >> text;
            EXPECT_EQ(text, c.expected) << c.why;
        });
        EXPECT_EQ(cause, CArchiveException::none) << c.why;
    }
    // A pair whose halves fall into two of the reader's steps.
    const Bytes prefix = {0xFF, 0xFE, 0xFF, 0xFF, 0x01, 0x08}; // 2049 units
    CauseWhileLoading(prefix + Bytes(2 * 2047, 'x') + Bytes{0x3D, 0xD8, 0x0C, 0xDD}, [&](CArchive& ar) {
        CString text;
        ar >> text;
        EXPECT_EQ(text.GetLength(), 2047 * 3 + 4) << "U+7878 takes three bytes";
        EXPECT_EQ(text.Right(4), "\xF0\x9F\x94\x8C");
    });
}

TEST(CArchive, EveryTruncationEndsInEndOfFile)
{
    const Bytes whole = Stored([](CArchive& ar) { ar << 1 << CString('t', 300) << 2.5 << BYTE(9); });
    const auto load = [](CArchive& ar) {
        int number;
        CString text;
        double value;
        BYTE last;
        ar >> number >> text >> value >> last;
    };
    ASSERT_EQ(CauseWhileLoading(whole, load), CArchiveException::none);
    for (size_t length = 0; length < whole.size(); ++length) {
        const Bytes cut(whole.begin(), whole.begin() + ptrdiff_t(length));
        EXPECT_EQ(CauseWhileLoading(cut, load), CArchiveException::endOfFile) << length << " bytes";
    }
}

TEST(CArchive, PromisedLengthsAreNotBelieved)
{
    const struct
    {
        const char* why;
        Bytes bytes;
    } cases[] = {
        {"4 GB promised", {0xFF, 0xFF, 0xFF, 0xFE, 0xFF, 0xFF, 0xFF, 'a', 'b', 'c'}},
        {"2^63 promised", {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 0, 0, 0, 0, 0, 0x80, 'a', 'b', 'c'}},
        {"4 GB of wide units", {0xFF, 0xFE, 0xFF, 0xFF, 0xFF, 0xFF, 0xFE, 0xFF, 0xFF, 0xFF, 'a', 0, 'b'}},
    };
    for (const auto& c : cases) {
        CString text("kept");
        EXPECT_EQ(CauseWhileLoading(c.bytes, [&](CArchive& ar) { ar >> text; }), CArchiveException::endOfFile) << c.why;
        EXPECT_EQ(text, "kept") << c.why;
    }
}

TEST(CArchive, WrongDirectionRaises)
{
    CMemFile file;
    CArchive out(&file, CArchive::store);
    int number = 0;
    CString text;
    EXPECT_EQ(ArchiveCause([&] { out >> number; }), CArchiveException::writeOnly);
    EXPECT_EQ(ArchiveCause([&] { out >> text; }), CArchiveException::writeOnly);
    EXPECT_EQ(ArchiveCause([&] { out.Read(&number, 1); }), CArchiveException::writeOnly);
    out << 7;
    out.Close();
    out.Close();
    EXPECT_EQ(ArchiveCause([&] { out << 1; }), CArchiveException::genericException);
    EXPECT_EQ(ArchiveCause([&] { out.Write("x", 1); }), CArchiveException::genericException);

    file.SeekToBegin();
    CArchive in(&file, CArchive::load);
    EXPECT_EQ(ArchiveCause([&] { in << 1; }), CArchiveException::readOnly);
    EXPECT_EQ(ArchiveCause([&] { in << CString("x"); }), CArchiveException::readOnly);
    in >> number;
    EXPECT_EQ(number, 7) << "a refused call leaves the archive usable";
    in.Abort();
    EXPECT_EQ(ArchiveCause([&] { in >> number; }), CArchiveException::genericException);
}

TEST(CArchive, FlushAndCloseSetTheFilePosition)
{
    CMemFile file;
    CArchive out(&file, CArchive::store);
    out << 1 << 2;
    EXPECT_EQ(file.GetLength(), 0u) << "held back";
    out.Flush();
    EXPECT_EQ(file.GetLength(), 8u);
    out << 3;
    out.Close();

    file.SeekToBegin();
    int number = 0;
    {
        CArchive in(&file, CArchive::load);
        in >> number;
        in.Flush();
        EXPECT_EQ(file.GetPosition(), 4u) << "what was read ahead is given back";
        in >> number;
    }
    EXPECT_EQ(number, 2);
    EXPECT_EQ(file.GetPosition(), 8u);
}

/// A file that has no room.
class FullFile : public CMemFile
{
public:
    void Write(const void*, UINT) override { AfxThrowFileException(CFileException::diskFull); }
};

TEST(CArchive, FailuresOfTheFilePassButNotFromTheDestructor)
{
    FullFile file;
    {
        CArchive ar(&file, CArchive::store);
        ar << 1;
        EXPECT_TRUE(Raises<CFileException>([&] { ar.Close(); }));
        EXPECT_EQ(ar.GetFile(), &file) << "still open: the caller decides";
    }
    CMemFile untouched;
    {
        CArchive ar(&untouched, CArchive::store | CArchive::bNoFlushOnDelete);
        ar << 1;
    }
    EXPECT_EQ(untouched.GetLength(), 0u);
}

TEST(CArchive, CountsHaveThreeForms)
{
    for (DWORD_PTR count : {DWORD_PTR(0), DWORD_PTR(0xFFFE), DWORD_PTR(0xFFFF), DWORD_PTR(0xFFFFFFFE),
                            DWORD_PTR(0xFFFFFFFF), DWORD_PTR(1) << 40})
    {
        const Bytes bytes = Stored([&](CArchive& ar) { ar.WriteCount(count); });
        EXPECT_EQ(bytes.size(), count < 0xFFFF ? 2u : count < 0xFFFFFFFF ? 6u : 14u) << count;
        CauseWhileLoading(bytes, [&](CArchive& ar) { EXPECT_EQ(ar.ReadCount(), count); });
    }
}

} // namespace
