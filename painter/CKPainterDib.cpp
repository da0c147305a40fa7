// Export: a bitmap of the device becomes a packed bitmap in global memory, and that becomes a file.
//
// A packed bitmap is what the clipboard and files understand: header, colour table and rows in one block. The file is
// the block behind a header of 14 bytes. Failures are told to the user in a message, never to the caller.
#include "foundation/CJpeg.h"
#include "painter/CKPainter.h"
#include "painter/GdiScope.h"

namespace {

constexpr WORD kBitmapFile = 0x4D42; // "BM"

/// A block of global memory that is freed unless it is handed on.
class GlobalBlock
{
public:
    explicit GlobalBlock(HGLOBAL block) : m_block(block) {}
    ~GlobalBlock()
    {
        if (m_block)
            ::GlobalFree(m_block);
    }
    GlobalBlock(const GlobalBlock&) = delete;
    GlobalBlock& operator=(const GlobalBlock&) = delete;

    /// False, and the block unchanged, when there is no memory for the new size.
    bool Resize(SIZE_T bytes)
    {
        HGLOBAL resized = ::GlobalReAlloc(m_block, bytes, GMEM_MOVEABLE);
        if (resized)
            m_block = resized;
        return resized != nullptr;
    }
    // Blocks are fixed, so that the handle is the address.
    BITMAPINFO* Info() const { return static_cast<BITMAPINFO*>(m_block); }
    BITMAPINFO* Release()
    {
        BITMAPINFO* const info = Info();
        m_block = nullptr;
        return info;
    }

private:
    HGLOBAL m_block;
};

/// The screen's device context with a palette realised in it.
class PaletteScreen
{
public:
    explicit PaletteScreen(HPALETTE palette) : m_screen(nullptr)
    {
        m_previous = ::SelectPalette(m_screen.Handle(), palette, FALSE);
        ::RealizePalette(m_screen.Handle());
    }
    ~PaletteScreen()
    {
        if (m_previous)
            ::SelectPalette(m_screen.Handle(), m_previous, FALSE);
    }
    PaletteScreen(const PaletteScreen&) = delete;
    PaletteScreen& operator=(const PaletteScreen&) = delete;

    HDC Handle() const { return m_screen.Handle(); }

private:
    WindowDC m_screen;
    HPALETTE m_previous;
};

/// A file for writing that replaces an existing one; closed at the end of its scope.
class OpenedFile
{
public:
    explicit OpenedFile(const char* path)
        : m_file(::CreateFileA(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr))
    {}
    ~OpenedFile()
    {
        if (IsOpen())
            ::CloseHandle(m_file);
    }
    OpenedFile(const OpenedFile&) = delete;
    OpenedFile& operator=(const OpenedFile&) = delete;

    bool IsOpen() const { return m_file != INVALID_HANDLE_VALUE; }
    /// True when all bytes arrived. A block of 4 GiB and more can't be written in one call and counts as failed.
    bool Write(const void* bytes, SIZE_T count)
    {
        DWORD written = 0;
        return ::WriteFile(m_file, bytes, static_cast<DWORD>(count), &written, nullptr) && written == count;
    }

private:
    HANDLE m_file;
};

/// A file that is in the way from the end of its scope on, whether it was written or not.
class DeletedFile
{
public:
    explicit DeletedFile(const char* path) : m_path(path) {}
    ~DeletedFile() { ::DeleteFileA(m_path); }
    DeletedFile(const DeletedFile&) = delete;
    DeletedFile& operator=(const DeletedFile&) = delete;

private:
    const char* m_path;
};

/// Entries of the colour table. The shift wraps at 32 bits, which gives such bitmaps one entry that nothing reads:
/// files have always been written so, and readers find the pixels by bfOffBits.
DWORD CountColors(WORD bitCount)
{
    const DWORD colors = DWORD(1) << (bitCount % 32);
    return colors <= 256 ? colors : 0;
}

/// What is known of the rows before the platform completes it; resolution and colour counts stay unsaid.
BITMAPINFOHEADER MakeHeader(const BITMAP& bitmap, DWORD compression)
{
    BITMAPINFOHEADER header = {};
    header.biSize = sizeof header;
    header.biWidth = bitmap.bmWidth;
    header.biHeight = bitmap.bmHeight; // positive: rows from the bottom up
    header.biPlanes = 1;
    header.biBitCount = static_cast<WORD>(bitmap.bmPlanes * bitmap.bmBitsPixel);
    header.biCompression = compression;
    return header;
}

/// Bytes of the pixels: what the platform filled in, or else whole rows of 32 bits with room for a compression that
/// makes them longer.
SIZE_T GetImageSize(const BITMAPINFOHEADER& header)
{
    if (header.biSizeImage)
        return header.biSizeImage;
    const uint64_t rowBits = uint64_t(header.biWidth) * header.biBitCount + 31;
    const uint64_t bytes = rowBits / 32 * 4 * uint64_t(header.biHeight);
    return static_cast<SIZE_T>(header.biCompression == BI_RGB ? bytes : bytes * 3 / 2);
}

} // namespace

BITMAPINFO* CKPainter::DDBToDIB(CBitmap& bitmap, DWORD compression, CPalette* palette)
{
    // Bit fields need masks after the header, for which there is no room in the layout.
    BITMAP record = {};
    if (compression == BI_BITFIELDS || !bitmap.GetObject(sizeof record, &record))
        return nullptr;

    BITMAPINFOHEADER header = MakeHeader(record, compression);
    const SIZE_T tableSize = CountColors(header.biBitCount) * sizeof(RGBQUAD);
    // Colours are looked up in the palette that is realised while the rows are converted.
    HPALETTE handle = palette ? static_cast<HPALETTE>(palette->GetSafeHandle()) : nullptr;
    if (!handle)
        handle = static_cast<HPALETTE>(::GetStockObject(DEFAULT_PALETTE));
    const PaletteScreen screen(handle);

    // First only header and table, which is all that is needed to ask for the rest. Zeroed, since nothing fills the one
    // table entry of a 32-bit bitmap and the file has to have the same bytes each time.
    GlobalBlock block(::GlobalAlloc(GPTR, sizeof header + tableSize));
    if (!block.Info())
        return nullptr;
    HBITMAP source = static_cast<HBITMAP>(bitmap.GetSafeHandle());
    const UINT rows = static_cast<UINT>(header.biHeight);
    block.Info()->bmiHeader = header;
    ::GetDIBits(screen.Handle(), source, 0, rows, nullptr, block.Info(), DIB_RGB_COLORS); // completes the header
    header = block.Info()->bmiHeader;

    // The size of the image is known only now: the platform knows how it pads and packs rows.
    if (!block.Resize(sizeof header + tableSize + GetImageSize(header)))
        return nullptr;
    BYTE* const pixels = reinterpret_cast<BYTE*>(block.Info()) + header.biSize + tableSize;
    if (!::GetDIBits(screen.Handle(), source, 0, rows, pixels, block.Info(), DIB_RGB_COLORS))
        return nullptr;
    return block.Release();
}

// The wrappers are temporary and own nothing: bitmap and palette stay the caller's.
BITMAPINFO* CKPainter::DDBToDIB(HBITMAP bitmap, DWORD compression, HPALETTE palette)
{
    CBitmap* const wrapped = CBitmap::FromHandle(bitmap);
    return wrapped ? DDBToDIB(*wrapped, compression, palette ? CPalette::FromHandle(palette) : nullptr) : nullptr;
}

int CKPainter::WriteDIB(const char* path, BITMAPINFO* packed)
{
    if (!packed)
        return 0;

    // Everything in the block is written, so the size in the file's header is right even where blocks are rounded up.
    const SIZE_T size = ::GlobalSize(packed);
    const BITMAPINFOHEADER& info = packed->bmiHeader;
    BITMAPFILEHEADER header = {};
    header.bfType = kBitmapFile;
    header.bfSize = static_cast<DWORD>(sizeof header + size);
    header.bfOffBits = static_cast<DWORD>(sizeof header + info.biSize + CountColors(info.biBitCount) * sizeof(RGBQUAD));

    // The file is closed after the message, and what was written stays: the user may want to look at it.
    OpenedFile file(path);
    const char* message = nullptr;
    if (!file.IsOpen())
        message = "CKPainter::WriteDIB, INVALID_HANDLE_VALUE";
    else if (!file.Write(&header, sizeof header))
        message = "CKPainter::WriteDIB, 1st Try WriteFile";
    else if (!file.Write(packed, size))
        message = "CKPainter::WriteDIB, 2nd Try WriteFile";
    if (!message)
        return 1;
    AfxMessageBox(message);
    return 0;
}

// Both exports go through one packed bitmap, which is freed whatever the host's message box does.
void CKPainter::SaveToBMP(CString path, HBITMAP bitmap)
{
    const GlobalBlock packed(DDBToDIB(bitmap, BI_RGB, nullptr));
    WriteDIB(path, packed.Info());
}

void CKPainter::SaveToJPG(CString path, HBITMAP bitmap)
{
    const CString bitmapPath = path + ".bmp";
    const DeletedFile temporary(bitmapPath); // also when the host's message box throws
    const GlobalBlock packed(DDBToDIB(bitmap, BI_RGB, nullptr));
    WriteDIB(bitmapPath, packed.Info());
    // Called whatever became of the bitmap file: without one there is nothing to convert, and nothing is harmed.
    CJpeg::ConvertBMPToJPG(bitmapPath, path);
}
