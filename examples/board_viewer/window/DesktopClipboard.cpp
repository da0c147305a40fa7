#include "DesktopClipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QMessageBox>

#include <cstring>

namespace viewer {

namespace {

/// A copy of the bitmap's pixels. Null for a bitmap that cannot be read.
QImage ImageOf(HBITMAP bitmap)
{
    BITMAP record = {};
    if (!GetObjectA(bitmap, sizeof record, &record) || record.bmWidth < 1 || record.bmHeight < 1)
        return {};
    QImage image(record.bmWidth, record.bmHeight, QImage::Format_RGB32);
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = record.bmWidth;
    info.bmiHeader.biHeight = record.bmHeight;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    const HDC screen = GetDC(nullptr);
    const int rows =
        image.isNull() ? 0 : GetDIBits(screen, bitmap, 0, UINT(record.bmHeight), image.bits(), &info, DIB_RGB_COLORS);
    ReleaseDC(nullptr, screen);
    return rows == record.bmHeight ? image.mirrored() : QImage(); // the rows come from the bottom up
}

QString TextOf(HANDLE block)
{
    const char* const text = static_cast<const char*>(GlobalLock(block));
    const QString result = text ? QString::fromUtf8(text, int(strnlen(text, GlobalSize(block)))) : QString();
    GlobalUnlock(block);
    return result;
}

/// Called after the library's clipboard was closed with new contents.
void PassOn(void*)
{
    if (!OpenClipboard(nullptr))
        return;
    if (const HANDLE bitmap = GetClipboardData(CF_BITMAP))
        QGuiApplication::clipboard()->setImage(ImageOf(HBITMAP(bitmap)));
    else if (const HANDLE text = GetClipboardData(CF_TEXT))
        QGuiApplication::clipboard()->setText(TextOf(text));
    CloseClipboard();
}

QMessageBox::Icon IconOf(UINT type)
{
    switch (type & 0xF0) {
    case MB_ICONERROR:
        return QMessageBox::Critical;
    case MB_ICONQUESTION:
        return QMessageBox::Question;
    case MB_ICONWARNING:
        return QMessageBox::Warning;
    default:
        return QMessageBox::Information;
    }
}

QMessageBox::StandardButtons ButtonsOf(UINT type)
{
    switch (type & 0x0F) {
    case MB_OKCANCEL:
        return QMessageBox::Ok | QMessageBox::Cancel;
    case MB_YESNO:
        return QMessageBox::Yes | QMessageBox::No;
    case MB_YESNOCANCEL:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    default:
        return QMessageBox::Ok;
    }
}

} // namespace

DesktopClipboard::DesktopClipboard()
{
    GdiSetClipboardListener(PassOn, nullptr);
}

DesktopClipboard::~DesktopClipboard()
{
    GdiSetClipboardListener(nullptr, nullptr);
}

bool CopyText(const std::string& text)
{
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, text.size() + 1);
    if (!block)
        return false;
    std::memcpy(GlobalLock(block), text.c_str(), text.size() + 1);
    GlobalUnlock(block);
    bool copied = false;
    if (OpenClipboard(nullptr)) {
        EmptyClipboard();
        copied = SetClipboardData(CF_TEXT, block) != nullptr;
        CloseClipboard();
    }
    if (!copied)
        GlobalFree(block);
    return copied;
}

int DesktopApp::DoMessageBox(LPCSTR text, UINT type, UINT)
{
    QMessageBox box(IconOf(type), QGuiApplication::applicationDisplayName(), QString::fromUtf8(text), ButtonsOf(type),
                    parent);
    box.setTextFormat(Qt::PlainText);
    switch (box.exec()) {
    case QMessageBox::Yes:
        return IDYES;
    case QMessageBox::No:
        return IDNO;
    case QMessageBox::Cancel:
        return IDCANCEL;
    default:
        return IDOK;
    }
}

} // namespace viewer
