/// Owners of pens, brushes, fonts, bitmaps and palettes.
#pragma once

#include <afx.h>
#include <windows.h>

/// Owns one handle and deletes it when destroyed. Attach takes a handle over, Detach gives it up.
///
/// FromHandle of the derived classes gives the wrapper that owns the handle, or else a temporary one. Temporary
/// wrappers belong to the platform: there is at most one for each slot of its handle tables, reused when the slot is,
/// and freed at exit, so that a pointer kept too long still leads to a wrapper whose handle is refused. Null for a null
/// or made-up handle.
class KOLM_API CGdiObject : public CObject
{
public:
    CGdiObject() = default;
    ~CGdiObject() override;

    operator HGDIOBJ() const { return m_hObject; }
    HGDIOBJ GetSafeHandle() const { return m_hObject; }
    BOOL Attach(HGDIOBJ object); ///< FALSE, and nothing taken, when it holds a handle already or `object` is null
    HGDIOBJ Detach();
    BOOL DeleteObject();
    int GetObject(int size, LPVOID record) const { return ::GetObjectA(m_hObject, size, record); }
    int GetObjectA(int size, LPVOID record) const { return ::GetObjectA(m_hObject, size, record); }
    /// FALSE when `index` is not a stock object or a handle is held. A stock object is not deleted with its wrapper.
    BOOL CreateStockObject(int index);
    static CGdiObject* FromHandle(HGDIOBJ object);
    /// Nothing to do: temporary wrappers are reused instead.
    static void DeleteTempMap() {}

    HGDIOBJ m_hObject = nullptr;
};

class KOLM_API CPen : public CGdiObject
{
public:
    CPen() = default;
    /// A pen that cannot be made leaves the wrapper without a handle.
    CPen(int style, int width, COLORREF color) { CreatePen(style, width, color); }
    CPen(int style, int width, const LOGBRUSH* brush, int styleCount = 0, const DWORD* styles = nullptr)
    {
        CreatePen(style, width, brush, styleCount, styles);
    }
    BOOL CreatePen(int style, int width, COLORREF color);
    BOOL CreatePen(int style, int width, const LOGBRUSH* brush, int styleCount = 0, const DWORD* styles = nullptr)
    {
        return Attach(::ExtCreatePen(DWORD(style), DWORD(width), brush, DWORD(styleCount), styles));
    }
    operator HPEN() const { return static_cast<HPEN>(m_hObject); }
    static CPen* FromHandle(HPEN pen) { return static_cast<CPen*>(CGdiObject::FromHandle(pen)); }
};

class KOLM_API CBrush : public CGdiObject
{
public:
    CBrush() = default;
    explicit CBrush(COLORREF color) { CreateSolidBrush(color); }
    CBrush(int hatch, COLORREF color) { CreateHatchBrush(hatch, color); }
    BOOL CreateSolidBrush(COLORREF color);
    BOOL CreateHatchBrush(int hatch, COLORREF color) { return Attach(::CreateHatchBrush(hatch, color)); }
    operator HBRUSH() const { return static_cast<HBRUSH>(m_hObject); }
    static CBrush* FromHandle(HBRUSH brush) { return static_cast<CBrush*>(CGdiObject::FromHandle(brush)); }
};

class KOLM_API CFont : public CGdiObject
{
public:
    BOOL CreateFontIndirect(const LOGFONT* record) { return Attach(::CreateFontIndirectA(record)); }
    operator HFONT() const { return static_cast<HFONT>(m_hObject); }
    static CFont* FromHandle(HFONT font) { return static_cast<CFont*>(CGdiObject::FromHandle(font)); }
};

class CDC;

class KOLM_API CBitmap : public CGdiObject
{
public:
    BOOL CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel, const void* bits)
    {
        return Attach(::CreateBitmap(width, height, planes, bitsPerPixel, bits));
    }
    BOOL CreateCompatibleBitmap(CDC* dc, int width, int height);
    int GetBitmap(BITMAP* record) const { return GetObjectA(int(sizeof *record), record); }
    operator HBITMAP() const { return static_cast<HBITMAP>(m_hObject); }
    static CBitmap* FromHandle(HBITMAP bitmap) { return static_cast<CBitmap*>(CGdiObject::FromHandle(bitmap)); }
};

class KOLM_API CPalette : public CGdiObject
{
public:
    BOOL CreatePalette(LOGPALETTE* record) { return Attach(::CreatePalette(record)); }
    operator HPALETTE() const { return static_cast<HPALETTE>(m_hObject); }
    static CPalette* FromHandle(HPALETTE palette) { return static_cast<CPalette*>(CGdiObject::FromHandle(palette)); }
};
