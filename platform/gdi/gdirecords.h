/// Records and constants of drawing. Field widths and values are the platform's: they are part of files and of
/// archives.
#pragma once

#include "base/wintypes.h"

/// Row-vector affine map: x' = x * eM11 + y * eM21 + eDx, y' = x * eM12 + y * eM22 + eDy.
struct XFORM
{
    float eM11, eM12, eM21, eM22, eDx, eDy;
};
using LPXFORM = XFORM*;

struct LOGPEN
{
    UINT lopnStyle;
    POINT lopnWidth; ///< only x counts
    COLORREF lopnColor;
};

struct EXTLOGPEN
{
    DWORD elpPenStyle;
    DWORD elpWidth;
    UINT elpBrushStyle;
    COLORREF elpColor;
    ULONG_PTR elpHatch;
    DWORD elpNumEntries;
    DWORD elpStyleEntry[1];
};

struct LOGBRUSH
{
    UINT lbStyle;
    COLORREF lbColor;
    ULONG_PTR lbHatch;
};

constexpr int LF_FACESIZE = 32;

struct LOGFONTA
{
    LONG lfHeight;     ///< below 0 the em height, above 0 the cell height, 0 a default of 12
    LONG lfWidth;      ///< average character width, 0 as the face has it; the sign does not count
    LONG lfEscapement; ///< tenths of a degree
    LONG lfOrientation;
    LONG lfWeight;
    BYTE lfItalic, lfUnderline, lfStrikeOut, lfCharSet;
    BYTE lfOutPrecision, lfClipPrecision, lfQuality, lfPitchAndFamily;
    char lfFaceName[LF_FACESIZE];
};
using LOGFONT = LOGFONTA;

struct TEXTMETRICA
{
    LONG tmHeight, tmAscent, tmDescent, tmInternalLeading, tmExternalLeading, tmAveCharWidth, tmMaxCharWidth, tmWeight;
    LONG tmOverhang, tmDigitizedAspectX, tmDigitizedAspectY;
    BYTE tmFirstChar, tmLastChar, tmDefaultChar, tmBreakChar, tmItalic, tmUnderlined, tmStruckOut, tmPitchAndFamily;
    BYTE tmCharSet;
};
using TEXTMETRIC = TEXTMETRICA;
using LPTEXTMETRICA = TEXTMETRICA*;

struct BITMAP
{
    LONG bmType; ///< always 0
    LONG bmWidth;
    LONG bmHeight;
    LONG bmWidthBytes; ///< bytes of a row
    WORD bmPlanes;
    WORD bmBitsPixel;
    LPVOID bmBits; ///< the rows of a DIB section, else null
};

struct RGBQUAD
{
    BYTE rgbBlue, rgbGreen, rgbRed, rgbReserved;
};

struct BITMAPINFOHEADER
{
    DWORD biSize;
    LONG biWidth;
    LONG biHeight; ///< positive: rows from the bottom up
    WORD biPlanes;
    WORD biBitCount;
    DWORD biCompression;
    DWORD biSizeImage;
    LONG biXPelsPerMeter;
    LONG biYPelsPerMeter;
    DWORD biClrUsed;
    DWORD biClrImportant;
};
using LPBITMAPINFOHEADER = BITMAPINFOHEADER*;

struct BITMAPINFO
{
    BITMAPINFOHEADER bmiHeader;
    RGBQUAD bmiColors[1];
};
using LPBITMAPINFO = BITMAPINFO*;

struct DIBSECTION
{
    BITMAP dsBm;
    BITMAPINFOHEADER dsBmih;
    DWORD dsBitfields[3];
    HANDLE dshSection;
    DWORD dsOffset;
};

/// Begins a bitmap file: 14 bytes without padding.
#pragma pack(push, 2)
struct BITMAPFILEHEADER
{
    WORD bfType;
    DWORD bfSize;
    WORD bfReserved1;
    WORD bfReserved2;
    DWORD bfOffBits;
};
#pragma pack(pop)
static_assert(sizeof(BITMAPFILEHEADER) == 14 && sizeof(BITMAPINFOHEADER) == 40, "layout of bitmap files");
static_assert(sizeof(LOGFONTA) == 60, "layout of font records");

struct PALETTEENTRY
{
    BYTE peRed, peGreen, peBlue, peFlags;
};

struct LOGPALETTE
{
    WORD palVersion;
    WORD palNumEntries;
    PALETTEENTRY palPalEntry[1];
};

/// Red in the low byte, then green, then blue.
constexpr COLORREF RGB(int red, int green, int blue)
{
    return COLORREF(red & 0xFF) | COLORREF(green & 0xFF) << 8 | COLORREF(blue & 0xFF) << 16;
}
constexpr BYTE GetRValue(COLORREF color)
{
    return BYTE(color);
}
constexpr BYTE GetGValue(COLORREF color)
{
    return BYTE(color >> 8);
}
constexpr BYTE GetBValue(COLORREF color)
{
    return BYTE(color >> 16);
}
constexpr COLORREF CLR_INVALID = 0xFFFFFFFF;
constexpr UINT GDI_ERROR = 0xFFFFFFFF;

// clang-format off
/// Kinds of objects
constexpr UINT OBJ_PEN = 1, OBJ_BRUSH = 2, OBJ_DC = 3, OBJ_PAL = 5, OBJ_FONT = 6, OBJ_BITMAP = 7, OBJ_MEMDC = 10, OBJ_EXTPEN = 11;
/// Stock objects
constexpr int WHITE_BRUSH = 0, LTGRAY_BRUSH = 1, GRAY_BRUSH = 2, DKGRAY_BRUSH = 3, BLACK_BRUSH = 4, NULL_BRUSH = 5, HOLLOW_BRUSH = 5,
              WHITE_PEN = 6, BLACK_PEN = 7, NULL_PEN = 8, OEM_FIXED_FONT = 10, ANSI_FIXED_FONT = 11, ANSI_VAR_FONT = 12,
              SYSTEM_FONT = 13, DEVICE_DEFAULT_FONT = 14, DEFAULT_PALETTE = 15, SYSTEM_FIXED_FONT = 16, DEFAULT_GUI_FONT = 17;
/// Pen styles; the flags above the low four bits are for ExtCreatePen
constexpr int PS_SOLID = 0, PS_DASH = 1, PS_DOT = 2, PS_DASHDOT = 3, PS_DASHDOTDOT = 4, PS_NULL = 5, PS_INSIDEFRAME = 6,
              PS_STYLE_MASK = 0xF, PS_ENDCAP_ROUND = 0, PS_ENDCAP_SQUARE = 0x100, PS_ENDCAP_FLAT = 0x200, PS_JOIN_ROUND = 0,
              PS_JOIN_BEVEL = 0x1000, PS_JOIN_MITER = 0x2000, PS_COSMETIC = 0, PS_GEOMETRIC = 0x10000, PS_TYPE_MASK = 0xF0000;
constexpr UINT BS_SOLID = 0, BS_NULL = 1, BS_HOLLOW = 1, BS_HATCHED = 2;
constexpr int HS_HORIZONTAL = 0, HS_VERTICAL = 1, HS_FDIAGONAL = 2, HS_BDIAGONAL = 3, HS_CROSS = 4, HS_DIAGCROSS = 5;
constexpr int R2_BLACK = 1, R2_NOT = 6, R2_XORPEN = 7, R2_NOP = 11, R2_COPYPEN = 13, R2_WHITE = 16;
constexpr int TRANSPARENT = 1, OPAQUE = 2;
constexpr int AD_COUNTERCLOCKWISE = 1, AD_CLOCKWISE = 2; ///< as seen with y downward
constexpr int NULLREGION = 1, SIMPLEREGION = 2;
constexpr int GM_COMPATIBLE = 1, GM_ADVANCED = 2;
constexpr int ALTERNATE = 1, WINDING = 2;
constexpr UINT TA_LEFT = 0, TA_RIGHT = 2, TA_CENTER = 6, TA_TOP = 0, TA_BOTTOM = 8, TA_BASELINE = 24, TA_NOUPDATECP = 0, TA_UPDATECP = 1;
constexpr BYTE PT_CLOSEFIGURE = 1, PT_LINETO = 2, PT_BEZIERTO = 4, PT_MOVETO = 6;
constexpr UINT DIB_RGB_COLORS = 0, DIB_PAL_COLORS = 1;
constexpr DWORD BI_RGB = 0, BI_BITFIELDS = 3;
constexpr UINT ETO_OPAQUE = 2, ETO_CLIPPED = 4;
/// Raster codes of block transfers
constexpr DWORD SRCCOPY = 0x00CC0020, SRCPAINT = 0x00EE0086, SRCAND = 0x008800C6, SRCINVERT = 0x00660046, SRCERASE = 0x00440328,
                NOTSRCCOPY = 0x00330008, NOTSRCERASE = 0x001100A6, MERGECOPY = 0x00C000CA, MERGEPAINT = 0x00BB0226,
                PATCOPY = 0x00F00021, PATPAINT = 0x00FB0A09, PATINVERT = 0x005A0049, DSTINVERT = 0x00550009,
                BLACKNESS = 0x00000042, WHITENESS = 0x00FF0062;
/// Device capabilities
constexpr int TECHNOLOGY = 2, HORZRES = 8, VERTRES = 10, BITSPIXEL = 12, PLANES = 14, LOGPIXELSX = 88, LOGPIXELSY = 90, DT_RASDISPLAY = 1;
/// Fonts
constexpr int FW_DONTCARE = 0, FW_NORMAL = 400, FW_BOLD = 700;
constexpr BYTE ANSI_CHARSET = 0, DEFAULT_CHARSET = 1;
constexpr DWORD OUT_DEFAULT_PRECIS = 0, CLIP_DEFAULT_PRECIS = 0, DEFAULT_QUALITY = 0, DEFAULT_PITCH = 0, FF_DONTCARE = 0;
// clang-format on
