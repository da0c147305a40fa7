#include <afx.h>
#include <windows.h>

#include "Raises.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <string>
#include <thread>

namespace {

class Files : public ::testing::Test, protected TemporaryFolder
{};

TEST_F(Files, FlagsOfOpen)
{
    const struct
    {
        const char* why;
        bool exists;
        UINT flags;
        int cause;
        const char* after; // contents once two bytes were written, when it opened for writing
    } cases[] = {
        {"reading what is not there", false, CFile::modeRead, CFileException::fileNotFound, nullptr},
        {"writing does not make files", false, CFile::modeWrite, CFileException::fileNotFound, nullptr},
        {"writing leaves the rest", true, CFile::modeWrite, CFileException::none, "XYcdef"},
        {"creating", false, CFile::modeCreate | CFile::modeWrite, CFileException::none, "XY"},
        {"creating empties", true, CFile::modeCreate | CFile::modeReadWrite, CFileException::none, "XY"},
        {"unless told otherwise", true, CFile::modeCreate | CFile::modeNoTruncate | CFile::modeWrite,
         CFileException::none, "XYcdef"},
    };
    for (const auto& c : cases) {
        const std::string path = Path("file");
        DeleteFileA(path.c_str());
        if (c.exists)
            Put("file", "abcdef");
        CFile file;
        CFileException error;
        EXPECT_EQ(file.Open(path.c_str(), c.flags, &error), c.cause == CFileException::none) << c.why;
        EXPECT_EQ(error.m_cause, c.cause) << c.why;
        if (c.after) {
            file.Write("XY", 2);
            file.Close();
            EXPECT_EQ(Get("file"), c.after) << c.why;
        }
    }
    EXPECT_TRUE(Raises<CFileException>([&] { CFile(Path().c_str(), CFile::modeRead); })) << "a directory has no bytes";
    EXPECT_TRUE(Raises<CFileException>([&] { CFile(nullptr, CFile::modeRead); }));
}

/// What every kind of file has to do alike.
void ExerciseFile(CFile& file)
{
    file.Write("0123456789 and some more", 24);
    file.SetLength(10); // what is cut off must not come back below
    EXPECT_EQ(file.GetPosition(), 10u);
    EXPECT_EQ(file.Seek(-4, CFile::current), 6u);
    char bytes[8] = {};
    EXPECT_EQ(file.Read(bytes, 8), 4u) << "fewer at the end";
    EXPECT_STREQ(bytes, "6789");
    EXPECT_EQ(file.Read(bytes, 8), 0u);
    EXPECT_EQ(file.Seek(2, CFile::begin), 2u);
    EXPECT_EQ(file.Read(bytes, 1), 1u);
    file.Write("X", 1); // right after reading
    EXPECT_EQ(file.Read(bytes, 1), 1u);
    EXPECT_EQ(bytes[0], '4');
    EXPECT_TRUE(Raises<CFileException>([&] { file.Seek(-11, CFile::end); }));
    EXPECT_EQ(file.GetPosition(), 5u) << "a refused seek moves nothing";

    EXPECT_EQ(file.Seek(4, CFile::end), 14u);
    file.Write("Z", 1);
    EXPECT_EQ(file.GetLength(), 15u);
    file.Seek(9, CFile::begin);
    char tail[6];
    EXPECT_EQ(file.Read(tail, 6), 6u);
    EXPECT_EQ(std::memcmp(tail, "9\0\0\0\0Z", 6), 0) << "the gap reads as zeros";

    file.SetLength(3);
    EXPECT_EQ(file.SeekToEnd(), 3u);
    file.SetLength(5);
    file.SeekToBegin();
    EXPECT_EQ(file.Read(tail, 6), 5u);
    EXPECT_EQ(std::memcmp(tail, "012\0\0", 5), 0);
}

TEST_F(Files, AllKindsBehaveAlike)
{
    const UINT flags = CFile::modeCreate | CFile::modeReadWrite;
    CFile disk(Path("disk").c_str(), flags);
    ExerciseFile(disk);
    CStdioFile buffered(Path("stdio").c_str(), flags | CFile::typeBinary);
    ExerciseFile(buffered);
    CMemFile memory;
    ExerciseFile(memory);
    CMemFile attached;
    attached.Attach(static_cast<BYTE*>(std::malloc(4)), 4, 8); // outgrown at once
    EXPECT_EQ(attached.GetLength(), 0u) << "a block that may grow is room to write into, not contents";
    ExerciseFile(attached);
    std::free(attached.Detach());
}

TEST_F(Files, NotOpenRaises)
{
    CFile disk;
    CStdioFile buffered;
    char byte = 0;
    for (CFile* file : {&disk, static_cast<CFile*>(&buffered)}) {
        EXPECT_TRUE(Raises<CFileException>([&] { file->Read(&byte, 1); }));
        EXPECT_TRUE(Raises<CFileException>([&] { file->Write(&byte, 1); }));
        EXPECT_TRUE(Raises<CFileException>([&] { file->Seek(0, CFile::begin); }));
        EXPECT_TRUE(Raises<CFileException>([&] { file->GetLength(); }));
        EXPECT_TRUE(Raises<CFileException>([&] { file->SetLength(1); }));
        file->Close();
    }
    CFile readOnly;
    Put("file", "a");
    ASSERT_TRUE(readOnly.Open(Path("file").c_str(), CFile::modeRead));
    EXPECT_TRUE(Raises<CFileException>([&] { readOnly.Write("x", 1); }));
}

TEST_F(Files, LinesOfText)
{
    Put("text", "one\r\n\ntwo\r\rthree");
    for (UINT type : {UINT(CFile::typeText), UINT(CFile::typeBinary)}) {
        CStdioFile file(Path("text").c_str(), CFile::modeRead | type);
        CString line, all;
        while (file.ReadString(line))
            all += line + '|';
        EXPECT_EQ(all, type == CFile::typeText ? "one||two\r\rthree|" : "one\r||two\r\rthree|");
        EXPECT_EQ(line, "");
    }
    CStdioFile out(Path("out").c_str(), CFile::modeCreate | CFile::modeWrite);
    out.WriteString("a\n");
    out.WriteString("b");
    out.Close();
    EXPECT_EQ(Get("out"), "a\nb");
}

TEST_F(Files, MemoryBlocksOfTheCaller)
{
    BYTE block[4] = {1, 2, 3, 4};
    CMemFile fixed(block, sizeof block);
    EXPECT_EQ(fixed.GetLength(), 4u);
    fixed.Write("\x09", 1);
    EXPECT_EQ(block[0], 9);
    EXPECT_TRUE(Raises<CMemoryException>([&] { fixed.Write("abcd", 4); })) << "it cannot grow";
    EXPECT_EQ(fixed.GetPosition(), 1u);
    EXPECT_EQ(fixed.Detach(), block);
    EXPECT_EQ(fixed.GetLength(), 0u);

    CMemFile file;
    file.Seek(INT64_MAX, CFile::begin);
    EXPECT_TRUE(Raises<CMemoryException>([&] { file.Write("a", 1); }));
    EXPECT_EQ(file.GetLength(), 0u);
    EXPECT_TRUE(Raises<CFileException>([&] { file.Seek(1, CFile::current); })) << "positions have an end";
}

TEST_F(Files, MemoryIsReachedDirectly)
{
    CMemFile file(16);
    void* start = nullptr;
    void* stop = nullptr;
    EXPECT_EQ(file.GetBufferPtr(CFile::bufferCheck), UINT(CFile::bufferDirect));
    EXPECT_EQ(file.GetBufferPtr(CFile::bufferWrite, 100, &start, &stop), 100u);
    ASSERT_EQ(static_cast<BYTE*>(stop) - static_cast<BYTE*>(start), 100);
    std::memset(start, 'm', 100);
    EXPECT_EQ(file.GetLength(), 0u) << "not yet part of the file";
    EXPECT_EQ(file.GetBufferPtr(CFile::bufferCommit, 60), 60u);
    EXPECT_EQ(file.GetLength(), 60u);
    EXPECT_TRUE(Raises<CInvalidArgException>([&] { file.GetBufferPtr(CFile::bufferCommit, 1000); }));
    file.Seek(58, CFile::begin);
    EXPECT_EQ(file.GetBufferPtr(CFile::bufferRead, 10, &start, &stop), 2u);
    EXPECT_EQ(*static_cast<char*>(start), 'm');
    EXPECT_EQ(file.GetPosition(), 60u);
    file.Seek(5000, CFile::begin);
    EXPECT_EQ(file.GetBufferPtr(CFile::bufferCommit, 0), 0u);
    EXPECT_EQ(file.GetBufferPtr(CFile::bufferRead, 10, &start, &stop), 0u);
    EXPECT_EQ(start, stop);
    EXPECT_EQ(file.GetLength(), 60u) << "a position behind the end is no length";
    EXPECT_EQ(CFile().GetBufferPtr(CFile::bufferCheck), 0u);
}

TEST_F(Files, ArchivesOverFilesOnDisk)
{
    const std::string path = Path("archive");
    {
        CFile file(path.c_str(), CFile::modeCreate | CFile::modeWrite);
        CArchive ar(&file, CArchive::store);
        for (int i = 0; i < 50000; ++i)
            ar << i;
    }
    CStdioFile file(path.c_str(), CFile::modeRead | CFile::typeBinary);
    CArchive ar(&file, CArchive::load);
    int number = -1, expected = 0;
    try {
        for (;; ++expected) {
            ar >> number;
            ASSERT_EQ(number, expected);
        }
    } catch (CArchiveException* e) {
        EXPECT_EQ(expected, 50000);
        EXPECT_EQ(e->m_strFileName, path.c_str());
        char sentence[8];
        EXPECT_TRUE(e->GetErrorMessage(sentence, sizeof sentence));
        EXPECT_EQ(std::strlen(sentence), 7u) << "cut to the caller's room";
        e->Delete();
    }
}

HANDLE Open(const std::string& path, DWORD access, DWORD disposition)
{
    return CreateFileA(path.c_str(), access, 0, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
}

TEST_F(Files, Dispositions)
{
    const struct
    {
        const char* why;
        bool exists;
        DWORD disposition;
        DWORD error; // NO_ERROR when it has to open
        const char* after;
    } cases[] = {
        {"new", false, CREATE_NEW, NO_ERROR, "XY"},
        {"new, but there", true, CREATE_NEW, ERROR_FILE_EXISTS, "abc"},
        {"always", false, CREATE_ALWAYS, NO_ERROR, "XY"},
        {"always replaces", true, CREATE_ALWAYS, NO_ERROR, "XY"},
        {"existing", true, OPEN_EXISTING, NO_ERROR, "XYc"},
        {"existing, but not there", false, OPEN_EXISTING, ERROR_FILE_NOT_FOUND, ""},
        {"open or make", false, OPEN_ALWAYS, NO_ERROR, "XY"},
        {"emptied", true, TRUNCATE_EXISTING, NO_ERROR, "XY"},
        {"emptied, but not there", false, TRUNCATE_EXISTING, ERROR_FILE_NOT_FOUND, ""},
        {"no such disposition", true, 9, ERROR_INVALID_PARAMETER, "abc"},
    };
    for (const auto& c : cases) {
        const std::string path = Path("file");
        DeleteFileA(path.c_str());
        if (c.exists)
            Put("file", "abc");
        const HANDLE file = Open(path, GENERIC_WRITE, c.disposition);
        EXPECT_EQ(file != INVALID_HANDLE_VALUE, c.error == NO_ERROR) << c.why;
        DWORD written = 0;
        if (file == INVALID_HANDLE_VALUE)
            EXPECT_EQ(GetLastError(), c.error) << c.why;
        else
            EXPECT_TRUE(WriteFile(file, "XY", 2, &written, nullptr) && written == 2 && CloseHandle(file)) << c.why;
        EXPECT_EQ(Get("file"), c.after) << c.why;
    }
    EXPECT_EQ(Open(Path(), GENERIC_READ, OPEN_EXISTING), INVALID_HANDLE_VALUE);
    EXPECT_EQ(Open(Path("missing/file"), GENERIC_WRITE, CREATE_ALWAYS), INVALID_HANDLE_VALUE);
    EXPECT_FALSE(DeleteFileA(Path("missing").c_str()));
    EXPECT_TRUE(DeleteFileA(Path("file").c_str()));
    EXPECT_FALSE(Has("file"));
}

TEST_F(Files, HandlesAreChecked)
{
    Put("file", "abc");
    const HANDLE stale = Open(Path("file"), GENERIC_READ, OPEN_EXISTING);
    ASSERT_TRUE(CloseHandle(stale));
    const HANDLE fresh = Open(Path("file"), GENERIC_READ, OPEN_EXISTING); // takes the same place
    int dummy = 0;
    const HANDLE beside = static_cast<char*>(fresh) + 1;
    const HANDLE bad[] = {stale, nullptr, INVALID_HANDLE_VALUE, &dummy, HANDLE(UINT_PTR(4)), beside};
    char bytes[8];
    DWORD count = 99;
    for (const HANDLE handle : bad) {
        SetLastError(NO_ERROR);
        EXPECT_FALSE(ReadFile(handle, bytes, 1, &count, nullptr)) << handle;
        EXPECT_EQ(count, 0u);
        EXPECT_FALSE(WriteFile(handle, bytes, 1, &count, nullptr)) << handle;
        EXPECT_FALSE(CloseHandle(handle)) << handle;
        EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    }
    EXPECT_FALSE(WriteFile(fresh, "x", 1, &count, nullptr)) << "opened for reading only";
    EXPECT_TRUE(ReadFile(fresh, bytes, 8, &count, nullptr));
    EXPECT_EQ(count, 3u);
    EXPECT_TRUE(ReadFile(fresh, bytes, 8, &count, nullptr)) << "the end is no failure";
    EXPECT_EQ(count, 0u);
    EXPECT_TRUE(CloseHandle(fresh));
}

TEST(GlobalMemory, BlocksKeepContentsAndTellTheirSize)
{
    BYTE* block = static_cast<BYTE*>(GlobalAlloc(GMEM_FIXED, 44));
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(GlobalSize(block), 44u);
    for (int i = 0; i < 44; ++i)
        block[i] = BYTE(i);
    EXPECT_EQ(GlobalReAlloc(block, 1000, 0), nullptr) << "a fixed block may not move";
    EXPECT_EQ(GlobalSize(block), 44u);
    block = static_cast<BYTE*>(GlobalReAlloc(block, 100001, GMEM_MOVEABLE | GMEM_ZEROINIT));
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(GlobalSize(block), 100001u);
    EXPECT_EQ(block[43], 43);
    EXPECT_EQ(block[44] | block[100000], 0);
    EXPECT_EQ(GlobalReAlloc(block, SIZE_MAX, GMEM_MOVEABLE), nullptr);
    EXPECT_EQ(GlobalSize(block), 100001u);
    EXPECT_EQ(GlobalFree(block), nullptr);

    EXPECT_EQ(GlobalSize(block), 0u);
    EXPECT_EQ(GlobalFree(block), block) << "freed before";
    EXPECT_EQ(GlobalLock(block), nullptr);
    EXPECT_EQ(GlobalReAlloc(block, 1, GMEM_MOVEABLE), nullptr);
    EXPECT_EQ(GlobalFree(nullptr), nullptr);
    EXPECT_EQ(GlobalAlloc(GMEM_FIXED, SIZE_MAX), nullptr);
    const HGLOBAL empty = GlobalAlloc(GHND, 0);
    EXPECT_NE(empty, nullptr);
    EXPECT_EQ(GlobalFree(empty), nullptr);
}

TEST(GlobalMemory, LocksAreCounted)
{
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, 8);
    EXPECT_NE(GlobalLock(block), nullptr);
    EXPECT_NE(GlobalLock(block), nullptr);
    EXPECT_EQ(GlobalReAlloc(block, 1000, 0), nullptr) << "locked blocks stay in place";
    EXPECT_TRUE(GlobalUnlock(block));
    SetLastError(ERROR_GEN_FAILURE);
    EXPECT_FALSE(GlobalUnlock(block));
    EXPECT_EQ(GetLastError(), NO_ERROR);
    EXPECT_FALSE(GlobalUnlock(block));
    EXPECT_EQ(GetLastError(), ERROR_NOT_LOCKED);
    const HGLOBAL moved = GlobalReAlloc(block, 1000, 0);
    EXPECT_EQ(GlobalSize(moved), 1000u);
    GlobalFree(moved);
}

TEST(Kernel, MulDivRoundsHalvesAwayFromZero)
{
    const struct
    {
        int a, b, c, result;
    } cases[] = {
        {10, 96, 72, 13}, // 13.33
        {1, 3, 2, 2},     // 1.5
        {-1, 3, 2, -2},   // -1.5
        {1, 3, -2, -2},
        {-1, -3, 2, 2},
        {1, 1, 3, 0},
        {2, 1, 3, 1},
        {INT_MAX, INT_MAX, INT_MAX, INT_MAX},
        {INT_MIN, 1, -1, -1},            // 2^31 does not fit
        {INT_MIN, INT_MIN, INT_MIN, -1}, // nor does -2^31, whose magnitude is the same
        {INT_MIN, INT_MIN, 1, -1},
        {INT_MAX, 2, 1, -1},
        {5, 5, 0, -1},
        {0, 5, INT_MIN, 0},
    };
    for (const auto& c : cases)
        EXPECT_EQ(MulDiv(c.a, c.b, c.c), c.result) << c.a << " * " << c.b << " / " << c.c;
}

TEST(Kernel, ProcessClockCountsWallMilliseconds)
{
    const LONGLONG start = GetProcessMilliseconds();
    EXPECT_GE(start, 0);
    std::this_thread::sleep_for(std::chrono::milliseconds(30)); // takes no processor time
    EXPECT_GE(GetProcessMilliseconds() - start, 30);

    // The library's clock() is its own affair: the host's is found in the system.
    Dl_info library, owner;
    ASSERT_NE(dladdr(reinterpret_cast<void*>(&GetProcessMilliseconds), &library), 0);
    ASSERT_NE(dladdr(dlsym(RTLD_DEFAULT, "clock"), &owner), 0);
    EXPECT_NE(library.dli_fbase, owner.dli_fbase);
}

} // namespace
