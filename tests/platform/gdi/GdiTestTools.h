/// A memory device context with a bitmap of its own, and ways to look at its pixels.
#pragma once

#include <afxwin.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

inline DWORD ObjectsAlive()
{
    return GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
}

/// Black pixels of 1 or 32 bits (24 through a section) under a device context; freed with the object.
class Canvas
{
public:
    Canvas(int width, int height, int bitsPerPixel = 32) : m_width(width), m_height(height)
    {
        m_dc = CreateCompatibleDC(nullptr);
        m_bitmap = CreateBitmap(width, height, 1, UINT(bitsPerPixel), nullptr);
        m_former = SelectObject(m_dc, m_bitmap);
    }
    ~Canvas()
    {
        SelectObject(m_dc, m_former);
        DeleteObject(m_bitmap);
        DeleteDC(m_dc);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    operator HDC() const { return m_dc; }
    HBITMAP Bitmap() const { return m_bitmap; }
    COLORREF At(int x, int y) const { return GetPixel(m_dc, x, y); }

    /// One character a pixel, one string a row: '.' is black, '#' anything else.
    std::vector<std::string> Picture() const
    {
        std::vector<std::string> rows(size_t(m_height), std::string(size_t(m_width), '.'));
        for (int y = 0; y < m_height; ++y) {
            for (int x = 0; x < m_width; ++x) {
                rows[size_t(y)][size_t(x)] = At(x, y) != 0 ? '#' : '.';
            }
        }
        return rows;
    }
    std::vector<COLORREF> Pixels() const
    {
        std::vector<COLORREF> pixels;
        for (int y = 0; y < m_height; ++y) {
            for (int x = 0; x < m_width; ++x) {
                pixels.push_back(At(x, y));
            }
        }
        return pixels;
    }
    /// The smallest box around all pixels that are not black; empty when there are none.
    CRect Drawn() const
    {
        CRect box(m_width, m_height, -1, -1);
        for (int y = 0; y < m_height; ++y) {
            for (int x = 0; x < m_width; ++x) {
                if (At(x, y) != 0) {
                    box = CRect(std::min<int>(box.left, x), std::min<int>(box.top, y), std::max<int>(box.right, x + 1),
                                std::max<int>(box.bottom, y + 1));
                }
            }
        }
        return box.right < 0 ? CRect() : box;
    }
    void SetTransform(float m11, float m12, float m21, float m22, float dx, float dy)
    {
        SetGraphicsMode(m_dc, GM_ADVANCED);
        const XFORM matrix = {m11, m12, m21, m22, dx, dy};
        ASSERT_TRUE(SetWorldTransform(m_dc, &matrix));
    }

private:
    int m_width, m_height;
    HDC m_dc;
    HBITMAP m_bitmap;
    HGDIOBJ m_former;
};

/// An object selected while the helper lives, then deleted.
class Selected
{
public:
    Selected(HDC dc, HGDIOBJ object) : m_dc(dc), m_object(object), m_former(SelectObject(dc, object)) {}
    ~Selected()
    {
        SelectObject(m_dc, m_former);
        DeleteObject(m_object);
    }
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;

private:
    HDC m_dc;
    HGDIOBJ m_object;
    HGDIOBJ m_former;
};
