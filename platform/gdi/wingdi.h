/// Device contexts, the objects selected into them, paths, text and bitmaps.
///
/// Handles carry a slot, a generation and a kind. A handle that is stale, of the wrong kind or made up is refused with
/// the failure value that each function names; it never reaches an object. Everything here belongs to the thread that
/// draws: nothing is locked.
///
/// Logical coordinates are ints; device coordinates are pixels, x to the right, y downward. Under GM_ADVANCED the world
/// transform leads from the first to the second; a device coordinate is the nearest pixel, floor(v + 0.5), held within
/// int32.
#pragma once

#include "base/wintypes.h"
#include "gdi/gdirecords.h"
#include "KolmApi.h"

class CStringArray;

// ---- Objects ----

/// Frees an object. A pen, brush, font or palette that is still selected lives until the last device context lets it
/// go; a selected bitmap is refused (FALSE). Stock objects stay and give TRUE. FALSE for anything that is not a live
/// object.
KOLM_API BOOL DeleteObject(HGDIOBJ object);
/// Selects a pen, brush, font or bitmap and returns the one it replaces; null when either handle is refused, for a
/// palette, and for a bitmap that another device context holds, or any bitmap on a device context that is not a memory
/// one.
KOLM_API HGDIOBJ SelectObject(HDC dc, HGDIOBJ object);
/// The selected object of a kind (OBJ_PEN, OBJ_BRUSH, OBJ_FONT, OBJ_BITMAP, OBJ_PAL); null for other kinds.
KOLM_API HGDIOBJ GetCurrentObject(HDC dc, UINT kind);
/// OBJ_PEN, OBJ_BRUSH, ..., or 0 for a refused handle.
KOLM_API DWORD GetObjectType(HGDIOBJ object);
/// Copies the object's record (BITMAP, DIBSECTION, LOGPEN, EXTLOGPEN, LOGBRUSH, LOGFONTA, a WORD for a palette) and
/// returns the bytes written, 0 when the room is too small or the handle refused. A null record gives the size needed.
KOLM_API int GetObjectA(HGDIOBJ object, int size, LPVOID record);
inline int GetObject(HGDIOBJ object, int size, LPVOID record)
{
    return GetObjectA(object, size, record);
}
/// One of the stock pens, brushes, fonts or the default palette. They never count and are never freed. Null when
/// unknown.
KOLM_API HGDIOBJ GetStockObject(int index);

/// Pens. A width of 0 or 1 is one device pixel. PS_NULL and PS_INSIDEFRAME are known; an unknown style is taken as
/// solid.
KOLM_API HPEN CreatePen(int style, int width, COLORREF color);
KOLM_API HPEN CreatePenIndirect(const LOGPEN* record);
/// Geometric pens of solid brushes (PS_GEOMETRIC, any end and join flag: ends and joins are drawn round) and cosmetic
/// ones of width 1. Null for other brushes, for a null record and for style arrays.
KOLM_API HPEN ExtCreatePen(DWORD style, DWORD width, const LOGBRUSH* brush, DWORD styleCount, const DWORD* styles);
KOLM_API HBRUSH CreateSolidBrush(COLORREF color);
/// HS_HORIZONTAL to HS_DIAGCROSS; null for another style.
KOLM_API HBRUSH CreateHatchBrush(int hatch, COLORREF color);
/// Solid, hatched and hollow brushes; null for other styles.
KOLM_API HBRUSH CreateBrushIndirect(const LOGBRUSH* record);

/// The record is kept as given; the face is looked up when text is first drawn or measured. Null for a null record.
KOLM_API HFONT CreateFontIndirectA(const LOGFONTA* record);
KOLM_API HFONT CreateFontA(int height, int width, int escapement, int orientation, int weight, DWORD italic,
                           DWORD underline, DWORD strikeOut, DWORD charSet, DWORD outPrecision, DWORD clipPrecision,
                           DWORD quality, DWORD pitchAndFamily, LPCSTR face);

/// Palettes are kept for their handles only: every surface holds true colours or two values.
KOLM_API HPALETTE CreatePalette(const LOGPALETTE* record);
KOLM_API HPALETTE SelectPalette(HDC dc, HPALETTE palette, BOOL forceBackground);
/// 0, since no entry ever changes; GDI_ERROR for a refused handle.
KOLM_API UINT RealizePalette(HDC dc);

// ---- Device contexts ----

/// A memory device context that holds a 1 x 1 monochrome bitmap. `dc` may be null (the screen). The caller deletes it.
KOLM_API HDC CreateCompatibleDC(HDC dc);
/// Frees a memory device context and lets go of what it holds. FALSE for a window's or the screen's, which ReleaseDC
/// ends.
KOLM_API BOOL DeleteDC(HDC dc);
/// LOGPIXELSX, LOGPIXELSY, BITSPIXEL, PLANES, HORZRES, VERTRES, TECHNOLOGY; 0 for others and for a refused handle.
KOLM_API int GetDeviceCaps(HDC dc, int index);

/// Each returns the former value and 0 (CLR_INVALID for colours) for a refused handle or value.
KOLM_API int SetBkMode(HDC dc, int mode);
KOLM_API COLORREF SetBkColor(HDC dc, COLORREF color);
KOLM_API COLORREF SetTextColor(HDC dc, COLORREF color);
KOLM_API int SetROP2(HDC dc, int mode); ///< the six modes of gdirecords.h
KOLM_API int SetPolyFillMode(HDC dc, int mode);
KOLM_API int SetArcDirection(HDC dc, int direction);
/// GM_COMPATIBLE is refused (0) while the world transform is not the identity.
KOLM_API int SetGraphicsMode(HDC dc, int mode);
KOLM_API UINT SetTextAlign(HDC dc, UINT align); ///< GDI_ERROR for a refused handle

KOLM_API int GetBkMode(HDC dc);
KOLM_API COLORREF GetBkColor(HDC dc);
KOLM_API COLORREF GetTextColor(HDC dc);
KOLM_API int GetROP2(HDC dc);
KOLM_API int GetPolyFillMode(HDC dc);
KOLM_API int GetArcDirection(HDC dc);
KOLM_API int GetGraphicsMode(HDC dc);
KOLM_API UINT GetTextAlign(HDC dc);

/// FALSE under GM_COMPATIBLE, for a null record, and for a matrix that is singular or not finite.
KOLM_API BOOL SetWorldTransform(HDC dc, const XFORM* transform);
KOLM_API BOOL GetWorldTransform(HDC dc, XFORM* transform);

// ---- Paths and lines ----

/// Between BeginPath and EndPath lines and arcs are collected instead of drawn. Each of these gives FALSE out of its
/// turn: EndPath and CloseFigure without an open path, the others without a finished one. Drawing consumes the path.
KOLM_API BOOL BeginPath(HDC dc);
KOLM_API BOOL EndPath(HDC dc);
KOLM_API BOOL AbortPath(HDC dc);
KOLM_API BOOL CloseFigure(HDC dc);
KOLM_API BOOL StrokePath(HDC dc);
KOLM_API BOOL FillPath(HDC dc); ///< open figures are closed for filling
KOLM_API BOOL StrokeAndFillPath(HDC dc);
/// The finished path in logical coordinates, PT_MOVETO, PT_LINETO and PT_BEZIERTO (arcs come as Bezier curves), the
/// last point of a closed figure with PT_CLOSEFIGURE. Returns the number of points; with count 0 nothing is copied. -1
/// when there is no finished path, when the room is too small or a pointer null. The path stays.
KOLM_API int GetPath(HDC dc, LPPOINT points, LPBYTE types, int count);

KOLM_API BOOL MoveToEx(HDC dc, int x, int y, LPPOINT former);
KOLM_API BOOL GetCurrentPositionEx(HDC dc, LPPOINT position);
KOLM_API BOOL LineTo(HDC dc, int x, int y);
/// A line to the point where the first radial meets the ellipse of the box, then the arc to the second radial in the
/// current direction; equal radials give the whole ellipse. The current position moves to the arc's end. FALSE and
/// nothing drawn for a box without extent.
KOLM_API BOOL ArcTo(HDC dc, int left, int top, int right, int bottom, int xr1, int yr1, int xr2, int yr2);
/// Outline by the pen, inside by the brush. Under GM_COMPATIBLE the right and bottom edges stay outside.
KOLM_API BOOL Rectangle(HDC dc, int left, int top, int right, int bottom);

// ---- Pixels and blocks ----

/// The colour that the surface now holds; CLR_INVALID outside of it. The raster operation is not looked at.
KOLM_API COLORREF SetPixel(HDC dc, int x, int y, COLORREF color);
KOLM_API COLORREF GetPixel(HDC dc, int x, int y);
/// Block transfer by a ternary raster code, whose third byte is the truth table of pattern, source and destination;
/// codes that use no source take a null one. From 1 bit to colours 0 becomes the destination's text colour and 1 its
/// background colour; from colours to 1 bit a pixel of the source's background colour becomes 1, any other 0. What lies
/// outside of either surface is left out; overlapping blocks of one surface come out as if copied first. FALSE under
/// world transforms that do more than move.
KOLM_API BOOL BitBlt(HDC dc, int x, int y, int width, int height, HDC source, int xSrc, int ySrc, DWORD code);
/// The box around all logical points whose pixels exist. SIMPLEREGION, NULLREGION and an empty box for a device context
/// without pixels, 0 (and an untouched record) for a refused handle.
KOLM_API int GetClipBox(HDC dc, LPRECT box);
KOLM_API BOOL PatBlt(HDC dc, int x, int y, int width, int height, DWORD code);

/// A bitmap of 1, 24 or 32 bits, zeroed or filled from `bits` (rows padded to 16 bits). Null for other depths, negative
/// sizes and when memory does not suffice; a zero size gives a 1 x 1 monochrome bitmap.
KOLM_API HBITMAP CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel, const void* bits);
/// The kind of bitmap that the device context holds: monochrome for a new memory one, 32 bits for windows and the
/// screen.
KOLM_API HBITMAP CreateCompatibleBitmap(HDC dc, int width, int height);
/// A bitmap of 1, 24 or 32 bits whose rows the caller can reach, bottom-up for a positive height. `section` has to be
/// null. The memory belongs to the bitmap and goes with it.
KOLM_API HBITMAP CreateDIBSection(HDC dc, const BITMAPINFO* info, UINT usage, void** bits, HANDLE section,
                                  DWORD offset);
/// Copies rows into a bitmap of 1, 24 or 32 bits, padded to 32 bits, bottom-up for a positive height, and fills the
/// header and the colour table of 1 bit (black, white). Without bits only the header is completed; a header whose
/// biBitCount is 0 then gets the bitmap's own. Returns the rows (the bitmap's height without bits), 0 when anything is
/// refused.
KOLM_API int GetDIBits(HDC dc, HBITMAP bitmap, UINT startRow, UINT rows, LPVOID bits, BITMAPINFO* info, UINT usage);

// ---- Text ----

/// Text is UTF-8; a byte that is not part of a valid sequence stands for the character of its value. A negative count
/// is refused. Without any font on the system text has extent 0 and draws nothing; calls still succeed. Text is
/// drawn at once, between BeginPath and EndPath too, and does not look at the binary raster operation.
KOLM_API BOOL TextOutA(HDC dc, int x, int y, LPCSTR text, int count);
/// `options` ETO_OPAQUE fills the rectangle with the background colour first, ETO_CLIPPED cuts the text to it.
KOLM_API BOOL ExtTextOutA(HDC dc, int x, int y, UINT options, const RECT* rect, LPCSTR text, UINT count,
                          const int* advances);
/// Sum of the advances and the cell height, in logical units. The world transform does not take part.
KOLM_API BOOL GetTextExtentPointA(HDC dc, LPCSTR text, int count, LPSIZE size);
KOLM_API BOOL GetTextExtentPoint32A(HDC dc, LPCSTR text, int count, LPSIZE size);
KOLM_API BOOL GetTextMetricsA(HDC dc, LPTEXTMETRICA metrics);

inline BOOL TextOut(HDC dc, int x, int y, LPCSTR text, int count)
{
    return TextOutA(dc, x, y, text, count);
}
inline BOOL ExtTextOut(HDC dc, int x, int y, UINT options, const RECT* rect, LPCSTR text, UINT count,
                       const int* advances)
{
    return ExtTextOutA(dc, x, y, options, rect, text, count, advances);
}
inline BOOL GetTextExtentPoint(HDC dc, LPCSTR text, int count, LPSIZE size)
{
    return GetTextExtentPointA(dc, text, count, size);
}
inline HFONT CreateFontIndirect(const LOGFONTA* record)
{
    return CreateFontIndirectA(record);
}

// ---- For hosts and tests ----

/// While a list is set, every call on the device context appends one line to it, calls out of turn or with a refused
/// value too, and still takes effect; a selection appends one only when it succeeds. Null ends it.
/// The list stays the caller's and has to outlive the trace. A deleted device context forgets its list.
KOLM_API void GdiSetTrace(HDC dc, CStringArray* calls);
/// Pixels per inch that the screen reports in both directions, 96 at first. Values below 1 are ignored.
KOLM_API void GdiSetScreenResolution(int pixelsPerInch);
