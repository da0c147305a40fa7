/// Basic types of the platform, in the widths that they have there: a DWORD, LONG, BOOL or UINT has 32 bits on every
/// system, a handle is as wide as a pointer. Records that go to files or through hosts are made of these types.
#pragma once

#include "KolmApi.h"

#include <cstddef>
#include <cstdint>
#include <type_traits>

// Calling conventions mean nothing outside the platform; the words stand where its sources expect them.
#define APIENTRY
#define CALLBACK
#define WINAPI
#define AFXAPI

#ifndef FALSE
#define FALSE 0
#endif
#ifndef TRUE
#define TRUE 1
#endif

// Integers and the floating-point type, by width. What the platform calls long is long itself where that has 32 bits.
using BOOL = int32_t; // any value but 0 is true; calls answer 1
using BYTE = uint8_t;
using CHAR = char;
using DWORD = std::conditional_t<sizeof(long) == 4, unsigned long, uint32_t>;
using FLOAT = float;
using INT = int32_t;
using LONG = std::conditional_t<sizeof(long) == 4, long, int32_t>;
using LONGLONG = long long; // not int64_t, which is plain long on some systems: printf and overloads tell them apart
using SHORT = int16_t;
using UCHAR = unsigned char;
using UINT = uint32_t;
using ULONG = DWORD;
using ULONGLONG = unsigned long long;
using USHORT = uint16_t;
using WORD = uint16_t;

// Integers as wide as a pointer: sizes, indices, and words that may carry either.
using DWORD_PTR = uintptr_t;
using INT_PTR = intptr_t;
using LONG_PTR = intptr_t;
using SIZE_T = size_t;
using UINT_PTR = uintptr_t;
using ULONG_PTR = uintptr_t;

// Parameters and result of a window message.
using LPARAM = LONG_PTR;
using LRESULT = LONG_PTR;
using WPARAM = UINT_PTR;

/// Red in the low byte, then green, then blue; the high byte is 0.
using COLORREF = DWORD;
using LPCOLORREF = COLORREF*;

// A TCHAR is a narrow character: texts are bytes, and bytes are UTF-8 where they have to become wide text.
using TCHAR = char;
using LPSTR = char*;
using LPCSTR = const char*;
using LPTSTR = char*;
using LPCTSTR = const char*;

using LPBYTE = BYTE*;
using LPDWORD = DWORD*;
using LPVOID = void*;
using LPCVOID = const void*;

using HANDLE = void*;
using HGDIOBJ = void*;
using HGLOBAL = HANDLE;

// Each kind of handle is a pointer to its own type, which is never defined: handles of different kinds do not mix by
// accident, and nobody can look behind one. Every kind converts to HANDLE and to HGDIOBJ.
using HBITMAP = struct HBITMAP__*;
using HBRUSH = struct HBRUSH__*;
using HDC = struct HDC__*;
using HFONT = struct HFONT__*;
using HINSTANCE = struct HINSTANCE__*;
using HMENU = struct HMENU__*;
using HMODULE = HINSTANCE;
using HPALETTE = struct HPALETTE__*;
using HPEN = struct HPEN__*;
using HWND = struct HWND__*;

/// A point in device pixels or logical units, as the call that takes it says.
struct tagPOINT
{
    LONG x;
    LONG y;
};
using POINT = tagPOINT;
using LPPOINT = POINT*;

/// An extent; negative values are possible where a call says so.
struct tagSIZE
{
    LONG cx;
    LONG cy;
};
using SIZE = tagSIZE;
using LPSIZE = SIZE*;

/// Edges of a box. Most calls take right and bottom as the first column and row outside.
struct tagRECT
{
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};
using RECT = tagRECT;
using LPRECT = RECT*;
using LPCRECT = const RECT*;

/// The halves of the low 32 bits. Mouse messages pack signed coordinates this way, so convert to short before use.
constexpr WORD LOWORD(DWORD_PTR value)
{
    return WORD(value & 0xFFFF);
}

/// See LOWORD: bits 16 to 31.
constexpr WORD HIWORD(DWORD_PTR value)
{
    return WORD((value >> 16) & 0xFFFF);
}

/// The reverse of both: 16 bits of each argument, the others are dropped.
constexpr LONG MAKELONG(DWORD_PTR low, DWORD_PTR high)
{
    return LONG(DWORD(LOWORD(low)) | DWORD(LOWORD(high)) << 16);
}
